// A migrated server described in a JSON file. The keys are as follows; those in brackets are
// optional:
//
//   title, disks, [empty_drives], [windows], [boot], [startup_links], [tools],
//                  [faults]
//   windows:       [version] "10.0.14393", [language] a LANGID, which also decides the code pages,
//                  [computer_name], [diskpart]: texts of the disk tool by the English ones,
//                  {"Healthy": "Fehlerfrei"}, where they are not those of
//                  simulator/tools/diskpart_texts.h
//   boot:          see scenario_boot.h; if missing, a boot configuration with nothing to repair
//   disks:         size "127 GB", [free], [model], [gpt], [online], [dynamic], [partitions]; or
//                  medium false for a card reader without a card, [model]
//   partitions:    size, [number], [info] "System", "Boot" or "Hidden", see disks.h, [volume], or
//                  [part_of] {"disk": 0, "partition": 1}: the first part of a spanned volume, on an
//                  earlier disk; both disks are dynamic
//   volume:        [label], [file_system], [letter] at present, [source_letter], [drive_type]
//                  "fixed" or "removable", [backup_info] lines, [import] a host folder, [source],
//                  [lost], [unreadable]: see scenario_source.h
//   empty_drives:  letter, drive_type "removable" or "cd": each drive without a medium
//   tools:         name of a tool that this Windows has: "diskpart", "bcdedit" from 6.0 on,
//                  "bcdboot" from 6.1 on; exit_code, [call] counted from 1, [output]
//   faults:        call "CreatePipe", error, [occurrence] counted from 1, [for_good]; the names
//                  are in simulator/model/call_names.cpp
//   startup_links: [common], [program]: whether each shortcut exists; both true by default
#ifndef REHEARSAL_DESCRIPTION_SCENARIO_H_
#define REHEARSAL_DESCRIPTION_SCENARIO_H_

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "rehearsal/description/scenario_source.h"

namespace simulator {

class ChildProcess;
class Server;
class ToolHistory;
enum class Lasting;
struct Boot;
struct SourceVolume;

// The message is one line: the file, the position in the file and what was expected there.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct ScenarioVolume {
  std::string label;
  std::string file_system = "NTFS";
  std::optional<char> letter;         // upper case
  std::optional<char> source_letter;  // upper case; none if the source had no such volume
  UINT drive_type = DRIVE_FIXED;
  std::optional<std::vector<std::string>> backup_info;  // its lines; if none, the source's file
  std::filesystem::path import;                         // a host folder, or empty
  std::optional<ScenarioSource> source;                 // only with a source letter
  ScenarioLosses lost;
  ScenarioUnreadable unreadable;
};

struct ScenarioPartition {
  int number = 1;
  uint64_t size = 0;  // bytes
  std::string info;
  std::optional<ScenarioVolume> volume;
  std::optional<std::pair<int, int>> part_of;  // the disk and the partition with the volume
};

struct ScenarioDisk {
  uint64_t size = 0;  // bytes
  uint64_t free = 0;  // bytes
  std::string model = "Virtual HD SCSI Disk Device";
  bool gpt = false;
  bool online = true;
  bool dynamic = false;
  bool has_medium = true;
  std::vector<ScenarioPartition> partitions;
};

struct ScenarioEmptyDrive {
  char letter = '\0';  // upper case
  UINT drive_type = DRIVE_CDROM;
};

// A call of a tool that does nothing except print `output` and end with `exit_code`.
struct ScenarioTool {
  std::string name;
  int call = 1;
  DWORD exit_code = 0;
  std::string output;
  std::string place = {};  // "FILE: /tools/0/call"
};

struct ScenarioFault {
  std::string name;
  int occurrence = 1;
  uint32_t error = 0;
  Lasting lasting{};       // once
  std::string place = {};  // "FILE: /faults/0/occurrence"
};

struct Scenario {
  std::string title;
  DWORD major_version = 10;
  DWORD minor_version = 0;
  DWORD build = 14393;
  LANGID language = 1033;
  std::string computer_name = "MIGRATED";
  std::map<std::string, std::string> disk_tool_texts;  // by the English ones
  std::vector<ScenarioDisk> disks;                     // numbered from 0
  std::vector<ScenarioEmptyDrive> empty_drives;
  std::shared_ptr<Boot> boot;  // if null and there is a store, a BIOS server's in order
  std::vector<ScenarioTool> tools;
  std::vector<ScenarioFault> faults;
  bool common_startup_link = true;
  bool program_link = true;

  // Windows Server 2003 has no BCD store; its boot entries are in a text file.
  bool HasBootStore() const { return major_version >= 6; }
  // The system's tools that this Windows has.
  std::vector<std::string> Tools() const;
};

// Throws ScenarioError. Relative paths of folders to import start from the folder of `file`.
Scenario ReadScenario(const std::filesystem::path& file);

// Called on the tool's own thread before the tool does its work. The function may let time pass.
using ToolPace = std::function<void(const std::string& tool, ChildProcess& child)>;

// Sets up a new server as the scenario describes it. The backup files are written in the ANSI code
// page of its language. Returns the volumes of the source server, in the order of the disks.
// `history` gets the calls of the tools; it may be null. Throws ScenarioError if a folder cannot be
// imported, or if an object of the scenario conflicts with one of the server: a file in place of a
// folder, or a junction above the server's files.
std::vector<SourceVolume> Build(const Scenario& scenario, Server& server,
                                const ToolPace& pace = nullptr,
                                const std::shared_ptr<ToolHistory>& history = nullptr);

// Call this after a run that was not cancelled. Throws ScenarioError for the first tool call of the
// scenario that the run did not reach. `tool_calls` says how often each tool was started.
void ExpectReached(const Scenario& scenario, const std::map<std::string, int>& tool_calls);

// Likewise, for the tools and the faults of a scenario that was built on this server.
void ExpectReached(const Scenario& scenario, Server& server);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SCENARIO_H_
