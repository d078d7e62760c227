// Modeless dialogs made from templates.
#ifndef UI_DIALOG_H_
#define UI_DIALOG_H_

#include <windows.h>

namespace ui {

// Everything happens on the thread that creates the dialog. The object must outlive the window.
class Dialog {
 public:
  Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // What the dialog procedure returns: FALSE leaves the message to the system. The window is known
  // from WM_INITDIALOG on; the few messages before it do not come here.
  // https://learn.microsoft.com/windows/win32/api/winuser/nc-winuser-dlgproc
  virtual INT_PTR HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) = 0;

  virtual ~Dialog() = default;

  // The window is gone, and no message will follow.
  virtual void OnFinalMessage() {}

  // False when there is no such template or the window cannot be made.
  [[nodiscard]] bool Create(HINSTANCE module, int template_id, HWND parent);

  // Null when there is no window.
  HWND window() const { return window_; }

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  HWND window_ = nullptr;
};

}  // namespace ui

#endif  // UI_DIALOG_H_
