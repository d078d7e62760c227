#include "simulator/model/desktop/dialog_procedures.h"

#include <string>
#include <utility>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/controls.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/graphics.h"
#include "simulator/model/processes/platform_scope.h"

namespace simulator {
namespace {

constexpr WPARAM kFont = 0x0A0A0001;

constexpr COLORREF kDialogFace = RGB(0xF0, 0xF0, 0xF0);
constexpr COLORREF kWindow = RGB(0xFF, 0xFF, 0xFF);

// 0 when the dialog is gone.
INT_PTR CallProcedure(Desktop& desktop, HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
  DLGPROC procedure = nullptr;
  desktop.dialogs().Visit(dialog,
                          [&procedure](Dialog& found, Control*) { procedure = found.procedure; });
  if (procedure == nullptr) return 0;
  const PlatformScope back_in_the_program(false);
  return procedure(dialog, message, wparam, lparam);
}

void TellFont(Desktop& desktop, HWND dialog) {
  CallProcedure(desktop, dialog, WM_SETFONT, kFont, 0);
}

// What the dialog leaves to itself.
LRESULT SetIcon(Desktop& desktop, HWND window, WPARAM size, LPARAM icon) {
  if (size != ICON_BIG && size != ICON_SMALL) Unsupported("WM_SETICON of size");
  int number = NumberOfIcon(reinterpret_cast<HICON>(icon));
  desktop.dialogs().Visit(window, [&number, size](Dialog& dialog, Control*) {
    std::swap(number, size == ICON_BIG ? dialog.shown.big_icon : dialog.shown.small_icon);
  });
  return number == 0 ? 0 : reinterpret_cast<LRESULT>(IconOfNumber(number));
}

LRESULT SendToDialog(Desktop& desktop, HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
  const bool is_honoured =
      message == WM_SETICON || message == WM_COMMAND || message == WM_TIMER || message >= WM_USER;
  if (!is_honoured) Unsupported("message " + std::to_string(message) + " to a dialog");
  const bool is_handled = CallProcedure(desktop, dialog, message, wparam, lparam) != FALSE;
  return message == WM_SETICON && !is_handled ? SetIcon(desktop, dialog, wparam, lparam) : 0;
}

// The message by which a control asks for its colours. One that can only be read is no field to
// fill in.
UINT ColorMessage(const Control& control) {
  if (control.kind == ControlClass::kButton) return WM_CTLCOLORBTN;
  const bool is_field =
      control.kind == ControlClass::kEdit && (control.shown.style & ES_READONLY) == 0;
  return is_field ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
}

void Paint(Desktop& desktop, HWND window) {
  HWND dialog = nullptr;
  UINT message = 0;
  desktop.dialogs().Visit(window, [&](Dialog& found, Control* control) {
    control->needs_painting = false;
    dialog = found.shown.window;
    message = ColorMessage(*control);
  });
  DeviceContexts& contexts = desktop.dialogs().contexts();
  const HDC context = contexts.Make();
  const INT_PTR brush = CallProcedure(desktop, dialog, message, reinterpret_cast<WPARAM>(context),
                                      reinterpret_cast<LPARAM>(window));
  ShownColors colors = contexts.Remove(context);
  colors.brush = StockNumber(reinterpret_cast<HGDIOBJ>(brush));
  if (brush == 0) {
    const COLORREF background = message == WM_CTLCOLOREDIT ? kWindow : kDialogFace;
    colors = {RGB(0, 0, 0), background, OPAQUE, std::nullopt};
  } else if (!colors.brush) {
    Unsupported("a brush that is no stock object");
  }
  desktop.dialogs().Visit(window,
                          [&colors](Dialog&, Control* control) { control->shown.colors = colors; });
}

HWND FirstTabStop(const Dialog& dialog) {
  constexpr DWORD kStop = WS_TABSTOP | WS_VISIBLE;
  for (const Control& control : dialog.controls) {
    if ((control.shown.style & kStop) == kStop) return control.shown.window;
  }
  return nullptr;
}

}  // namespace

HWND MakeDialog(Desktop& desktop, WORD id, const DialogTemplate& source, DLGPROC procedure,
                LPARAM parameter) {
  Dialogs& dialogs = desktop.dialogs();
  const HWND dialog = dialogs.Add(id, LayOut(source), procedure);
  TellFont(desktop, dialog);
  HWND focus = nullptr;
  dialogs.Visit(dialog, [&focus](Dialog& made, Control*) { focus = FirstTabStop(made); });
  CallProcedure(desktop, dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(focus), parameter);
  const DWORD error = dialogs.Visit(dialog, [](Dialog& made, Control*) {
    if ((made.shown.style & WS_VISIBLE) != 0) made.shown.visible = true;
    made.Invalidate();
  });
  return error == ERROR_SUCCESS ? dialog : nullptr;
}

void DestroyDialog(Desktop& desktop, HWND dialog) {
  CallProcedure(desktop, dialog, WM_DESTROY, 0, 0);
  if (!desktop.dialogs().Has(dialog)) return;  // broken off within
  desktop.dialogs().RemoveControls(dialog);
  CallProcedure(desktop, dialog, WM_NCDESTROY, 0, 0);
  if (!desktop.dialogs().Has(dialog)) return;
  desktop.dialogs().Remove(dialog);
  desktop.dialogs().TellWatcher();
}

LRESULT Send(Desktop& desktop, HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  ControlAnswer answer;
  HWND dialog = nullptr;
  WORD id = 0;
  desktop.dialogs().Visit(window, [&](Dialog& found, Control* control) {
    if (control == nullptr) return;
    dialog = found.shown.window;
    id = control->shown.id;
    answer = SendToControl(*control, message, wparam, lparam, desktop.has_progress_states());
  });
  if (dialog == nullptr) return SendToDialog(desktop, window, message, wparam, lparam);
  for (const WORD code : answer.notifications) {
    CallProcedure(desktop, dialog, WM_COMMAND, MAKEWPARAM(id, code),
                  reinterpret_cast<LPARAM>(window));
  }
  return answer.result;
}

LRESULT Dispatch(Desktop& desktop, const MSG& message) {
  if (!desktop.dialogs().Has(message.hwnd)) return 0;
  if (message.message == WM_PAINT) {
    Paint(desktop, message.hwnd);
    return 0;
  }
  if (message.message == WM_KEYDOWN) return 0;  // no control here makes anything of a key
  return Send(desktop, message.hwnd, message.message, message.wParam, message.lParam);
}

void DispatchBesideBox(Desktop& desktop) {
  while (const std::optional<MSG> message = desktop.dialogs().TakeBesideBox()) {
    Dispatch(desktop, *message);
  }
}

}  // namespace simulator
