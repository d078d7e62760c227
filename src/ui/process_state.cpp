#include "ui/process_state.h"

#include <windows.h>

#include "ui/resource.h"
#include "ui/show_message.h"

namespace ui {
namespace {

bool IsWindows7OrLater() {
  OSVERSIONINFOEXA version{};
  version.dwOSVersionInfoSize = sizeof(version);
  return ::GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version)) &&
         (version.dwMajorVersion > 6 ||
          (version.dwMajorVersion == 6 && version.dwMinorVersion != 0));
}

}  // namespace

ProcessState& ProcessState::Instance() {
  static ProcessState state;
  return state;
}

std::string ProcessState::ProgressStage() {
  const std::lock_guard lock(mutex_);
  if (!progress_stage_) progress_stage_ = LoadResString(IDS_PROGRESS);
  return *progress_stage_;
}

bool ProcessState::HasTaskBarProgress() {
  const std::lock_guard lock(mutex_);
  if (!has_task_bar_progress_) has_task_bar_progress_ = IsWindows7OrLater();
  return *has_task_bar_progress_;
}

void ProcessState::Forget() {
  const std::lock_guard lock(mutex_);
  progress_stage_.reset();
  has_task_bar_progress_.reset();
  icon_index_ = kFirstIcon;
}

}  // namespace ui
