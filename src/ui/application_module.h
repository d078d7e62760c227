// The state that the program's windows share: their resource module and their message loop.
#ifndef UI_APPLICATION_MODULE_H_
#define UI_APPLICATION_MODULE_H_

#include <windows.h>

#include "ui/message_loop.h"
#include "ui/process_state.h"

namespace ui {

// Empty before Init and after Term. Used on the thread of the windows only.
class ApplicationModule {
 public:
  // `resources` is the module that dialogs and icons are loaded from.
  void Init(HINSTANCE resources) { resources_ = resources; }
  void Term() {
    resources_ = nullptr;
    message_loop_ = nullptr;
  }

  HINSTANCE resources() const { return resources_; }

  // The thread's message loop, not owned; null if there is none.
  void AddMessageLoop(MessageLoop* loop) { message_loop_ = loop; }
  void RemoveMessageLoop() { message_loop_ = nullptr; }
  MessageLoop* message_loop() const { return message_loop_; }

  // Kept for the life of the module, which is that of the process.
  ProcessState& state() { return state_; }

 private:
  HINSTANCE resources_ = nullptr;
  MessageLoop* message_loop_ = nullptr;
  ProcessState state_;
};

}  // namespace ui

#endif  // UI_APPLICATION_MODULE_H_
