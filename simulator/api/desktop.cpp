// Messages, message boxes and string resources.
#include "simulator/model/desktop/desktop.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

BOOL Post(const char* name, HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  const HWND everyone = reinterpret_cast<HWND>(UINT_PTR{0xFFFF});
  if (window == nullptr) Unsupported(std::string(name) + " to a thread");
  if (window == everyone) Unsupported(std::string(name) + " to every window");
  if (message < WM_USER) Unsupported(std::string(name) + " of a system message");
  const Call call(name, window, message, wparam, lparam);
  if (call.fails()) return FALSE;
  return call.Done(call.server().desktop().Post(window, {message, wparam, lparam}));
}

// `cut` makes of UTF-8 the text for the buffer, of at most so many units.
template <typename Unit, typename Cut>
int Load(const char* name, HINSTANCE instance, UINT id, Unit* buffer, int buffer_size, Cut cut) {
  if (buffer == nullptr || buffer_size <= 0) Unsupported(std::string(name) + " without a buffer");
  const Call call(name, instance, id);
  if (call.fails()) return 0;
  const Desktop& desktop = call.server().desktop();
  const LANGID language = desktop.ResourceLanguage(call.server().threads().State());
  const std::optional<std::string> utf8 = desktop.String(language, id);
  buffer[0] = Unit{};
  if (!utf8) return call.Fail(0, ERROR_RESOURCE_NAME_NOT_FOUND);
  const auto text = cut(*utf8, static_cast<size_t>(buffer_size) - 1);
  std::copy_n(text.c_str(), text.size() + 1, buffer);
  return call.Succeed(static_cast<int>(text.size()));
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Unsupported;

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return simulator::Post("PostMessageA", window, message, wparam, lparam);
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return simulator::Post("PostMessageW", window, message, wparam, lparam);
}

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
  constexpr UINT kButtons = MB_OK | MB_OKCANCEL;
  constexpr UINT kIcons = MB_ICONERROR | MB_ICONQUESTION | MB_ICONWARNING;
  if ((type & ~(kButtons | kIcons)) != 0) Unsupported("MessageBoxA: type");
  const Call call("MessageBoxA", owner, text, caption, type);
  if (call.fails()) return 0;
  if (owner != nullptr && !call.server().desktop().HasWindow(owner)) {
    return call.Fail(0, ERROR_INVALID_WINDOW_HANDLE);
  }
  return call.Succeed(call.server().message_boxes().Show(
      {owner, simulator::FromAnsi(call, text != nullptr ? text : ""),
       simulator::FromAnsi(call, caption != nullptr ? caption : "Error"), type, 0}));
}

int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int buffer_size) {
  const auto cut = [](const std::string& utf8, size_t longest) {
    const UINT code_page = simulator::Server::Current().system().ansi_code_page;
    const std::string ansi = simulator::AnsiFromUtf8(utf8, code_page);
    return ansi.substr(0, simulator::WholeCharacters(ansi, longest, code_page));
  };
  return simulator::Load("LoadStringA", instance, id, buffer, buffer_size, cut);
}

int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int buffer_size) {
  const auto cut = [](const std::string& utf8, size_t longest) {
    return simulator::WideFromUtf8(utf8).substr(0, longest);
  };
  return simulator::Load("LoadStringW", instance, id, buffer, buffer_size, cut);
}
