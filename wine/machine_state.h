// What the tools of the system know of a Wine prefix that stands for a server, kept between their
// runs in a file of the prefix. JSON.
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

namespace simulator {

struct Volume;

// Where it lies below the prefix's folder windows.
inline constexpr char kMachineStateFile[] = "migrated_server.json";

// A tool that waits to be terminated makes this event of Win32's.
inline constexpr char kToolIsHeldEvent[] = "simulated_tool_is_held";

// A call of a tool that prints `output`, ends with `exit_code` and does nothing else.
struct ToolAnswer {
  std::string name;
  int call = 1;  // counted from 1
  DWORD exit_code = 0;
  std::string output;
  bool is_held = false;  // does not end by itself
  friend bool operator==(const ToolAnswer&, const ToolAnswer&) = default;
};

struct MachineState {
  System system;  // versions, language and name; paths are the prefix's own matter
  std::vector<Disk> disks;
  std::map<char, std::shared_ptr<Volume>> letters;  // upper case
  std::map<const Volume*, std::string>
      targets;  // what a drive of the volume leads to, see WinePrefix
  Boot boot;
  std::vector<ToolAnswer> answers;
  std::map<std::string, int> calls;  // so far, by the tool's name

  std::optional<char> LetterOf(const Volume& volume) const;
};

std::string MachineStateText(const MachineState& state);

// Nothing for text that MachineStateText does not write.
std::optional<MachineState> ParseMachineState(std::string_view text);

}  // namespace simulator

#endif  // WINE_MACHINE_STATE_H_
