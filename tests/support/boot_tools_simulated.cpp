#include "support/boot_tools_simulated.h"

#include "simulator/model/processes/processes.h"

namespace tests {

BootTools::BootTools(simulator::Server& server) {
  List(
      "default  {current}\r\nlocale  en-US\r\ndisplayorder  {current}\r\n"
      "toolsdisplayorder  {memdiag}\r\n");
  for (const char* const name : {"bcdedit", "bcdboot"}) {
    server.processes().Install(
        name, [replies = replies_](simulator::Server&, simulator::ChildProcess& child) -> DWORD {
          const auto found = replies->find(child.CommandLine());
          if (found == replies->end()) return 0;
          child.WriteOutput(found->second.output);
          return found->second.exit_code;
        });
  }
}

}  // namespace tests
