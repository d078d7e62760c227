#include "ui/process_state.h"

#include <windows.h>

#include "common/windows_version.h"
#include "ui/resource.h"
#include "ui/show_message.h"

namespace ui {
namespace {

bool IsWindows7OrLater() {
  OSVERSIONINFOEXA version{};
  return common::GetWindowsVersion(version) &&
         (version.dwMajorVersion > 6 ||
          (version.dwMajorVersion == 6 && version.dwMinorVersion != 0));
}

}  // namespace

std::string ProcessState::ProgressStage() {
  const locker::LockScope lock(locker_);
  if (!progress_stage_) progress_stage_ = LoadResString(IDS_PROGRESS);
  return *progress_stage_;
}

bool ProcessState::HasTaskBarProgress() {
  const locker::LockScope lock(locker_);
  if (!has_task_bar_progress_) has_task_bar_progress_ = IsWindows7OrLater();
  return *has_task_bar_progress_;
}

}  // namespace ui
