// Progress on the window's taskbar button.
#ifndef UI_PROGRESS_TASK_BAR_HELPER_H_
#define UI_PROGRESS_TASK_BAR_HELPER_H_

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include <cstdint>

namespace ui {

// Used on the dialog's thread, on which COM is initialized.
// https://learn.microsoft.com/windows/win32/api/shobjidl_core/nn-shobjidl_core-itaskbarlist3
class ProgressTaskBarHelper {
 public:
  explicit ProgressTaskBarHelper(HWND window) : window_(window) {}
  ProgressTaskBarHelper(const ProgressTaskBarHelper&) = delete;
  ProgressTaskBarHelper& operator=(const ProgressTaskBarHelper&) = delete;
  virtual ~ProgressTaskBarHelper();

  // Returns false if the taskbar does not show progress. Until it has returned true, the other
  // functions do nothing.
  [[nodiscard]] bool Initialize();

  void SetState(TBPFLAG state);
  void SetValue(uint64_t completed, uint64_t total);

 private:
  const HWND window_;
  bool is_initialized_ = false;
  ITaskbarList3* task_bar_ = nullptr;
};

}  // namespace ui

#endif  // UI_PROGRESS_TASK_BAR_HELPER_H_
