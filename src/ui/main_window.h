// The tool's only window.
#ifndef UI_MAIN_WINDOW_H_
#define UI_MAIN_WINDOW_H_

#include <windows.h>

#include <memory>

#include "logger/logger.h"
#include "thread/thread.h"

namespace ui {

class MainWindow {
 public:
  explicit MainWindow(HWND window);

  // Opens the log and starts the restore run on its worker thread, which posts to the window.
  // Logger and thread object are this object's: it must live until the run has ended. A thread that
  // cannot be made is logged and shows to the window as a run that has failed.
  void StartRestore();

 private:
  const HWND window_;
  std::unique_ptr<logger::Logger> logger_;
  std::unique_ptr<thread::Thread> thread_;
};

}  // namespace ui

#endif  // UI_MAIN_WINDOW_H_
