// A tool that replaces the system's, for tests of command execution.
#ifndef TESTS_SUPPORT_SIMULATED_COMMAND_H_
#define TESTS_SUPPORT_SIMULATED_COMMAND_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/win/child_process_list.h"
#include "common/win/win_util.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_events.h"

namespace tests {

class SimulatedCommandTest : public testing::Test {
 protected:
  SimulatedCommandTest() {
    tools_.SetLogger(&logger_);
    known_children_ = Children().size();
  }

  static std::vector<HANDLE> Children() {
    std::vector<HANDLE> children;
    common::win::ChildProcessList::Instance().ForEach(
        [&](HANDLE child) { children.push_back(child); });
    return children;
  }
  size_t NewChildren() const { return Children().size() - known_children_; }

  DWORD Run(const std::string& command_line) {
    return tools_.ExecCommandWithResults("", command_line, output_);
  }

  // Installs a tool that writes `output` in one piece and ends with `exit_code`.
  void Install(const std::string& output, DWORD exit_code = 0) {
    server_.processes().Install("tool", [=](simulator::Server&, simulator::ChildProcess& child) {
      child.WriteOutput(output);
      return exit_code;
    });
  }

  simulator::Server server_;
  EventLogger logger_{server_};
  common::win::WinUtil tools_{"", "", ""};
  std::string output_ = "before";
  size_t known_children_ = 0;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_COMMAND_H_
