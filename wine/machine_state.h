// The system's tools' data on a Wine prefix that represents a server, kept between their runs in a
// JSON file of the prefix.
#ifndef WINE_MACHINE_STATE_H_
#define WINE_MACHINE_STATE_H_

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/server.h"
#include "simulator/tools/tools.h"

namespace simulator {

struct Volume;

// The file's name in the prefix's Windows folder.
inline constexpr char kMachineStateFile[] = "migrated_server.json";

// The Win32 event that a tool creates when it waits to be terminated.
inline constexpr char kToolIsHeldEvent[] = "simulated_tool_is_held";

// A call of a tool that does nothing except print `output` and end with `exit_code`.
struct ToolAnswer {
  std::string name;
  int call = 1;  // counted from 1
  DWORD exit_code = 0;
  std::string output;
  bool is_held = false;  // does not end by itself
  friend bool operator==(const ToolAnswer&, const ToolAnswer&) = default;
};

struct MachineState {
  System system;  // versions, language and name; the prefix determines paths
  std::vector<Disk> disks;
  // Upper case. Drives without a medium are among them; they are on no disk and have no target.
  std::map<char, std::shared_ptr<Volume>> letters;
  std::map<const Volume*, std::string>
      targets;  // the target of a drive for the volume, see WinePrefix
  Boot boot;
  std::vector<ToolAnswer> answers;
  std::map<std::string, int> calls;  // so far, by the tool's name
  std::vector<ToolCall> history;     // those that have ended

  std::optional<char> LetterOf(const Volume& volume) const;
};

std::string MachineStateText(const MachineState& state);

// Returns nothing if MachineStateText cannot have written the text.
std::optional<MachineState> ParseMachineState(std::string_view text);

}  // namespace simulator

#endif  // WINE_MACHINE_STATE_H_
