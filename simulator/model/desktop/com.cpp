#include "simulator/model/desktop/com.h"

namespace simulator {

int Com::Uses() const {
  const std::lock_guard lock(mutex_);
  return uses_;
}

int Com::SurplusUninitializations() const {
  const std::lock_guard lock(mutex_);
  return surplus_uninitializations_;
}

int Com::LiveTaskbarLists() const {
  const std::lock_guard lock(mutex_);
  return live_taskbar_lists_;
}

TaskbarProgress Com::TaskbarProgressOf(HWND window) const {
  const std::lock_guard lock(mutex_);
  const auto found = taskbar_.find(window);
  return found != taskbar_.end() ? found->second : TaskbarProgress();
}

HRESULT Com::Initialize(int* uses) {
  const std::lock_guard lock(mutex_);
  ++uses_;
  return (*uses)++ == 0 ? S_OK : S_FALSE;
}

void Com::Uninitialize(int* uses) {
  const std::lock_guard lock(mutex_);
  if (*uses == 0) {
    ++surplus_uninitializations_;
    return;
  }
  --*uses;
  --uses_;
}

void Com::CountTaskbarLists(int by) {
  const std::lock_guard lock(mutex_);
  live_taskbar_lists_ += by;
}

void Com::SetTaskbarValue(HWND window, ULONGLONG completed, ULONGLONG total) {
  const std::lock_guard lock(mutex_);
  TaskbarProgress& progress = taskbar_[window];
  progress.completed = completed;
  progress.total = total;
  // A value shows: only an error or a pause keeps its colour.
  if (progress.state != TBPF_ERROR && progress.state != TBPF_PAUSED) progress.state = TBPF_NORMAL;
}

void Com::SetTaskbarState(HWND window, TBPFLAG state) {
  const std::lock_guard lock(mutex_);
  taskbar_[window].state = state;
}

void Com::Renew() {
  const std::lock_guard lock(mutex_);
  uses_ = 0;
  surplus_uninitializations_ = 0;
  live_taskbar_lists_ = 0;
}

}  // namespace simulator
