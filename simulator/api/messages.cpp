// The message loop, sent messages and timers.
#include <windows.h>

#include <optional>

#include "simulator/api/call.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

struct Button {
  int id;
  HWND window;
};

// The button that a key on a dialog stands for.
Button ButtonOfKey(const Dialog& dialog, WPARAM key) {
  if (key != VK_ESCAPE && key != VK_RETURN) return {0, nullptr};
  const int id = key == VK_ESCAPE ? IDCANCEL : IDOK;
  Button button = {id, nullptr};
  for (const Control& control : dialog.controls) {
    const bool is_default =
        control.kind == ControlClass::kButton && (control.shown.style & BS_DEFPUSHBUTTON) != 0;
    if (key == VK_RETURN && is_default) return {control.shown.id, control.shown.window};
    if (control.shown.id == id) button.window = control.shown.window;
  }
  return button;
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Control;
using simulator::Desktop;
using simulator::Dialog;
using simulator::Server;
using simulator::Unsupported;

BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
  constexpr BOOL kFailed = -1;
  if (message == nullptr) Unsupported("GetMessageW without a message");
  if (window != nullptr || first != 0 || last != 0) Unsupported("GetMessageW of some messages");
  const Call call("GetMessageW", nullptr, first, last);
  if (call.fails()) {
    call.server().own_process().LeaveWhenBrokenOff();
    return kFailed;
  }
  const std::optional<MSG> taken = call.server().dialogs().WaitForMessage();
  if (!taken) return call.Fail(kFailed, ERROR_PROCESS_ABORTED);
  *message = *taken;
  return call.Succeed(taken->message == WM_QUIT ? FALSE : TRUE);
}

// There is no text input here, and so no key that becomes a character.
BOOL WINAPI TranslateMessage(const MSG* message) {
  return message->message == WM_KEYDOWN ? TRUE : FALSE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message) {
  const simulator::PlatformScope scope;
  return simulator::Dispatch(Server::Current().desktop(), *message);
}

BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message) {
  const simulator::PlatformScope scope;
  Desktop& desktop = Server::Current().desktop();
  simulator::Button button{};
  bool is_for_dialog = false;
  desktop.dialogs().Visit(message->hwnd, [&](const Dialog& found, const Control*) {
    is_for_dialog = found.shown.window == dialog;
    button = simulator::ButtonOfKey(found, message->wParam);
  });
  if (!is_for_dialog) return FALSE;
  if (message->message == WM_KEYDOWN && button.id != 0) {
    simulator::Send(desktop, dialog, WM_COMMAND, MAKEWPARAM(button.id, BN_CLICKED),
                    reinterpret_cast<LPARAM>(button.window));
  } else {
    simulator::Dispatch(desktop, *message);
  }
  return TRUE;
}

void WINAPI PostQuitMessage(int exit_code) {
  const simulator::PlatformScope scope;
  Server::Current().dialogs().Quit(exit_code);
}

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  const Call call("SendMessageW", window, message, wparam, lparam);
  if (call.fails()) return 0;
  Desktop& desktop = call.server().desktop();
  if (!desktop.dialogs().Has(window)) return call.Fail(LRESULT{0}, ERROR_INVALID_WINDOW_HANDLE);
  return call.Succeed(simulator::Send(desktop, window, message, wparam, lparam));
}

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (window != nullptr) Unsupported("DefWindowProcW of a window");
  const Call call("DefWindowProcW", nullptr, message, wparam, lparam);
  if (call.fails()) return 0;
  return call.Fail(LRESULT{0}, ERROR_INVALID_WINDOW_HANDLE);
}

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
  if (window == nullptr || id == 0) Unsupported("SetTimer without a window or an id");
  if (procedure != nullptr) Unsupported("SetTimer with a procedure");
  const Call call("SetTimer", window, id, milliseconds);
  if (call.fails()) return 0;
  simulator::Dialogs& dialogs = call.server().dialogs();
  const DWORD error = dialogs.Visit(window, [&](Dialog& dialog, const Control* control) {
    if (control != nullptr) Unsupported("SetTimer of a control");
    dialogs.SetTimer(dialog, id, milliseconds);
  });
  return call.Done(error) ? id : 0;
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
  if (window == nullptr) Unsupported("KillTimer without a window");
  const Call call("KillTimer", window, id);
  if (call.fails()) return FALSE;
  simulator::Dialogs& dialogs = call.server().dialogs();
  bool is_killed = false;
  const DWORD error = dialogs.Visit(window, [&](Dialog& dialog, const Control* control) {
    is_killed = control == nullptr && dialogs.KillTimer(dialog, id);
  });
  return call.Done(error == ERROR_SUCCESS && !is_killed ? DWORD{ERROR_INVALID_PARAMETER} : error);
}
