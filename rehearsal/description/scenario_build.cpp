#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/description/tool_history.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/security.h"
#include "simulator/model/security/well_known_sids.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"

namespace simulator {
namespace {

bool CanHoldFile(const Volume& volume, std::string_view path) {
  const Node* node = volume.root.get();
  for (const std::string& name : NamesBelowRoot(path)) {
    if (!IsValidName(name)) return false;
    if (node == nullptr) continue;
    if (!node->IsFolder() || !node->contents().reparse_data.empty()) return false;
    node = node->Child(name).get();
  }
  return node == nullptr || !node->IsFolder();
}

// Files::WriteOn would end the process over what the scenario has put in the way.
void WriteFile(const Volume& volume, const std::string& path, std::string bytes, Files& files) {
  if (!CanHoldFile(volume, path)) {
    throw ScenarioError(path + ": expected to be a file below folders, all with valid names");
  }
  files.WriteOn(volume, path, std::move(bytes));
}

// Copies the files of a host folder to the root of a volume. Folders come with the files in them;
// an empty one is left out.
void Import(const std::filesystem::path& folder, const Volume& volume, Files& files) {
  try {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      if (entry.symlink_status().type() == std::filesystem::file_type::directory) continue;
      std::ifstream stream;
      if (entry.symlink_status().type() == std::filesystem::file_type::regular) {
        stream.open(entry.path(), std::ios::binary);
      }
      if (!stream.is_open()) {
        throw ScenarioError(entry.path().string() + ": expected a file that can be read");
      }
      std::string path = entry.path().lexically_relative(folder).generic_string();
      for (char& c : path) {
        if (c == '/') c = '\\';
      }
      WriteFile(volume, path, {std::istreambuf_iterator<char>(stream), {}}, files);
    }
  } catch (const std::filesystem::filesystem_error& error) {
    throw ScenarioError(folder.string() +
                        ": expected a folder that can be read: " + error.code().message());
  }
}

// Only the system may read the file from now on.
void Lock(const Volume& volume, const std::string& name, const Identity& identity) {
  Ace full;
  full.mask = FILE_ALL_ACCESS;
  full.sid = kLocalSystem;
  Descriptor locked;
  locked.control = SE_DACL_PRESENT | SE_DACL_PROTECTED;
  locked.owner = kLocalSystem;
  locked.group = identity.primary_group;
  locked.dacl = Acl{ACL_REVISION, {full}};
  const std::shared_ptr<Node> folder = volume.root->Child(kPrepareFolder);
  folder->Child(name)->security = std::make_shared<const Descriptor>(std::move(locked));
}

void WritePrepareFolder(const ScenarioVolume& description, const SourceVolume& source,
                        Server& server) {
  const ScenarioLosses& lost = description.lost;
  if (lost.prepare_folder) return;
  const auto write = [&](const std::string& name, std::string bytes, bool is_unreadable) {
    WriteFile(*source.copy, std::string(kPrepareFolder) + "\\" + name, std::move(bytes),
              server.files());
    if (is_unreadable) Lock(*source.copy, name, server.security().identity());
  };
  const char letter = source.letter;
  const UINT code_page = server.system().ansi_code_page;
  if (!description.backup_info) write("backup_info", BackupInfo(letter, *source.root), false);
  if (!lost.junction_list) {
    write(JunctionListName(letter), JunctionList(letter, *source.root, code_page),
          description.unreadable.junction_list);
  }
  if (!lost.acl_list) {
    write(AclListName(letter),
          AclList(letter, *source.root, server.security().domains(), code_page),
          description.unreadable.acl_list);
  }
}

SourceVolume BuildSource(const ScenarioVolume& description, const std::shared_ptr<Volume>& copy,
                         Server& server) {
  const Identity& identity = server.security().identity();
  SourceVolume source;
  source.letter = *description.source_letter;
  source.root = MakeSourceTree(*description.source, identity);
  source.copy = copy;
  CopyTree(*source.root, *description.source, description.lost, identity, copy->root);
  WritePrepareFolder(description, source, server);
  return source;
}

std::shared_ptr<Volume> BuildVolume(const ScenarioVolume& description, uint64_t size,
                                    Server& server) {
  Files& files = server.files();
  // The bare server's own volume, with Windows and the program on it.
  const bool is_system = description.letter == 'C';
  std::shared_ptr<Volume> volume = is_system ? files.VolumeAt('C') : files.AddVolume({});
  volume->label = description.label;
  volume->file_system = description.file_system;
  volume->drive_type = description.drive_type;
  volume->size = size;
  volume->free = size;
  if (description.letter && !is_system) files.Mount(*description.letter, volume);
  if (!description.import.empty()) Import(description.import, *volume, files);
  if (description.backup_info && !description.lost.prepare_folder) {
    std::string text;
    for (const std::string& line : *description.backup_info) text += line + "\r\n";
    WriteFile(*volume, std::string(kPrepareFolder) + "\\backup_info",
              AnsiFromUtf8(text, server.system().ansi_code_page), files);
  }
  return volume;
}

// The volume that the partition is a part of.
std::shared_ptr<Volume> ExtendedVolume(const ScenarioPartition& part, Server& server) {
  const auto [disk, number] = *part.part_of;
  for (const Partition& first : server.disks().at(static_cast<size_t>(disk)).partitions) {
    if (first.number != number) continue;
    first.volume->size += part.size;
    first.volume->free += part.size;
    return first.volume;
  }
  return nullptr;
}

std::vector<SourceVolume> BuildDisks(const Scenario& scenario, Server& server) {
  std::vector<SourceVolume> sources;
  int number = 0;
  for (const ScenarioDisk& description : scenario.disks) {
    Disk disk;
    disk.number = number++;
    disk.model = description.model;
    disk.size = description.size;
    disk.free = description.free;
    disk.online = description.online;
    disk.dynamic = description.dynamic;
    disk.has_medium = description.has_medium;
    disk.gpt = description.gpt;
    if (disk.gpt) disk.id = "{00000000-0000-0000-0000-000000000000}";
    for (const ScenarioPartition& part : description.partitions) {
      std::shared_ptr<Volume> volume;
      if (part.volume) {
        volume = BuildVolume(*part.volume, part.size, server);
        if (part.volume->source) {
          sources.push_back(BuildSource(*part.volume, volume, server));
        }
      }
      if (part.part_of) volume = ExtendedVolume(part, server);
      disk.partitions.push_back({part.number, part.size, part.info, std::move(volume)});
    }
    server.disks().push_back(std::move(disk));
  }
  return sources;
}

void BuildEmptyDrives(const Scenario& scenario, Files& files) {
  for (const ScenarioEmptyDrive& drive : scenario.empty_drives) {
    Volume empty;
    empty.drive_type = drive.drive_type;
    empty.has_medium = false;
    files.Mount(drive.letter, files.AddVolume(std::move(empty)));
  }
}

Program ToolProgram(const std::string& name) {
  if (name == "diskpart") return DiskpartProgram();
  return name == "bcdedit" ? BcdeditProgram() : BcdbootProgram();
}

// What the call of the tool was to do; empty if that is not a readable script.
std::string ScriptOf(const ChildProcess& child, Server& server) {
  const std::vector<std::string> arguments = child.Arguments();
  if (arguments.size() != 3 || arguments[1] != "/s") return "";
  std::string script = server.files().Read(arguments[2]).value_or("");
  std::erase(script, '\r');
  return script;
}

// Installs the tool, but for the calls that are to misbehave.
void InstallTool(const std::string& name, Program real, const Scenario& scenario,
                 const ToolPace& pace, const std::shared_ptr<ToolHistory>& history,
                 Server& server) {
  std::vector<ScenarioTool> calls;
  std::copy_if(scenario.tools.begin(), scenario.tools.end(), std::back_inserter(calls),
               [&name](const ScenarioTool& tool) { return tool.name == name; });
  const auto count = std::make_shared<std::atomic<int>>(0);
  const auto run = [count, real = std::move(real), calls = std::move(calls)](
                       Server& at, ChildProcess& child) -> DWORD {
    const int call = ++*count;
    for (const ScenarioTool& tool : calls) {
      if (tool.call != call) continue;
      child.WriteOutput(AnsiFromUtf8(tool.output, at.system().oem_code_page));
      return tool.exit_code;
    }
    return real(at, child);
  };
  server.processes().Install(name, [=](Server& at, ChildProcess& child) -> DWORD {
    if (pace) pace(name, child);
    if (child.Terminated()) return 1;
    ToolCall call{name, ScriptOf(child, at)};
    call.exit_code = run(at, child);
    if (history) history->Add(call);
    return call.exit_code;
  });
}

}  // namespace

