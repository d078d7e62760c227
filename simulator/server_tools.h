// The system's tools on a server in memory: as programs that the server can start, and as
// functions.
#ifndef SIMULATOR_SERVER_TOOLS_H_
#define SIMULATOR_SERVER_TOOLS_H_

#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/processes/processes.h"
#include "simulator/tools/tools.h"

namespace simulator {

class Server;

Program DiskpartProgram();
Program BcdeditProgram();
Program BcdbootProgram();

ToolResult RunDiskpartScript(std::string_view script, Server& server);
ToolResult RunBcdedit(const std::vector<std::string>& arguments, Server& server);
ToolResult RunBcdboot(const std::vector<std::string>& arguments, Server& server);

}  // namespace simulator

#endif  // SIMULATOR_SERVER_TOOLS_H_
