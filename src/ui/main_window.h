// The tool's only window.
#ifndef UI_MAIN_WINDOW_H_
#define UI_MAIN_WINDOW_H_

#include <windows.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "logger/logger.h"
#include "thread/thread.h"
#include "ui/application_module.h"
#include "ui/dialog.h"
#include "ui/progress_task_bar_helper.h"
#include "ui/resource.h"

namespace ui {

// The progress dialog. It starts the restore run when it is created and shows the messages that the
// run posts (restore/messages.h). At the end of the run it shows the failure or offers a restart,
// and ends the thread's message loop. The object must exist until the run or the process has ended.
class MainWindow : public Dialog {
 public:
  // `module` must outlive the window.
  explicit MainWindow(ApplicationModule& module) : module_(module) {}
  ~MainWindow() override = default;

  [[nodiscard]] bool Create() { return Dialog::Create(module_.resources(), IDD_MAIN, nullptr); }

  INT_PTR HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void OnInitDialog();
  // Opens the log and starts the run on its worker thread. If the thread cannot be created, logs
  // the failure and posts the end of a failed run.
  void StartRestore();
  void OnRunStarted();
  void OnRunEnded(LPARAM run_result);
  void OnProgress(WPARAM kind, LPARAM posted);
  void OnCancel();
  void OnTimer(WPARAM timer);
  void OnDestroy();

  void AppendToLog(const char* text);
  // Shows the stage and the percent in the title, on the bar and on the task bar.
  void SetProgress(const std::string& stage, double percent);
  void UpdateTitle();
  void ShowIcon(HICON icon);
  void StopTimers();

  HWND progress_bar_ = nullptr;
  HWND log_ = nullptr;
  HWND note_ = nullptr;
  std::unique_ptr<ProgressTaskBarHelper> task_bar_;
  std::unique_ptr<logger::Logger> logger_;
  std::unique_ptr<thread::Thread> thread_;
  int32_t is_running_ = 0;  // 1 between the run's start and its end
  std::string title_;       // without the elapsed time
  int32_t seconds_ = 0;     // ticks of the clock timer since the start of the run

  ApplicationModule& module_;
  std::array<HICON, IDI_TURNING_7 - IDI_TURNING_1 + 1> turning_icons_{};
};

}  // namespace ui

#endif  // UI_MAIN_WINDOW_H_
