#include "ui/progress_task_bar_helper.h"

#include "ui/process_state.h"

namespace ui {

ProgressTaskBarHelper::~ProgressTaskBarHelper() {
  if (task_bar_ != nullptr) task_bar_->Release();
}

bool ProgressTaskBarHelper::Initialize() {
  if (!ProcessState::Instance().HasTaskBarProgress()) return false;
  void* task_bar = nullptr;
  if (FAILED(::CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                                &task_bar))) {
    return false;
  }
  task_bar_ = static_cast<ITaskbarList3*>(task_bar);
  is_initialized_ = true;
  return true;
}

void ProgressTaskBarHelper::SetState(TBPFLAG state) {
  if (is_initialized_ && task_bar_ != nullptr) task_bar_->SetProgressState(window_, state);
}

void ProgressTaskBarHelper::SetValue(uint64_t completed, uint64_t total) {
  if (is_initialized_ && task_bar_ != nullptr) {
    task_bar_->SetProgressValue(window_, completed, total);
  }
}

}  // namespace ui
