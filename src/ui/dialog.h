// Modeless dialogs created from templates.
#ifndef UI_DIALOG_H_
#define UI_DIALOG_H_

#include <windows.h>

namespace ui {

// All members are called on the thread that creates the dialog. The object must outlive the window.
class Dialog {
 public:
  Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // Returns the result of the dialog procedure: FALSE leaves the message to the system. Called from
  // WM_INITDIALOG on, when window() is set; the system handles the few messages before it.
  // https://learn.microsoft.com/windows/win32/api/winuser/nc-winuser-dlgproc
  virtual INT_PTR HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) = 0;

  virtual ~Dialog() = default;

  // Called when the window has been destroyed; no message follows.
  virtual void OnFinalMessage() {}

  // Returns false if there is no such template or the window cannot be created.
  [[nodiscard]] bool Create(HINSTANCE module, int template_id, HWND parent);

  // Null if there is no window.
  HWND window() const { return window_; }

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  HWND window_ = nullptr;
};

}  // namespace ui

#endif  // UI_DIALOG_H_
