// Formatting by wide templates, with the meaning that the Windows C runtime gives them.
#include <stdio.h>
#include <wchar.h>

#include <algorithm>
#include <cstdarg>
#include <string>
#include <string_view>

#include "simulator/model/common/unsupported.h"

namespace {

using simulator::Unsupported;

// The template as the host reads it: there, "%s" and "%c" take narrow text unless an "l" says
// otherwise. Conversions whose argument has another size on Windows are not honoured.
std::wstring HostTemplate(std::wstring_view format) {
  std::wstring host;
  while (!format.empty()) {
    const size_t percent = std::min(format.find(L'%'), format.size());
    host += format.substr(0, percent);
    format.remove_prefix(percent);
    if (format.empty()) break;
    const size_t size = std::min(format.find_first_not_of(L"-+ #0123456789.*", 1), format.size());
    const size_t letter = format.substr(size).starts_with(L"ll") ? size + 2 : size;
    if (letter == format.size()) Unsupported("a wide template that ends within a conversion");
    host += format.substr(0, letter);
    switch (format[letter]) {
      case L's':
      case L'c':
        if (letter != size) Unsupported("text of that size in a wide template");
        host += L'l';
        break;
      case L'd':
      case L'u':
      case L'x':
      case L'X':
      case L'%':
        break;
      default:
        Unsupported("a conversion of a wide template");
    }
    host += format[letter];
    format.remove_prefix(letter + 1);
  }
  return host;
}

std::wstring Format(const std::wstring& host, va_list arguments) {
  constexpr size_t kLongest = size_t{1} << 24;
  for (size_t size = 4096; size <= kLongest; size *= 4) {
    std::wstring text(size, L'\0');
    va_list again;
    va_copy(again, arguments);
    const int length = vswprintf(text.data(), text.size(), host.c_str(), again);
    va_end(again);
    if (length >= 0) {
      text.resize(static_cast<size_t>(length));
      return text;
    }
  }
  Unsupported("wide text of that length");
}

}  // namespace

int _vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments) {
  const std::wstring text = Format(HostTemplate(format), arguments);
  const size_t copied = std::min(text.size(), count);
  std::copy_n(text.begin(), copied, buffer);
  if (text.size() > count) return -1;
  if (text.size() < count) buffer[copied] = L'\0';
  return static_cast<int>(copied);
}