std::vector<SourceVolume> Build(const Scenario& scenario, Server& server, const ToolPace& pace,
                                const std::shared_ptr<ToolHistory>& history) {
  System& system = server.system();
  system.major_version = scenario.major_version;
  system.minor_version = scenario.minor_version;
  system.build = scenario.build;
  system.language = scenario.language;
  system.ansi_code_page = AnsiCodePageOf(scenario.language);
  system.oem_code_page = OemCodePageOf(scenario.language);
  system.computer_name = scenario.computer_name;
  system.disk_tool_texts = scenario.disk_tool_texts;

  std::vector<SourceVolume> sources = BuildDisks(scenario, server);
  BuildEmptyDrives(scenario, server.files());
  for (const std::string& tool : scenario.Tools()) {
    InstallTool(tool, ToolProgram(tool), scenario, pace, history, server);
  }
  if (scenario.boot) server.boot() = *scenario.boot;
  if (!scenario.HasBootStore()) server.boot() = {};

  const auto write_link = [&server](const std::string& folder) {
    constexpr size_t kRoot = 3;  // "C:\"
    WriteFile(*server.files().VolumeAt(folder[0]),
              folder.substr(kRoot) + "\\vantoro_restore.exe.lnk", "", server.files());
  };
  if (scenario.common_startup_link) write_link(system.common_startup_directory);
  if (scenario.program_link) {
    write_link(system.program_path.substr(0, system.program_path.rfind('\\')));
  }

  // Last: the model's own writes are no calls of the program, but what runs later is.
  for (const ScenarioFault& fault : scenario.faults) {
    server.calls().FailNext(fault.name, fault.error, fault.occurrence, fault.lasting);
  }
  return sources;
}

}  // namespace simulator
