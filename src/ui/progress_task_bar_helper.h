// Progress on the window's taskbar button.
#ifndef UI_PROGRESS_TASK_BAR_HELPER_H_
#define UI_PROGRESS_TASK_BAR_HELPER_H_

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include <cstdint>

#include "common/owner.h"
#include "ui/process_state.h"

namespace ui {

// Used on the dialog's thread, on which COM is initialized.
// https://learn.microsoft.com/windows/win32/api/shobjidl_core/nn-shobjidl_core-itaskbarlist3
class ProgressTaskBarHelper {
 public:
  // `state` outlives the helper.
  ProgressTaskBarHelper(HWND window, ProcessState& state) : window_(window), state_(state) {}
  ProgressTaskBarHelper(const ProgressTaskBarHelper&) = delete;
  ProgressTaskBarHelper& operator=(const ProgressTaskBarHelper&) = delete;
  virtual ~ProgressTaskBarHelper() = default;

  // Returns false if the taskbar does not show progress. Until it has returned true, the other
  // functions do nothing.
  [[nodiscard]] bool Initialize();

  void SetState(TBPFLAG state);
  void SetValue(uint64_t completed, uint64_t total);

 private:
  const HWND window_;
  ProcessState& state_;
  common::UniqueCom<ITaskbarList3> task_bar_;  // empty until Initialize has returned true
};

}  // namespace ui

#endif  // UI_PROGRESS_TASK_BAR_HELPER_H_
