// The whole program on a simulated desktop, from its entry point to its exit, with a simulated
// user.
#ifndef TESTS_SUPPORT_PROGRAM_SIMULATED_H_
#define TESTS_SUPPORT_PROGRAM_SIMULATED_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "restore/messages.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/lost_messages_simulated.h"
#include "support/process.h"

namespace simulator {
struct ShownDialog;
struct TaskbarProgress;
}  // namespace simulator

namespace tests {

// Uses a server with nothing to restore, on which a run succeeds at once.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override { ReleaseLost(server_); }

  // Makes a tool wait until it is terminated, so that the run continues. RunWith waits until the
  // run has reached this tool.
  void HoldTheRun(const std::string& tool = "bcdedit");

  // Runs the program and returns its exit code.
  int Run() {
    return server_.own_process().Run(
        [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  }

  // Runs the program and returns its exit code. Calls `user` on another thread once the program
  // shows its dialog and the dialog is idle.
  int RunWith(const std::function<void(HWND dialog)>& user) {
    std::thread person([&] {
      const HWND dialog = server_.dialogs().WaitForDialog();
      if (is_to_be_held_) is_held_.wait(false);
      Rest(dialog);
      user(dialog);
    });
    const int exit_code = Run();
    person.join();
    return exit_code;
  }

  // Waits until all messages posted so far have been handled.
  void Rest(HWND dialog) { server_.dialogs().WaitUntilIdle(dialog); }

  void Cancel(HWND dialog) { server_.dialogs().Click(dialog, IDCANCEL); }

  // Posts a message as the run does, and waits until it has been handled.
  void Post(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);
  void PostState(HWND dialog, restore::RestoreState state, LPARAM result = 0) {
    Post(dialog, restore::WM_RESTORE_STATE, static_cast<WPARAM>(state), result);
  }
  void PostPercent(HWND dialog, double percent) {
    auto record = std::make_unique<restore::ProgressRecord>(
        restore::ProgressRecord{"a stage that is not shown", percent});
    Post(dialog, restore::WM_RESTORE_PROGRESS,
         static_cast<WPARAM>(restore::RestoreProgress::kPercent),
         reinterpret_cast<LPARAM>(record.release()));
  }
  void PostLine(HWND dialog, const std::string& text) {
    auto line = std::make_unique<restore::LogLine>();
    text.copy(line->text, sizeof(line->text) - 1);
    Post(dialog, restore::WM_RESTORE_PROGRESS,
         static_cast<WPARAM>(restore::RestoreProgress::kLogLine),
         reinterpret_cast<LPARAM>(line.release()));
  }

  // Returns the dialog in its current or last state.
  simulator::ShownDialog Dialog() const;
  simulator::TaskbarProgress TaskBar() const;

  const NewProcess process_;
  bool is_to_be_held_ = false;
  std::atomic<bool> is_held_ = false;
  mutable simulator::Server server_;
  BootTools boot_tools_{server_};
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PROGRAM_SIMULATED_H_
