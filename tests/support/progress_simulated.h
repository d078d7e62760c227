// A dialog that keeps the progress it is told.
#ifndef TESTS_SUPPORT_PROGRESS_SIMULATED_H_
#define TESTS_SUPPORT_PROGRESS_SIMULATED_H_

#include <windows.h>

#include <vector>

namespace simulator {
class Desktop;
class Server;
}  // namespace simulator

namespace tests {

// The dialog of the run as long as it stands.
class ProgressDialog {
 public:
  explicit ProgressDialog(simulator::Server& server);
  ~ProgressDialog();
  ProgressDialog(const ProgressDialog&) = delete;
  ProgressDialog& operator=(const ProgressDialog&) = delete;

  // The percents told since the last time.
  std::vector<double> Take();

 private:
  simulator::Desktop& desktop_;
  const HWND window_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PROGRESS_SIMULATED_H_
