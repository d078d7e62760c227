// The dialog's state that is kept until the process ends.
#ifndef UI_PROCESS_STATE_H_
#define UI_PROCESS_STATE_H_

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "ui/progress_title.h"

namespace ui {

class ProcessState {
 public:
  static ProcessState& Instance();

  // The stage shown with progress reports, string table entry 117. Loaded by the first call, in the
  // language of the calling thread. Any thread.
  std::string ProgressStage();

  // Returns true if the taskbar shows progress: Windows 7 and later. Queried once. Any thread.
  bool HasTaskBarProgress();

  // The index of the icon to show next. The dialog's thread only.
  int32_t& icon_index() { return icon_index_; }

  // Resets the state to that of a new process. For tests.
  void Forget();

 private:
  std::mutex mutex_;
  std::optional<std::string> progress_stage_;
  std::optional<bool> has_task_bar_progress_;
  int32_t icon_index_ = kFirstIcon;
};

}  // namespace ui

#endif  // UI_PROCESS_STATE_H_
