#include "wine/drive/wine_descriptors.h"

#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/description/scenario.h"
#include "simulator/model/nls/code_page.h"
#include "wine/drive/wine_failure.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

template <typename Visit>
void VisitSources(const Scenario& scenario, const Visit& visit) {
  for (const ScenarioDisk& disk : scenario.disks) {
    for (const ScenarioPartition& partition : disk.partitions) {
      if (partition.volume && partition.volume->source) visit(*partition.volume->source_letter);
    }
  }
}

Scenario WithTheLettersOfTheSource(Scenario scenario) {
  for (ScenarioDisk& disk : scenario.disks) {
    for (ScenarioPartition& partition : disk.partitions) {
      if (partition.volume) partition.volume->letter = partition.volume->source_letter;
    }
  }
  return scenario;
}

// The host folder of the volume with that letter; empty when there is none.
fs::path VolumeAt(char letter, const WinePrefix& prefix) {
  for (const auto& [drive, target] : prefix.Drives()) {
    if (drive == letter) return prefix.folder() / "dosdevices" / target;
  }
  return {};
}

// The lists as they are on the second server; the first may have lost or misplaced its own.
std::vector<std::string> Lists(const Scenario& scenario, const WinePrefix& second,
                               const WinePrefix& first) {
  std::vector<std::string> lists;
  VisitSources(scenario, [&](char letter) {
    const std::string name = AclListName(letter);
    const fs::path list = VolumeAt(letter, second) / kPrepareFolder / name;
    if (!fs::is_regular_file(list)) return;
    fs::copy_file(list, first.folder() / "drive_c" / name, fs::copy_options::overwrite_existing);
    fs::copy_file(list, second.folder() / "drive_c" / name, fs::copy_options::overwrite_existing);
    lists.push_back("C:\\" + name);
  });
  return lists;
}

// Path and descriptor of each object of the lists; nothing when it is told to set them.
std::vector<std::pair<std::string, std::string>> Call(const std::string& command,
                                                      const std::vector<std::string>& lists,
                                                      const WinePrefix& prefix) {
  constexpr char kProgram[] = "kept_descriptors.exe";
  fs::copy_file(WindowsProgram(std::string("wine/programs/") + kProgram),
                prefix.folder() / "drive_c" / kProgram, fs::copy_options::overwrite_existing);
  std::vector<std::pair<std::string, std::string>> objects;
  for (const std::string& list : lists) {
    std::istringstream text(prefix.RunCommand({std::string("C:\\") + kProgram, command, list}));
    for (std::string line; std::getline(text, line);) {
      if (line.ends_with('\r')) line.pop_back();
      const size_t tab = line.find('\t');
      objects.emplace_back(line.substr(0, tab), line.substr(tab + 1));
    }
  }
  return objects;
}

KeptDescriptors Compare(const Scenario& scenario, const WineServer& server,
                        const fs::path& second_folder) {
  KeptDescriptors kept;
  WineServer second(WithTheLettersOfTheSource(scenario), {}, second_folder);
  const std::vector<std::string> lists = Lists(scenario, second.prefix(), server.prefix());
  const auto found = Call("show", lists, server.prefix());
  const auto before = Call("show", lists, second.prefix());
  Call("set", lists, second.prefix());
  const auto wanted = Call("show", lists, second.prefix());
  kept.outcome.objects = wanted.size();
  for (size_t i = 0; i < wanted.size(); ++i) {
    if (wanted[i] != before.at(i)) ++kept.changed;
    if (wanted[i] == found.at(i)) continue;
    const std::string path = Utf8FromAnsi(wanted[i].first, AnsiCodePageOf(scenario.language));
    kept.outcome.differences.push_back({path, wanted[i].second, found[i].second});
  }
  return kept;
}

}  // namespace

KeptDescriptors GatherKeptDescriptors(const Scenario& scenario, const WineServer& server,
                                      const fs::path& second_folder) {
  KeptDescriptors kept;
  // The server itself is only read.
  RunAgainWhereWineFails([&] { kept = Compare(scenario, server, second_folder); }, std::cout);
  RemovePrefix(second_folder);
  return kept;
}

}  // namespace simulator
