// A dialog that keeps the progress it is told.
#ifndef TESTS_SUPPORT_SIMULATED_PROGRESS_H_
#define TESTS_SUPPORT_SIMULATED_PROGRESS_H_

#include <memory>
#include <vector>

#include "restore/messages.h"
#include "simulator/model/server.h"

namespace tests {

// The dialog of the run as long as it stands.
class ProgressDialog {
 public:
  explicit ProgressDialog(simulator::Server& server)
      : desktop_(server.desktop()), window_(desktop_.CreateWindow()) {
    restore::SetDialog(window_);
  }
  ~ProgressDialog() {
    restore::SetDialog(nullptr);
    Take();
  }
  ProgressDialog(const ProgressDialog&) = delete;
  ProgressDialog& operator=(const ProgressDialog&) = delete;

  // The percents told since the last time.
  std::vector<double> Take() {
    std::vector<double> percents;
    while (const auto posted = desktop_.Take(window_)) {
      if (posted->message == restore::WM_RESTORE_PROGRESS && posted->wparam == 2) {
        percents.push_back(
            reinterpret_cast<const restore::ProgressRecord*>(posted->lparam)->percent);
      }
      restore::ReleasePosted(posted->wparam, posted->lparam);
    }
    return percents;
  }

 private:
  simulator::Desktop& desktop_;
  const HWND window_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_PROGRESS_H_
