// The boot configuration tool: lists the machine's boot store, saves it, puts it back, and deletes
// entries.
//
// It knows the command lines below. To every other one, whatever the real
// tool makes of it, it answers as to a wrong one. The texts but for the listing are English
// whatever the system's language.
#ifndef SIMULATOR_TOOLS_BCDEDIT_H_
#define SIMULATOR_TOOLS_BCDEDIT_H_

#include <string>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// No arguments, "/export FILE", "/import FILE" or "/delete ID", the arguments behind the program.
// The ID is a GUID in braces, {current}, {default}, or a well-known name such as {bootmgr}; entries
// of such a name are not deleted. References to an entry go with it. Exit code 0, or 1 with the
// reason in the error output; what failed has left the store as it was.
ToolResult RunBcdedit(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDEDIT_H_
