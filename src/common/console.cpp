#include "common/console.h"

#include <stdio.h>

#include <cstdarg>

namespace common {
namespace {

// Oddity: message length, see docs/oddities.md.
constexpr size_t kMaxColored = 2046;

void PrintVerbatim(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

// Sets the console's attributes and restores them on destruction.
class AttributeScope {
 public:
  explicit AttributeScope(WORD attributes) : console_(::GetStdHandle(STD_OUTPUT_HANDLE)) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    has_console_ = ::GetConsoleScreenBufferInfo(console_, &info) != FALSE;
    if (!has_console_) return;
    saved_ = info.wAttributes;
    ::SetConsoleTextAttribute(console_, attributes);
  }
  ~AttributeScope() {
    if (has_console_) ::SetConsoleTextAttribute(console_, saved_);
  }
  AttributeScope(const AttributeScope&) = delete;
  AttributeScope& operator=(const AttributeScope&) = delete;

 private:
  HANDLE console_;
  bool has_console_ = false;
  WORD saved_ = 0;
};

void PrintColored(bool bright, WORD attribute, const std::string& text) {
  const AttributeScope scope(
      static_cast<WORD>(bright ? attribute + FOREGROUND_INTENSITY : attribute));
  PrintTemplate(text);
}

COMMON_PRINTF_FORMAT(3, 0)
void ColorPrintList(bool bright, WORD attribute, const char* format, va_list arguments) {
  PrintColored(bright, attribute, FormatCut(kMaxColored, format, arguments));
}

}  // namespace

void PrintFormatted(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vfprintf(stdout, format, arguments);
  va_end(arguments);
}

// Oddity: percent signs on the console, see docs/oddities.md.
void PrintTemplate(const std::string& text) { PrintVerbatim(ExpandTemplate(text)); }

void ColorPrint(bool bright, WORD attribute, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  ColorPrintList(bright, attribute, format, arguments);
  va_end(arguments);
}

void PrintRed(bool bright, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  ColorPrintList(bright, kRed, format, arguments);
  va_end(arguments);
}

void PrintYellow(bool bright, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  ColorPrintList(bright, kYellow, format, arguments);
  va_end(arguments);
}

void PrintGreen(bool bright, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  ColorPrintList(bright, kGreen, format, arguments);
  va_end(arguments);
}

void ColorPrintTemplate(bool bright, WORD attribute, const std::string& text) {
  // Oddity: percent signs on the console, see docs/oddities.md.
  std::string formatted = ExpandTemplate(text);
  if (formatted.size() > kMaxColored) formatted.resize(kMaxColored);
  PrintColored(bright, attribute, formatted);
}

}  // namespace common
