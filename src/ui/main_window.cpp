#include "ui/main_window.h"

#include "common/product.h"
#include "logger/b_logger.h"
#include "restore/messages.h"
#include "restore/run.h"
#include "thread/b_thread.h"

namespace ui {

MainWindow::MainWindow(HWND window) : window_(window) {}

void MainWindow::StartRestore() {
  logger_ = std::make_unique<logger::BLogger>(common::kLogName, "");
  logger_->Info("========= %s %s. =========", common::kToolTitle, common::kToolVersion);
  logger_->Info("Vantoro Restore Begin");

  thread_ = std::make_unique<thread::BThread>();
  auto start = std::make_unique<restore::RunStart>(restore::RunStart{window_, logger_.get()});
  if (thread_->Start(&restore::RestoreThreadProc, start.get())) {
    static_cast<void>(start.release());  // the thread's now
  } else {
    logger_->Error("Vantoro Restore Thread Start Failed.");
    ::PostMessageW(window_, restore::WM_RESTORE_STATE,
                   static_cast<WPARAM>(restore::RestoreState::kEnded), 1);
  }
}

}  // namespace ui
