// What windows show: place, text, icons.
#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/graphics.h"

namespace simulator {
namespace {

constexpr RECT kWorkArea = {0, 0, 1024, 728};

// A dialog, never one of its controls.
DWORD VisitDialog(const Call& call, const char* name, HWND window,
                  const std::function<void(Dialog&)>& visit) {
  return call.server().dialogs().Visit(window, [&](Dialog& dialog, Control* control) {
    if (control != nullptr) Unsupported(std::string(name) + " of a control");
    visit(dialog);
  });
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Control;
using simulator::Dialog;
using simulator::Unsupported;

BOOL WINAPI ShowWindow(HWND window, int command) {
  const bool shows = command == SW_SHOWNORMAL || command == SW_SHOW || command == SW_SHOWDEFAULT;
  if (!shows && command != SW_HIDE) Unsupported("ShowWindow: command");
  const Call call("ShowWindow", window, command);
  if (call.fails()) return FALSE;
  bool was_visible = false;
  const DWORD error =
      simulator::VisitDialog(call, "ShowWindow", window, [&was_visible, shows](Dialog& dialog) {
        was_visible = std::exchange(dialog.shown.visible, shows);
        if (shows && !was_visible) dialog.Invalidate();
      });
  call.Done(error);
  return was_visible ? TRUE : FALSE;
}

BOOL WINAPI GetWindowRect(HWND window, LPRECT rectangle) {
  if (rectangle == nullptr) Unsupported("GetWindowRect without a rectangle");
  const Call call("GetWindowRect", window);
  if (call.fails()) return FALSE;
  return call.Done(simulator::VisitDialog(
      call, "GetWindowRect", window,
      [rectangle](const Dialog& dialog) { *rectangle = dialog.shown.rectangle; }));
}

BOOL WINAPI SetWindowPos(HWND window, HWND insert_after, int x, int y, int width, int height,
                         UINT flags) {
  constexpr UINT kNeeded = SWP_NOSIZE | SWP_NOZORDER;
  if ((flags & ~UINT{SWP_NOACTIVATE}) != kNeeded) Unsupported("SetWindowPos: flags");
  const Call call("SetWindowPos", window, insert_after, x, y, width, height, flags);
  if (call.fails()) return FALSE;
  return call.Done(simulator::VisitDialog(call, "SetWindowPos", window, [x, y](Dialog& dialog) {
    RECT& place = dialog.shown.rectangle;
    place = {x, y, x + place.right - place.left, y + place.bottom - place.top};
  }));
}

BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text) {
  const Call call("SetWindowTextA", window, text);
  if (call.fails()) return FALSE;
  // Back from wide text, so that invalid UTF-8 does not stay.
  const std::string utf8 = simulator::FromAnsi(call, text == nullptr ? "" : text);
  const std::string caption = simulator::Utf8FromWide(simulator::WideFromUtf8(utf8));
  return call.Done(
      simulator::VisitDialog(call, "SetWindowTextA", window,
                             [&caption](Dialog& dialog) { dialog.shown.caption = caption; }));
}

int WINAPI GetWindowTextLengthW(HWND window) {
  const Call call("GetWindowTextLengthW", window);
  if (call.fails()) return 0;
  size_t length = 0;
  const DWORD error = call.server().dialogs().Visit(
      window, [&length](const Dialog& dialog, const Control* control) {
        length = control != nullptr ? control->text.size()
                                    : simulator::WideFromUtf8(dialog.shown.caption).size();
      });
  call.Done(error);
  return static_cast<int>(length);
}

BOOL WINAPI SystemParametersInfoW(UINT action, UINT parameter, PVOID value, UINT update) {
  if (action != SPI_GETWORKAREA) Unsupported("SystemParametersInfoW: action");
  if (value == nullptr || update != 0) Unsupported("SPI_GETWORKAREA with such arguments");
  const Call call("SystemParametersInfoW", action, parameter);
  if (call.fails()) return FALSE;
  *static_cast<RECT*>(value) = simulator::kWorkArea;
  return call.Done(ERROR_SUCCESS);
}

HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name) {
  const WORD id = LOWORD(reinterpret_cast<ULONG_PTR>(name));
  if (MAKEINTRESOURCEW(id) != name) Unsupported("LoadIconW by name");
  if (instance == nullptr) Unsupported("LoadIconW of the system's icons");
  const Call call("LoadIconW", instance, DWORD{id});
  if (call.fails()) return nullptr;
  const DWORD error = call.server().desktop().FindIcon(id);
  if (error != ERROR_SUCCESS) return call.Fail(HICON{nullptr}, error);
  return call.Succeed(simulator::IconOfNumber(id));
}
