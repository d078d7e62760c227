#include "common/format.h"

#include <stdio.h>
#include <wchar.h>

#include <algorithm>
#include <array>

namespace common {

std::string FormatCut(size_t max_length, const char* format, va_list arguments) {
  std::array<char, kMessageUnits> buffer{};
  const size_t count = std::min(max_length + 1, buffer.size());
  std::vsnprintf(buffer.data(), count, format, arguments);
  return buffer.data();
}

std::wstring FormatCut(size_t max_length, const wchar_t* format, va_list arguments) {
  std::array<wchar_t, kMessageUnits> buffer{};
  // Unlike vsnprintf, _vsnwprintf does not terminate a truncated text; the zeroed buffer does.
  ::_vsnwprintf(buffer.data(), std::min(max_length, buffer.size() - 1), format, arguments);
  return buffer.data();
}

std::string ExpandTemplate(const std::string& text) {
  std::string expanded;
  expanded.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    expanded += text[i];
    if (text[i] == '%' && i + 1 < text.size() && text[i + 1] == '%') ++i;
  }
  return expanded;
}

}  // namespace common
