// The boot configuration tool: lists the server's boot store, saves it, puts it back, and deletes
// entries.
//
// It knows the command lines of BcdeditProgram's comment. To every other one, whatever the real
// tool makes of it, it answers as to a wrong one. The texts but for the listing are English
// whatever the server's language.
#ifndef SIMULATOR_TOOLS_BCDEDIT_H_
#define SIMULATOR_TOOLS_BCDEDIT_H_

#include <string>
#include <vector>

#include "simulator/model/processes.h"
#include "simulator/tools/tool_result.h"

namespace simulator {

class Server;

// The arguments do not begin with the program. Exit code 0, or 1 with the reason in the error
// output; what failed has left the store as it was.
ToolResult RunBcdedit(const std::vector<std::string>& arguments, Server& server);

// "bcdedit", "bcdedit /export FILE", "bcdedit /import FILE" and "bcdedit /delete ID" as a program.
// The ID is a GUID in braces, {current}, {default}, or a well-known name such as {bootmgr}; entries
// of such a name are not deleted. References to an entry go with it.
Program BcdeditProgram();

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDEDIT_H_
