// A dialog that records the progress messages that it receives.
#ifndef TESTS_SUPPORT_PROGRESS_SIMULATED_H_
#define TESTS_SUPPORT_PROGRESS_SIMULATED_H_

#include <windows.h>

#include <vector>

namespace simulator {
class Desktop;
class Server;
}  // namespace simulator

namespace tests {

// Is the dialog of the run while it exists.
class ProgressDialog {
 public:
  explicit ProgressDialog(simulator::Server& server);
  ~ProgressDialog();
  ProgressDialog(const ProgressDialog&) = delete;
  ProgressDialog& operator=(const ProgressDialog&) = delete;

  // Returns the percentages received since the last call.
  std::vector<double> Take();

 private:
  simulator::Desktop& desktop_;
  const HWND window_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PROGRESS_SIMULATED_H_
