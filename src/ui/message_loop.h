// The message loop of a thread.
#ifndef UI_MESSAGE_LOOP_H_
#define UI_MESSAGE_LOOP_H_

#include <windows.h>

namespace ui {

// One thread.
class MessageLoop {
 public:
  // The dialog whose keys are handled: Tab, Enter, Escape. Null for none.
  void SetDialog(HWND dialog) { dialog_ = dialog; }

  // Takes and dispatches messages until WM_QUIT, whose code it returns.
  int Run();

 private:
  HWND dialog_ = nullptr;
};

}  // namespace ui

#endif  // UI_MESSAGE_LOOP_H_
