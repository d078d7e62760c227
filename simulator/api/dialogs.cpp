// Dialogs: their making and their end, their controls and what the program keeps with them.
#include "simulator/model/desktop/dialogs.h"

#include <windows.h>

#include <optional>
#include <utility>

#include "simulator/api/call.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/processes/threads.h"

using simulator::Call;
using simulator::Control;
using simulator::Desktop;
using simulator::Dialog;
using simulator::Unsupported;

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR template_name, HWND parent,
                               DLGPROC procedure, LPARAM parameter) {
  const WORD id = LOWORD(reinterpret_cast<ULONG_PTR>(template_name));
  if (MAKEINTRESOURCEW(id) != template_name) Unsupported("CreateDialogParamW by name");
  if (parent != nullptr) Unsupported("CreateDialogParamW with a parent");
  if (procedure == nullptr) Unsupported("CreateDialogParamW without a procedure");
  const Call call("CreateDialogParamW", instance, DWORD{id}, nullptr);
  if (call.fails()) return nullptr;
  Desktop& desktop = call.server().desktop();
  simulator::DialogTemplate source;
  const LANGID language = desktop.ResourceLanguage(call.server().threads().State());
  const DWORD error = desktop.FindDialog(language, id, &source);
  if (error != ERROR_SUCCESS) return call.Fail(HWND{nullptr}, error);
  const HWND dialog = simulator::MakeDialog(desktop, id, source, procedure, parameter);
  if (dialog == nullptr) return call.Fail(dialog, ERROR_INVALID_WINDOW_HANDLE);
  return call.Succeed(dialog);
}

BOOL WINAPI DestroyWindow(HWND window) {
  const Call call("DestroyWindow", window);
  if (call.fails()) return FALSE;
  Desktop& desktop = call.server().desktop();
  if (!desktop.dialogs().Has(window)) return call.Done(ERROR_INVALID_WINDOW_HANDLE);
  if (!desktop.dialogs().IsOfThisThread(window)) return call.Done(ERROR_ACCESS_DENIED);
  desktop.dialogs().Visit(window, [](Dialog& dialog, Control* control) {
    if (control != nullptr) Unsupported("DestroyWindow of a control");
    if (std::exchange(dialog.dying, true)) Unsupported("DestroyWindow within DestroyWindow");
  });
  simulator::DestroyDialog(desktop, window);
  return call.Done(ERROR_SUCCESS);
}

HWND WINAPI GetDlgItem(HWND dialog, int id) {
  const Call call("GetDlgItem", dialog, id);
  if (call.fails()) return nullptr;
  HWND item = nullptr;
  const DWORD error =
      call.server().dialogs().Visit(dialog, [&item, id](Dialog& found, Control* parent) {
        const Control* const control = parent == nullptr ? found.Find(id) : nullptr;
        if (control != nullptr) item = control->shown.window;
      });
  call.Done(error == ERROR_SUCCESS && item == nullptr ? DWORD{ERROR_CONTROL_ID_NOT_FOUND} : error);
  return item;
}

int WINAPI GetDlgCtrlID(HWND control) {
  const Call call("GetDlgCtrlID", control);
  if (call.fails()) return 0;
  int id = 0;
  const DWORD error = call.server().dialogs().Visit(control, [&id](Dialog&, Control* found) {
    if (found == nullptr) Unsupported("GetDlgCtrlID of a dialog");
    id = found->shown.id;
  });
  call.Done(error);
  return id;
}

HWND WINAPI GetParent(HWND window) {
  const Call call("GetParent", window);
  if (call.fails()) return nullptr;
  HWND parent = nullptr;
  const DWORD error =
      call.server().dialogs().Visit(window, [&parent](Dialog& dialog, Control* control) {
        if (control != nullptr) parent = dialog.shown.window;
      });
  call.Done(error);
  return parent;
}

namespace simulator {
namespace {

LONG_PTR* UserData(Dialog& dialog, const Control* control, int index) {
  if (control != nullptr || index != DWLP_USER) Unsupported("window data other than DWLP_USER");
  return &dialog.user_data;
}

}  // namespace
}  // namespace simulator

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index) {
  const Call call("GetWindowLongPtrW", window, index);
  if (call.fails()) return 0;
  LONG_PTR value = 0;
  const DWORD error =
      call.server().dialogs().Visit(window, [&value, index](Dialog& dialog, Control* control) {
        value = *simulator::UserData(dialog, control, index);
      });
  call.Done(error);
  return value;
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  const Call call("SetWindowLongPtrW", window, index);
  if (call.fails()) return 0;
  const DWORD error =
      call.server().dialogs().Visit(window, [&value, index](Dialog& dialog, Control* control) {
        std::swap(value, *simulator::UserData(dialog, control, index));
      });
  call.Done(error);
  return error == ERROR_SUCCESS ? value : 0;
}
