// The message loop of a thread.
#ifndef UI_MESSAGE_LOOP_H_
#define UI_MESSAGE_LOOP_H_

#include <windows.h>

namespace ui {

// Used on one thread only.
class MessageLoop {
 public:
  // Sets the dialog whose keys (Tab, Enter, Esc) are handled; null for none.
  void SetDialog(HWND dialog) { dialog_ = dialog; }

  // Dispatches messages until WM_QUIT and returns its exit code.
  int Run();

 private:
  HWND dialog_ = nullptr;
};

}  // namespace ui

#endif  // UI_MESSAGE_LOOP_H_
