// The tool that sets up the boot files anew, and with them the boot store.
#ifndef SIMULATOR_TOOLS_BCDBOOT_H_
#define SIMULATOR_TOOLS_BCDBOOT_H_

#include <string>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// "SOURCE /s DRIVE /l LOCALE", the arguments behind the program; both switches are needed, in
// either order. The store becomes a boot manager on DRIVE ("c:") and one loader: that of the
// running Windows or, when the store has none, a new one for the Windows in the folder SOURCE. Exit
// code 1 when there is no such folder or drive, or for other arguments; the store stays as it was.
ToolResult RunBcdboot(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDBOOT_H_
