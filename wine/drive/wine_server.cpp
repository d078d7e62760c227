#include "wine/drive/wine_server.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <utility>

#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

constexpr char kLinkName[] = "vantoro_restore.exe.lnk";

// Paths start behind the root: "Windows\System32".
std::string BehindRoot(const std::string& path) {
  constexpr size_t kRoot = 3;  // "C:\"
  return path.substr(kRoot);
}

void WriteFile(const fs::path& file, const std::string& bytes) {
  // It may be one that all prefixes share.
  fs::remove(file);
  std::ofstream stream(file, std::ios::binary);
  stream << bytes;
  if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
}

std::string ReadFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteTree(const Node& node, const fs::path& folder) {
  fs::create_directories(folder);
  for (const auto& child : node.contents().children) {
    if (!child->contents().reparse_data.empty()) continue;
    const fs::path place = WinePrefix::Below(folder, child->name);
    if (child->IsFolder()) {
      WriteTree(*child, place);
    } else {
      WriteFile(place, child->contents().bytes);
    }
    if ((child->attributes & FILE_ATTRIBUTE_READONLY) != 0 && !child->IsFolder()) {
      fs::permissions(place,
                      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                      fs::perm_options::remove);
    }
  }
}

std::string VolumeName(int disk, int partition) {
  return "disk" + std::to_string(disk) + "_partition" + std::to_string(partition);
}

std::string TargetOf(const Disk& disk, const Partition& partition, const Files& files) {
  const bool is_system = partition.volume == files.VolumeAt('C');
  return is_system ? WinePrefix::kSystemVolumeTarget
                   : WinePrefix::VolumeTarget(VolumeName(disk.number, partition.number));
}

void WriteVolumes(Server& server, WinePrefix& prefix) {
  std::set<const Volume*> written;
  for (const Disk& disk : server.disks()) {
    for (const Partition& partition : disk.partitions) {
      if (!partition.volume || !written.insert(partition.volume.get()).second) continue;
      const std::string target = TargetOf(disk, partition, server.files());
      WriteTree(*partition.volume->root, prefix.folder() / "dosdevices" / target);
      const std::optional<char> letter = server.files().LetterOf(*partition.volume);
      if (letter && target != WinePrefix::kSystemVolumeTarget) {
        prefix.DefineDrive(*letter, target, partition.volume->drive_type);
      }
    }
  }
}

// A drive of Wine whose folder does not exist.
void DefineEmptyDrives(const Scenario& scenario, WinePrefix& prefix) {
  for (const ScenarioEmptyDrive& drive : scenario.empty_drives) {
    prefix.DefineDrive(drive.letter, WinePrefix::VolumeTarget(std::string("empty_") + drive.letter),
                       drive.drive_type);
  }
}

// What the administrator may not read becomes a folder, which nobody can open as a file.
void ReplaceUnreadableLists(const Scenario& scenario, const WinePrefix& prefix) {
  for (size_t d = 0; d < scenario.disks.size(); ++d) {
    for (const ScenarioPartition& partition : scenario.disks[d].partitions) {
      if (!partition.volume || !partition.volume->source_letter) continue;
      const char letter = *partition.volume->source_letter;
      const fs::path folder =
          (partition.volume->letter == 'C'
               ? prefix.folder() / "drive_c"
               : prefix.VolumeFolder(VolumeName(static_cast<int>(d), partition.number))) /
          kPrepareFolder;
      const ScenarioUnreadable& unreadable = partition.volume->unreadable;
      const auto replace = [&folder](const std::string& name) {
        fs::remove(folder / name);
        fs::create_directory(folder / name);
      };
      if (unreadable.junction_list) replace(JunctionListName(letter));
      if (unreadable.acl_list) replace(AclListName(letter));
    }
  }
}

MachineState StateOf(const Scenario& scenario, const WineServerOptions& options, Server& server) {
  MachineState state;
  state.system = server.system();
  state.disks = server.disks();
  state.boot = server.boot();
  state.answers = options.answers;
  for (const ScenarioTool& tool : scenario.tools) {
    state.answers.push_back({tool.name, tool.call, tool.exit_code, tool.output});
  }
  for (const Disk& disk : state.disks) {
    for (const Partition& partition : disk.partitions) {
      if (!partition.volume) continue;
      // Of a spanned volume, the first partition names it.
      state.targets.try_emplace(partition.volume.get(), TargetOf(disk, partition, server.files()));
      const std::optional<char> letter = server.files().LetterOf(*partition.volume);
      if (letter) state.letters[*letter] = partition.volume;
    }
  }
  for (const ScenarioEmptyDrive& drive : scenario.empty_drives) {
    state.letters[drive.letter] = server.files().VolumeAt(drive.letter);
  }
  return state;
}

