#include "ui/show_message.h"

#include <array>
#include <atomic>
#include <cstdarg>

#include "ui/resource.h"

namespace ui {
namespace {

constexpr size_t kMaxText = 2047;

std::atomic<HINSTANCE> resource_module = nullptr;

}  // namespace

void SetResourceModule(HINSTANCE module) { resource_module = module; }

std::string LoadResString(UINT id) {
  std::array<char, 512> buffer{};
  const int size = static_cast<int>(buffer.size());
  return ::LoadStringA(resource_module, id, buffer.data(), size) > 0 ? buffer.data()
                                                                     : std::string();
}

std::wstring LoadResStringW() {
  std::array<wchar_t, 512> buffer{};
  const int size = static_cast<int>(buffer.size());
  return ::LoadStringW(resource_module, IDS_RESTART_NOTICE, buffer.data(), size) > 0
             ? buffer.data()
             : std::wstring();
}

int ShowMessage(HWND owner, UINT style, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const std::string text = common::FormatCut(kMaxText, format, arguments);
  va_end(arguments);
  return ::MessageBoxA(owner, text.c_str(), LoadResString(IDS_TOOL_TITLE).c_str(), style);
}

}  // namespace ui
