// The boot configuration tool: lists the machine's BCD store, exports and imports it, and deletes
// entries.
//
// The tool supports the command lines below. It answers every other one as an invalid command line,
// even one that the real tool supports. Apart from the listing, its texts are English whatever the
// system's language.
#ifndef SIMULATOR_TOOLS_BCDEDIT_H_
#define SIMULATOR_TOOLS_BCDEDIT_H_

#include <string>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// `arguments` are those after the program's name: none, "/export FILE", "/import FILE" or "/delete
// ID". The ID is a GUID in braces, {current}, {default}, or a well-known name such as {bootmgr}.
// Entries with a well-known name are not deleted. References to a deleted entry are removed. The
// exit code is 0, or 1 with the reason in the error output. A failed command leaves the store
// unchanged.
ToolResult RunBcdedit(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDEDIT_H_