// What Wine calls the versions of Windows.
std::string VersionName(const System& system) {
  struct Version {
    DWORD major;
    DWORD minor;
    const char* name;
  };
  constexpr Version kVersions[] = {{5, 2, "win2003"}, {6, 0, "vista"}, {6, 1, "win7"},
                                   {6, 2, "win8"},    {6, 3, "win81"}, {10, 0, "win10"}};
  for (const Version& version : kVersions) {
    if (version.major == system.major_version && version.minor == system.minor_version) {
      return version.name;
    }
  }
  throw std::runtime_error("Wine is no Windows " + std::to_string(system.major_version) + "." +
                           std::to_string(system.minor_version));
}

// Backslashes are doubled there, and units of UTF-16 are written as four digits: "\x904b".
std::string RegistryText(const std::string& text) {
  std::string escaped;
  for (const char16_t unit : Utf16FromUtf8(text)) {
    if (unit < 0x80) {
      escaped += unit == u'\\' ? "\\\\" : std::string(1, static_cast<char>(unit));
    } else {
      char digits[8];
      std::snprintf(digits, sizeof digits, "\\x%04x", static_cast<unsigned>(unit));
      escaped += digits;
    }
  }
  return "\"" + escaped + "\"";
}

void Configure(const System& system, WinePrefix& prefix) {
  prefix.AddToUserRegistry("Software\\\\Wine", "\"Version\"=" + RegistryText(VersionName(system)));
  fs::create_directories(prefix.OnSystemVolume(BehindRoot(system.temp_directory)));
  const std::string temp = RegistryText(system.temp_directory);
  prefix.AddToUserRegistry("Environment", "\"TEMP\"=" + temp + "\n\"TMP\"=" + temp);
}

void InstallPrograms(const Scenario& scenario, const fs::path& program_folder, WinePrefix& prefix) {
  for (const std::string& tool : scenario.Tools()) {
    fs::create_hard_link(WindowsProgram("wine/programs/system_tool.exe"),
                         prefix.OnSystemVolume("windows\\system32\\" + tool + ".exe"));
  }
  fs::create_directories(program_folder);
  fs::copy_file(WindowsProgram("vantoro_restore.exe"), program_folder / "vantoro_restore.exe",
                fs::copy_options::overwrite_existing);
}

}  // namespace

WineServer::WineServer(const Scenario& scenario, const WineServerOptions& options,
                       const fs::path& folder)
    : options_(options), prefix_(folder, scenario.language) {
  if (!scenario.faults.empty()) {
    throw ScenarioError("faults: no call can be made to fail under Wine");
  }
  Server server;
  server.system().program_path = program();
  if (!options.temp_folder.empty()) server.system().temp_directory = options.temp_folder;
  Build(scenario, server);
  WriteVolumes(server, prefix_);
  DefineEmptyDrives(scenario, prefix_);
  ReplaceUnreadableLists(scenario, prefix_);
  WriteFile(prefix_.OnSystemVolume("windows") / kMachineStateFile,
            MachineStateText(StateOf(scenario, options, server)));
  Configure(server.system(), prefix_);
  InstallPrograms(scenario, ProgramFolder(), prefix_);
}

fs::path WineServer::ProgramFolder() const {
  return prefix_.OnSystemVolume(BehindRoot(options_.program_folder));
}

fs::path WineServer::CommonStartupLink() const {
  return prefix_.OnSystemVolume(BehindRoot(System().common_startup_directory)) / kLinkName;
}

fs::path WineServer::ProgramLink() const { return ProgramFolder() / kLinkName; }

MachineState WineServer::State() const {
  const fs::path file = prefix_.OnSystemVolume("windows") / kMachineStateFile;
  std::optional<MachineState> state = ParseMachineState(ReadFile(file));
  if (!state) throw std::runtime_error(file.string() + " is not what the tools write");
  return *std::move(state);
}

std::optional<char> WineServer::LetterOf(int disk, int partition) const {
  const MachineState state = State();
  for (const Disk& each : state.disks) {
    if (each.number != disk) continue;
    for (const Partition& part : each.partitions) {
      if (part.number != partition || !part.volume) continue;
      const std::string& volume = state.targets.at(part.volume.get());
      for (const auto& [letter, target] : prefix_.Drives()) {
        if (target == volume) return letter;
      }
    }
  }
  return std::nullopt;
}

std::vector<fs::path> WineServer::LogFiles() const {
  std::vector<fs::path> files;
  std::error_code none;
  const fs::path logs = options_.log_folder.empty()
                            ? ProgramFolder() / "Logs"
                            : prefix_.OnSystemVolume(BehindRoot(options_.log_folder));
  for (const auto& file : fs::directory_iterator(logs, none)) {
    files.push_back(file.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string WineServer::Log() const {
  std::string text;
  for (const fs::path& file : LogFiles()) text += ReadFile(file);
  return text;
}

fs::path WindowsProgram(const std::string& name) {
  fs::path program = fs::path(VANTORO_SOURCE_DIR) / "build" / "windows" / name;
  if (!fs::exists(program)) {
    throw std::runtime_error(program.string() + " is not built; build the preset windows");
  }
  return program;
}

}  // namespace simulator
