#include "ui/dialog.h"

namespace ui {

bool Dialog::Create(HINSTANCE module, int template_id, HWND parent) {
  return ::CreateDialogParamW(module, MAKEINTRESOURCEW(template_id), parent, &Dialog::Procedure,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

// The window keeps its object; WM_INITDIALOG brings it.
INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, lparam);
    reinterpret_cast<Dialog*>(lparam)->window_ = window;
  }
  auto* const dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, DWLP_USER));
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
