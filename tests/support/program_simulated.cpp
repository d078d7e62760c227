#include "support/program_simulated.h"

#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/processes/processes.h"

namespace tests {

ProgramTest::ProgramTest() {
  server_.processes().Install(
      "diskpart", [](simulator::Server&, simulator::ChildProcess&) -> DWORD { return 0; });
}

void ProgramTest::HoldTheRun(const std::string& tool) {
  is_to_be_held_ = true;
  server_.processes().Install(tool,
                              [this](simulator::Server&, simulator::ChildProcess& child) -> DWORD {
                                // More than a pipe holds: behind it the program reads, and has
                                // listed the child.
                                child.WriteOutput(std::string(5000, 'x'));
                                is_held_ = true;
                                is_held_.notify_all();
                                child.WaitUntilTerminated();
                                return 0;
                              });
}

void ProgramTest::Post(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
  ASSERT_EQ(server_.desktop().Post(dialog, {message, wparam, lparam}), DWORD{ERROR_SUCCESS});
  Rest(dialog);
}

simulator::ShownDialog ProgramTest::Dialog() const {
  const std::vector<simulator::ShownDialog> dialogs = server_.dialogs().All();
  EXPECT_EQ(dialogs.size(), 1U);
  return dialogs.empty() ? simulator::ShownDialog() : dialogs.back();
}

simulator::TaskbarProgress ProgramTest::TaskBar() const {
  return server_.com().TaskbarProgressOf(Dialog().window);
}

}  // namespace tests
