#include "ui/progress_task_bar_helper.h"

namespace ui {

bool ProgressTaskBarHelper::Initialize() {
  if (!state_.HasTaskBarProgress()) return false;
  void* task_bar = nullptr;
  if (FAILED(::CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                                &task_bar))) {
    return false;
  }
  task_bar_.reset(static_cast<ITaskbarList3*>(task_bar));
  return true;
}

void ProgressTaskBarHelper::SetState(TBPFLAG state) {
  if (task_bar_) task_bar_.get()->SetProgressState(window_, state);
}

void ProgressTaskBarHelper::SetValue(uint64_t completed, uint64_t total) {
  if (task_bar_) task_bar_.get()->SetProgressValue(window_, completed, total);
}

}  // namespace ui
