// The tool that rebuilds the boot files and the BCD store.
#ifndef SIMULATOR_TOOLS_BCDBOOT_H_
#define SIMULATOR_TOOLS_BCDBOOT_H_

#include <string>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// `arguments` are those after the program's name: "SOURCE /s DRIVE /l LOCALE". Both switches are
// required, in either order. Afterwards the BCD store consists of a boot manager on DRIVE ("c:")
// and one loader: that of the running Windows or, if the store has none, a new one for the Windows
// in the folder SOURCE. The exit code is 1 if the folder or drive does not exist, or if there are
// other arguments; the store then remains unchanged.
ToolResult RunBcdboot(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDBOOT_H_
