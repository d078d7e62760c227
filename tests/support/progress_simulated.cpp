#include "support/progress_simulated.h"

#include "restore/messages.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/server.h"

namespace tests {

ProgressDialog::ProgressDialog(simulator::Server& server)
    : desktop_(server.desktop()), window_(desktop_.CreateWindow()) {
  restore::SetDialog(window_);
}

ProgressDialog::~ProgressDialog() {
  restore::SetDialog(nullptr);
  Take();
}

std::vector<double> ProgressDialog::Take() {
  std::vector<double> percents;
  while (const auto posted = desktop_.Take(window_)) {
    if (posted->message == restore::WM_RESTORE_PROGRESS && posted->wparam == 2) {
      percents.push_back(reinterpret_cast<const restore::ProgressRecord*>(posted->lparam)->percent);
    }
    restore::ReleasePosted(posted->wparam, posted->lparam);
  }
  return percents;
}

}  // namespace tests
