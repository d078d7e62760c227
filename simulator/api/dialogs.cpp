// Dialogs: their making and their end, their controls and what the program keeps with them.
#include "simulator/model/desktop/dialogs.h"

#include <windows.h>

#include <optional>
#include <utility>

#include "simulator/api/call.h"
#include "simulator/api/resource_language.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialog_template.h"

using simulator::Call;
using simulator::Control;
using simulator::Desktop;
using simulator::Dialog;
using simulator::UnsupportedCall;

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR template_name, HWND parent,
                               DLGPROC procedure, LPARAM parameter) {
  const WORD id = LOWORD(reinterpret_cast<ULONG_PTR>(template_name));
  if (MAKEINTRESOURCEW(id) != template_name) UnsupportedCall("CreateDialogParamW by name");
  if (parent != nullptr) UnsupportedCall("CreateDialogParamW with a parent");
  if (procedure == nullptr) UnsupportedCall("CreateDialogParamW without a procedure");
  const Call call("CreateDialogParamW", static_cast<const void*>(instance), DWORD{id}, nullptr);
  if (call.fails()) return nullptr;
  Desktop& desktop = call.server().desktop();
  simulator::DialogTemplate source;
  const DWORD error = desktop.FindDialog(simulator::ResourceLanguage(call.server()), id, &source);
  if (error != ERROR_SUCCESS) return call.Fail(HWND{nullptr}, error);
  const HWND dialog = simulator::MakeDialog(desktop, id, source, procedure, parameter);
  if (dialog == nullptr) return call.Fail(dialog, ERROR_INVALID_WINDOW_HANDLE);
  return call.Succeed(dialog);
}

BOOL WINAPI DestroyWindow(HWND window) {
  const Call call("DestroyWindow", static_cast<const void*>(window));
  if (call.fails()) return FALSE;
  Desktop& desktop = call.server().desktop();
  if (!desktop.dialogs().Has(window)) return call.Done(ERROR_INVALID_WINDOW_HANDLE);
  if (!desktop.dialogs().IsOfThisThread(window)) return call.Done(ERROR_ACCESS_DENIED);
  desktop.dialogs().Visit(window, [](Dialog& dialog, Control* control) {
    if (control != nullptr) UnsupportedCall("DestroyWindow of a control");
    if (std::exchange(dialog.dying, true)) UnsupportedCall("DestroyWindow within DestroyWindow");
    return DWORD{ERROR_SUCCESS};
  });
  simulator::DestroyDialog(desktop, window);
  return call.Done(ERROR_SUCCESS);
}

HWND WINAPI GetDlgItem(HWND dialog, int id) {
  const Call call("GetDlgItem", static_cast<const void*>(dialog), id);
  if (call.fails()) return nullptr;
  HWND item = nullptr;
  const DWORD error =
      call.server().dialogs().Visit(dialog, [&item, id](Dialog& found, Control* parent) {
        const Control* const control = parent == nullptr ? found.Find(id) : nullptr;
        if (control == nullptr) return DWORD{ERROR_CONTROL_ID_NOT_FOUND};
        item = control->shown.window;
        return DWORD{ERROR_SUCCESS};
      });
  call.Done(error);
  return item;
}

int WINAPI GetDlgCtrlID(HWND control) {
  const Call call("GetDlgCtrlID", static_cast<const void*>(control));
  if (call.fails()) return 0;
  int id = 0;
  const DWORD error = call.server().dialogs().Visit(control, [&id](Dialog&, Control* found) {
    if (found == nullptr) UnsupportedCall("GetDlgCtrlID of a dialog");
    id = found->shown.id;
    return DWORD{ERROR_SUCCESS};
  });
  call.Done(error);
  return id;
}

HWND WINAPI GetParent(HWND window) {
  const Call call("GetParent", static_cast<const void*>(window));
  if (call.fails()) return nullptr;
  HWND parent = nullptr;
  const DWORD error =
      call.server().dialogs().Visit(window, [&parent](Dialog& dialog, Control* control) {
        if (control != nullptr) parent = dialog.shown.window;
        return DWORD{ERROR_SUCCESS};
      });
  call.Done(error);
  return parent;
}

namespace simulator {
namespace {

LONG_PTR* UserData(Dialog& dialog, const Control* control, int index) {
  if (control != nullptr || index != DWLP_USER) UnsupportedCall("window data other than DWLP_USER");
  return &dialog.user_data;
}

}  // namespace
}  // namespace simulator

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index) {
  const Call call("GetWindowLongPtrW", static_cast<const void*>(window), index);
  if (call.fails()) return 0;
  LONG_PTR value = 0;
  const DWORD error =
      call.server().dialogs().Visit(window, [&value, index](Dialog& dialog, Control* control) {
        value = *simulator::UserData(dialog, control, index);
        return DWORD{ERROR_SUCCESS};
      });
  call.Done(error);
  return value;
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  const Call call("SetWindowLongPtrW", static_cast<const void*>(window), index);
  if (call.fails()) return 0;
  const DWORD error =
      call.server().dialogs().Visit(window, [&value, index](Dialog& dialog, Control* control) {
        std::swap(value, *simulator::UserData(dialog, control, index));
        return DWORD{ERROR_SUCCESS};
      });
  call.Done(error);
  return error == ERROR_SUCCESS ? value : 0;
}
