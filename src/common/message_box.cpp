#include "common/message_box.h"

#include <cstdarg>

namespace common {

int MessageBoxFormat(HWND owner, const std::string& caption, UINT type, const char* format, ...) {
  // Oddity: message length, see docs/oddities.md.
  va_list arguments;
  va_start(arguments, format);
  const std::string text = FormatCut(2046, format, arguments);
  va_end(arguments);
  return ::MessageBoxA(owner, text.c_str(), caption.c_str(), type);
}

}  // namespace common
