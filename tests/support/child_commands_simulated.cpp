#include <string>
#include <vector>

#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/child_commands.h"

namespace tests {
namespace {

// Arguments: the interpreter, "/c", the command and its own.
DWORD RunCommand(simulator::Server&, simulator::ChildProcess& child) {
  const std::vector<std::string> arguments = child.Arguments();
  const std::string command = arguments.size() > 2 ? arguments[2] : "";
  if (command == "exit") return static_cast<DWORD>(std::stoi(arguments.at(3)));
  if (command == "echo") child.WriteOutput(arguments.at(3) + "\r\n");
  if (command == "for") child.WaitUntilTerminated();
  return 0;
}

}  // namespace

void InstallChildCommands() { simulator::Server::Current().processes().Install("cmd", RunCommand); }

}  // namespace tests
