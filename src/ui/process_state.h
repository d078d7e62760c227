// What the dialog remembers for the life of the process.
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

  // The stage that progress reports show, string table entry 117. Loaded at the first call, in the
  // language of its thread. Any thread.
  std::string ProgressStage();

  // Whether the task bar shows progress: from Windows 7 on. Asked once. Any thread.
  bool HasTaskBarProgress();

  // The icon to show next. The dialog's thread.
  int32_t& icon_index() { return icon_index_; }

  // As in a process that has just started. For tests.
  void Forget();

 private:
  std::mutex mutex_;
  std::optional<std::string> progress_stage_;
  std::optional<bool> has_task_bar_progress_;
  int32_t icon_index_ = kFirstIcon;
};

}  // namespace ui

#endif  // UI_PROCESS_STATE_H_
