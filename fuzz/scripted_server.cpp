#include "fuzz/scripted_server.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "common/win/child_process_list.h"
#include "fuzz/expect.h"
#include "fuzz/script.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "support/process.h"

namespace fuzz {
namespace {

using simulator::Scenario;
using simulator::ScenarioDisk;
using simulator::ScenarioFault;
using simulator::ScenarioVolume;

constexpr uint64_t kGigabyte = uint64_t{1} << 30;

// Windows as C, and two volumes that have come up with each other's letters.
ScenarioDisk DiskOf(char letter, char source_letter) {
  ScenarioVolume volume;
  volume.label = "Data";
  volume.letter = letter;
  volume.source_letter = source_letter;
  volume.source.emplace();
  simulator::ScenarioObject folder;
  folder.path = "Data";
  folder.attributes = FILE_ATTRIBUTE_DIRECTORY;
  folder.files = 2;
  volume.source->folders.push_back(folder);
  simulator::ScenarioJunction junction;
  junction.object.path = "Link";
  junction.object.attributes = FILE_ATTRIBUTE_DIRECTORY;
  junction.target = std::string(1, source_letter) + ":\\Data";
  volume.source->junctions.push_back(junction);

  ScenarioDisk disk;
  disk.size = 100 * kGigabyte;
  simulator::ScenarioPartition partition;
  partition.size = 99 * kGigabyte;
  partition.volume = volume;
  disk.partitions.push_back(partition);
  return disk;
}

// Faults that the program is known not to survive, or that leave it waiting by design.
bool IsLeftOut(const ScenarioFault& fault) {
  // Without a dialog, and without word of its end, the program waits for somebody to end it.
  if (fault.name == "CreateDialogParamW" || fault.name == "PostMessageW") return true;
  // A dialog that the window cannot tell does not hear of the end either.
  if (fault.name == "SetWindowLongPtrW" || fault.name == "GetWindowLongPtrW") return true;
  // A write end of a pipe that stays open keeps its reader waiting.
  if (fault.name == "CloseHandle") return true;
  // The start block is left to the end of the process.
  if (fault.name == "CreateThread") return true;
  // The message loop tries again until it gets a message.
  return fault.name == "GetMessageW" && fault.lasting == simulator::Lasting::kForGood;
}

void Describe(const Section& section, Scenario& scenario) {
  const std::string kind = section.Word(0);
  if (kind == "tool") {
    const auto exit_code = static_cast<DWORD>(section.Number(2));
    scenario.tools.push_back({section.Word(1), section.Number(3), exit_code, section.body});
  } else if (kind == "fault") {
    ScenarioFault fault;
    fault.name = section.Word(1);
    fault.error = static_cast<uint32_t>(section.Number(2));
    fault.occurrence = std::max(section.Number(3), 1);
    if (section.Word(4) == "always") fault.lasting = simulator::Lasting::kForGood;
    if (!IsLeftOut(fault)) scenario.faults.push_back(fault);
  } else if (kind == "windows" && section.Number(1) == 5) {
    scenario.major_version = 5;
    scenario.minor_version = 2;
  } else if (kind == "language") {
    scenario.language = static_cast<LANGID>(section.Number(1));
  } else if (kind == "stray") {
    const std::string identifier = simulator::NumberedIdentifier(8);
    if (!scenario.boot) scenario.boot = std::make_shared<simulator::Boot>(simulator::HealthyBoot());
    simulator::BootStore& store = scenario.boot->store;
    if (store.Find(identifier) != nullptr) return;
    store.entries.push_back(simulator::WindowsLoader({"C:\\Windows", "Stray", section.Word(1)},
                                                     identifier, simulator::NumberedIdentifier(9)));
    std::vector<std::string> displayed = store.entries.front().Values("displayorder");
    displayed.push_back(identifier);
    store.entries.front().Set("displayorder", displayed);
  }
}

// The preparation tool's file on the volume of that source letter; none when there is no such file.
std::string PreparedFile(const std::string& name, char source_letter) {
  const std::string folder = "vantoro_prepare\\";
  if (name == "backup_info") return folder + name;
  if (name != "juncbackup" && name != "aclbackup") return {};
  return folder + name + "_" + source_letter + ".dat";
}

void WriteFile(const Section& section, const std::vector<simulator::SourceVolume>& sources,
               simulator::Files& files) {
  const std::string letter = common::ToUpperAscii(section.Word(1));
  for (const simulator::SourceVolume& source : sources) {
    if (letter != std::string(1, source.letter)) continue;
    const std::string path = PreparedFile(section.Word(2), common::ToLowerAscii(letter).front());
    if (!path.empty()) files.WriteOn(*source.copy, path, section.body);
  }
}

simulator::Intention IntentionOf(const Section& section) {
  const std::string wish = section.Word(1);
  if (wish == "cancel") return {simulator::Wish::kCancel, std::clamp(section.Number(2), 0, 100)};
  return {wish == "later" ? simulator::Wish::kLater : simulator::Wish::kRestart, 0};
}

bool IsLogPath(std::string_view path) { return path.ends_with(".log"); }

// "[2024-03-05 08:07:06] [Info]  ".
bool StartsAsALine(std::string_view text) {
  constexpr std::string_view kTime = "[0000-00-00 00:00:00] [";
  if (text.size() < kTime.size()) return false;
  for (size_t i = 0; i < kTime.size(); ++i) {
    const bool is_digit = text[i] >= '0' && text[i] <= '9';
    if (kTime[i] == '0' ? !is_digit : text[i] != kTime[i]) return false;
  }
  constexpr std::array<std::string_view, 6> kLevels = {"Fatal] ", "Error] ", "Warn]  ",
                                                       "Info]  ", "Done]  ", "Debug] "};
  return std::any_of(kLevels.begin(), kLevels.end(), [&](std::string_view level) {
    return text.substr(kTime.size()).starts_with(level);
  });
}

}  // namespace

ScriptedServer::ScriptedServer(std::string_view script) {
  scenario_.disks = {DiskOf('C', 'C'), DiskOf('E', 'D'), DiskOf('D', 'E')};
  const std::vector<Section> sections = SectionsOf(script);
  for (const Section& section : sections) Describe(section, scenario_);
  if (!scenario_.HasBootStore()) scenario_.boot.reset();
  // Long enough for the dialog's timers.
  const auto pace = [this](const std::string& /*tool*/, simulator::ChildProcess& /*child*/) {
    constexpr int64_t kMilliseconds = 500;
    server_.clock().Advance(kMilliseconds);
  };
  const std::vector<simulator::SourceVolume> sources = simulator::Build(scenario_, server_, pace);
  for (const Section& section : sections) {
    if (section.Word(0) == "file") WriteFile(section, sources, server_.files());
    if (section.Word(0) == "user") intention_ = IntentionOf(section);
    if (section.Word(0) == "free") {
      server_.files().SetFreeSpace('C', static_cast<uint64_t>(std::max(section.Number(1), 0)));
    }
  }
  server_.files().Watch([this](const std::string& path, std::string_view bytes) {
    if (IsLogPath(path)) log_.emplace_back(bytes);
  });
}

ScriptedServer::~ScriptedServer() { server_.files().Watch(nullptr); }

bool ScriptedServer::Fails(std::string_view name) const {
  return std::any_of(scenario_.faults.begin(), scenario_.faults.end(),
                     [name](const ScenarioFault& fault) { return fault.name == name; });
}

void ScriptedServer::ExpectWellFormedLog() {
  // A write that fails, or finds no room, tears a line.
  if (Fails("_write") || server_.files().VolumeAt('C')->free == 0) return;
  for (const std::string& line : log_) {
    Expect(StartsAsALine(line), "a logged line begins with its time and level");
    Expect(line.ends_with("\r\n"), "a logged line is whole");
    Expect(line.find('\0') == std::string::npos, "a logged line is text");
  }
}

}  // namespace fuzz
