#include <algorithm>
#include <string_view>

#include "common/strings.h"
#include "common/win/diskpart_output.h"
#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/report/letter_reasons.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "simulator/tools/diskpart_parts.h"

namespace simulator {
namespace {

constexpr int kLargestOfFirstPartition = 2048;  // GB

std::optional<char> UpperLetter(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
  if (letter >= 'A' && letter <= 'Z') return letter;
  return std::nullopt;
}

std::shared_ptr<Volume> VolumeOn(const Disk& disk, int partition) {
  for (const Partition& each : disk.partitions) {
    if (each.number == partition) return each.volume;
  }
  return nullptr;
}

// The letter in the first line, which the program takes if it is none of A and B.
std::optional<char> RecordedOn(const Volume& volume, const Files& files) {
  const std::optional<std::string> text =
      files.ReadOn(volume, std::string(kPrepareFolder) + "\\backup_info");
  const std::optional<char> letter =
      text && !text->empty() ? UpperLetter((*text)[0]) : std::nullopt;
  return letter && *letter >= 'C' ? letter : std::nullopt;
}

}  // namespace

std::vector<DiskFacts> GatherDisks(Server& server) {
  const std::vector<common::win::DiskpartInfo> listed =
      common::win::ParseDiskList(RunDiskpartScript("list disk", server).output);
  std::vector<DiskFacts> disks;
  for (const Disk& disk : server.disks()) {
    DiskFacts facts;
    facts.online = disk.online;
    facts.dynamic = disk.dynamic;
    facts.size = DiskSizeText(disk.size, server.system());
    const auto found = std::find_if(listed.begin(), listed.end(), [&disk](const auto& each) {
      return each.DiskNumber == disk.number;
    });
    if (found != listed.end()) {
      facts.is_listed = true;
      if (found->SizeGB > kLargestOfFirstPartition) facts.partition = 2;
      char letter = 0;
      common::win::ParseDiskDetail(
          RunDiskpartScript("sel disk " + std::to_string(disk.number) + "\ndetail disk", server)
              .output,
          letter, facts.has_volume);
      facts.letter = UpperLetter(letter);
      const std::shared_ptr<Volume> volume =
          facts.letter ? server.files().VolumeAt(*facts.letter) : VolumeOn(disk, facts.partition);
      if (volume && facts.has_volume) facts.recorded = RecordedOn(*volume, server.files());
    }
    disks.push_back(std::move(facts));
  }
  return disks;
}

}  // namespace simulator
