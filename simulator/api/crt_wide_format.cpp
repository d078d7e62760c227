// Formatting by wide templates, with the meaning that the Windows C runtime gives them.
#include <stdio.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/model/unsupported.h"
#include "simulator/model/utf8.h"

namespace {

using simulator::Unsupported;
using simulator::WideFromUtf8;

// One conversion of a template: % flags width .precision size letter.
struct Directive {
  std::string flags;
  int width = 0;
  int precision = -1;  // none
  std::wstring size;   // "", "h", "l", "ll", "w", "I64" ...
  wchar_t letter = 0;  // 0 when the template ends within
};

class Formatter {
 public:
  Formatter(std::wstring_view format, va_list arguments) : rest_(format) {
    va_copy(arguments_, arguments);
  }
  ~Formatter() { va_end(arguments_); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;

  std::wstring Format();

 private:
  Directive TakeDirective();
  int TakeNumber();
  bool TakeIf(std::wstring_view prefix);

  void Append(const Directive& directive);
  void AppendText(const Directive& directive);
  void AppendCharacter(const Directive& directive);
  void AppendInteger(const Directive& directive);
  template <typename Value>
  void AppendNumber(const Directive& directive, const std::string& conversion, Value value);
  void AppendPadded(const Directive& directive, std::wstring_view text);

  std::wstring_view rest_;
  va_list arguments_;
  std::wstring text_;
};

// Whether a text or character is wide: lower case letters are in a wide template, unless the size
// says otherwise.
bool IsWide(const Directive& directive) {
  if (directive.size == L"h") return false;
  if (directive.size == L"l" || directive.size == L"w") return true;
  return directive.letter == L's' || directive.letter == L'c';
}

std::wstring Formatter::Format() {
  while (!rest_.empty()) {
    const size_t plain = std::min(rest_.find(L'%'), rest_.size());
    text_ += rest_.substr(0, plain);
    rest_.remove_prefix(plain);
    if (rest_.empty()) break;
    rest_.remove_prefix(1);
    Append(TakeDirective());
  }
  return text_;
}

Directive Formatter::TakeDirective() {
  Directive directive;
  while (!rest_.empty() && std::wstring_view(L"-+ #0").find(rest_[0]) != std::wstring_view::npos) {
    directive.flags += static_cast<char>(rest_[0]);
    rest_.remove_prefix(1);
  }
  directive.width = TakeNumber();
  if (directive.width < 0) {
    directive.flags += '-';
    directive.width = -directive.width;
  }
  if (TakeIf(L".")) directive.precision = std::max(TakeNumber(), -1);
  for (const wchar_t* size : {L"I64", L"I32", L"I", L"ll", L"l", L"hh", L"h", L"w", L"L"}) {
    if (TakeIf(size)) {
      directive.size = size;
      break;
    }
  }
  if (!rest_.empty()) {
    directive.letter = rest_[0];
    rest_.remove_prefix(1);
  }
  return directive;
}

// Digits, or "*" for the next argument; 0 when there is neither.
int Formatter::TakeNumber() {
  constexpr int kLargest = 1'000'000;
  int number = 0;
  if (TakeIf(L"*")) {
    number = va_arg(arguments_, int);
  } else {
    while (number <= kLargest && !rest_.empty() && rest_[0] >= L'0' && rest_[0] <= L'9') {
      number = number * 10 + static_cast<int>(rest_[0] - L'0');
      rest_.remove_prefix(1);
    }
  }
  if (number > kLargest || number < -kLargest) {
    Unsupported("a width or precision beyond a million");
  }
  return number;
}

bool Formatter::TakeIf(std::wstring_view prefix) {
  if (rest_.substr(0, prefix.size()) != prefix) return false;
  rest_.remove_prefix(prefix.size());
  return true;
}

void Formatter::Append(const Directive& directive) {
  switch (directive.letter) {
    case L'%':
      text_ += L'%';
      return;
    case L's':
    case L'S':
      return AppendText(directive);
    case L'c':
    case L'C':
      return AppendCharacter(directive);
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
      return AppendInteger(directive);
    case L'e':
    case L'E':
    case L'f':
    case L'g':
    case L'G':
      if (directive.size == L"L") Unsupported("%L in a wide template");
      return AppendNumber(directive, std::string(1, static_cast<char>(directive.letter)),
                          va_arg(arguments_, double));
    default:
      Unsupported("a conversion in the wide template, before \"" + simulator::Utf8FromWide(rest_) +
                  "\"");
  }
}

void Formatter::AppendText(const Directive& directive) {
  // The argument need not be terminated within the precision.
  const size_t limit =
      directive.precision < 0 ? SIZE_MAX : static_cast<size_t>(directive.precision);
  if (IsWide(directive)) {
    const wchar_t* const argument = va_arg(arguments_, const wchar_t*);
    const wchar_t* const text = argument == nullptr ? L"(null)" : argument;
    size_t length = 0;
    while (length < limit && text[length] != 0) ++length;
    AppendPadded(directive, {text, length});
  } else {
    const char* const argument = va_arg(arguments_, const char*);
    const char* const text = argument == nullptr ? "(null)" : argument;
    size_t length = 0;
    while (length < limit && text[length] != 0) ++length;
    AppendPadded(directive, WideFromUtf8({text, length}));
  }
}

void Formatter::AppendCharacter(const Directive& directive) {
  const int argument = va_arg(arguments_, int);
  if (IsWide(directive)) {
    const wchar_t unit = static_cast<wchar_t>(argument);
    AppendPadded(directive, {&unit, 1});
  } else {
    const char byte = static_cast<char>(argument);
    AppendPadded(directive, WideFromUtf8({&byte, 1}));
  }
}

void Formatter::AppendInteger(const Directive& directive) {
  const char letter = static_cast<char>(directive.letter);
  const bool is_signed = letter == 'd' || letter == 'i';
  if (directive.size == L"ll" || directive.size == L"I64") {
    if (is_signed) {
      AppendNumber(directive, std::string("ll") + letter, va_arg(arguments_, long long));
    } else {
      AppendNumber(directive, std::string("ll") + letter, va_arg(arguments_, unsigned long long));
    }
  } else if (directive.size.empty() || directive.size == L"I32") {
    if (is_signed) {
      AppendNumber(directive, std::string(1, letter), va_arg(arguments_, int));
    } else {
      AppendNumber(directive, std::string(1, letter), va_arg(arguments_, unsigned));
    }
  } else {
    // A long is 32 bits wide on Windows and 64 here.
    Unsupported("an integer of that size in a wide template");
  }
}

template <typename Value>
void Formatter::AppendNumber(const Directive& directive, const std::string& conversion,
                             Value value) {
  const std::string format = "%" + directive.flags + "*.*" + conversion;
  const int length =
      snprintf(nullptr, 0, format.c_str(), directive.width, directive.precision, value);
  if (length < 0) Unsupported("a number that the host cannot format");
  std::string digits(static_cast<size_t>(length) + 1, '\0');
  snprintf(digits.data(), digits.size(), format.c_str(), directive.width, directive.precision,
           value);
  text_.append(digits.begin(), digits.end() - 1);
}

void Formatter::AppendPadded(const Directive& directive, std::wstring_view text) {
  const size_t width = static_cast<size_t>(directive.width);
  const std::wstring padding(width > text.size() ? width - text.size() : 0,
                             directive.flags.find('0') == std::string::npos ? L' ' : L'0');
  const bool is_left = directive.flags.find('-') != std::string::npos;
  if (!is_left) text_ += padding;
  text_ += text;
  if (is_left) text_.append(padding.size(), L' ');
}

}  // namespace

int _vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments) {
  if (format == nullptr || (buffer == nullptr && count != 0)) {
    errno = EINVAL;
    return -1;
  }
  const std::wstring text = Formatter(format, arguments).Format();
  // Without a buffer the runtime tells the length.
  if (buffer == nullptr) return static_cast<int>(text.size());
  const size_t copied = std::min(text.size(), count);
  std::copy_n(text.begin(), copied, buffer);
  if (text.size() > count) return -1;
  if (text.size() < count) buffer[copied] = L'\0';
  return static_cast<int>(copied);
}
