// Messages, message boxes and string resources.
#include "simulator/model/desktop/desktop.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "simulator/api/call.h"
#include "simulator/api/resource_language.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

BOOL Post(const char* name, HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  const HWND everyone = reinterpret_cast<HWND>(UINT_PTR{0xFFFF});
  if (window == nullptr) UnsupportedCall(std::string(name) + " to a thread");
  if (window == everyone) UnsupportedCall(std::string(name) + " to every window");
  if (message < WM_USER) UnsupportedCall(std::string(name) + " of a system message");
  const Call call(name, static_cast<const void*>(window), message, static_cast<uint64_t>(wparam),
                  static_cast<int64_t>(lparam));
  if (call.fails()) return FALSE;
  return call.Done(call.server().desktop().Post(window, {message, wparam, lparam}));
}

// Where text is cut to have at most `longest` bytes and no piece of a character.
size_t CutAtCharacter(const std::string& utf8, size_t longest) {
  if (utf8.size() <= longest) return utf8.size();
  while (longest > 0 && (static_cast<unsigned char>(utf8[longest]) & 0xC0) == 0x80) --longest;
  return longest;
}

std::optional<std::string> FindString(Server& server, UINT id) {
  return server.desktop().String(ResourceLanguage(server), id);
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::UnsupportedCall;

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return simulator::Post("PostMessageA", window, message, wparam, lparam);
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return simulator::Post("PostMessageW", window, message, wparam, lparam);
}

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
  constexpr UINT kButtons = MB_OK | MB_OKCANCEL;
  constexpr UINT kIcons = MB_ICONERROR | MB_ICONQUESTION | MB_ICONWARNING;
  if ((type & ~(kButtons | kIcons)) != 0) UnsupportedCall("MessageBoxA: type");
  const Call call("MessageBoxA", static_cast<const void*>(owner), text, caption, type);
  if (call.fails()) return 0;
  if (owner != nullptr && !call.server().desktop().HasWindow(owner)) {
    return call.Fail(0, ERROR_INVALID_WINDOW_HANDLE);
  }
  return call.Succeed(call.server().message_boxes().Show(
      {owner, text != nullptr ? text : "", caption != nullptr ? caption : "Error", type, 0}));
}

int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int buffer_size) {
  if (buffer == nullptr || buffer_size <= 0) UnsupportedCall("LoadStringA without a buffer");
  const Call call("LoadStringA", static_cast<const void*>(instance), id);
  if (call.fails()) return 0;
  const auto text = simulator::FindString(call.server(), id);
  buffer[0] = '\0';
  if (!text) return call.Fail(0, ERROR_RESOURCE_NAME_NOT_FOUND);
  const size_t length = simulator::CutAtCharacter(*text, static_cast<size_t>(buffer_size) - 1);
  std::copy_n(text->data(), length, buffer);
  buffer[length] = '\0';
  return call.Succeed(static_cast<int>(length));
}

int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int buffer_size) {
  if (buffer == nullptr || buffer_size <= 0) UnsupportedCall("LoadStringW without a buffer");
  const Call call("LoadStringW", static_cast<const void*>(instance), id);
  if (call.fails()) return 0;
  const auto utf8 = simulator::FindString(call.server(), id);
  buffer[0] = L'\0';
  if (!utf8) return call.Fail(0, ERROR_RESOURCE_NAME_NOT_FOUND);
  const std::wstring text = simulator::WideFromUtf8(*utf8);
  const size_t length = std::min(text.size(), static_cast<size_t>(buffer_size) - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = L'\0';
  return call.Succeed(static_cast<int>(length));
}
