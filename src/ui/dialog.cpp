#include "ui/dialog.h"

namespace ui {

bool Dialog::Create(HINSTANCE module, int template_id, HWND parent) {
  return ::CreateDialogParamW(module, MAKEINTRESOURCEW(template_id), parent, &Dialog::Procedure,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

// LPARAM of WM_INITDIALOG is the object; the window stores it.
INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  Dialog* dialog = nullptr;
  if (message == WM_INITDIALOG) {
    dialog = reinterpret_cast<Dialog*>(lparam);
    dialog->window_ = window;
    ::SetWindowLongPtrW(window, DWLP_USER, lparam);
  } else {
    dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, DWLP_USER));
  }
  if (dialog == nullptr) return FALSE;
  const INT_PTR result = dialog->HandleMessage(message, wparam, lparam);
  if (message == WM_NCDESTROY) {
    ::SetWindowLongPtrW(window, DWLP_USER, 0);
    dialog->window_ = nullptr;
    dialog->OnFinalMessage();
  }
  return result;
}

}  // namespace ui
