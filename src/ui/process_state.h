// The dialog's state that is kept until the process ends.
#ifndef UI_PROCESS_STATE_H_
#define UI_PROCESS_STATE_H_

#include <cstdint>
#include <optional>
#include <string>

#include "locker/b_locker.h"
#include "ui/progress_title.h"

namespace ui {

class ProcessState {
 public:
  // The stage shown with progress reports, string table entry 117. Loaded by the first call, in the
  // language of the calling thread. Any thread.
  std::string ProgressStage();

  // Returns true if the taskbar shows progress: Windows 7 and later. Queried once. Any thread.
  bool HasTaskBarProgress();

  // The index of the icon to show next. The dialog's thread only.
  int32_t& icon_index() { return icon_index_; }

 private:
  locker::BLocker locker_;
  std::optional<std::string> progress_stage_;
  std::optional<bool> has_task_bar_progress_;
  int32_t icon_index_ = kFirstIcon;
};

}  // namespace ui

#endif  // UI_PROCESS_STATE_H_
