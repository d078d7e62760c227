// printf-style formatting into text of limited length.
#ifndef COMMON_FORMAT_H_
#define COMMON_FORMAT_H_

#include <cstdarg>
#include <cstddef>
#include <string>

// Lets the compiler check format strings: `template_at` and `first` are the positions of the format
// string and of the first argument. Position 1 of a member function is `this`.
#ifdef __clang__
#define COMMON_PRINTF_FORMAT(template_at, first) [[gnu::format(printf, template_at, first)]]
#else
#define COMMON_PRINTF_FORMAT(template_at, first) [[gnu::format(gnu_printf, template_at, first)]]
#endif

namespace common {

// The size of message buffers in units, including the terminator.
inline constexpr size_t kMessageUnits = 2048;

// Returns the formatted text, truncated after `max_length` units, which must be less than
// kMessageUnits. "%s" in a wide format string expects wide text.
COMMON_PRINTF_FORMAT(2, 0)
std::string FormatCut(size_t max_length, const char* format, va_list arguments);
std::wstring FormatCut(size_t max_length, const wchar_t* format, va_list arguments);

// Returns the text that results from printing `text` as a format string without arguments: "%%"
// becomes "%"; everything else is unchanged, including a single "%" and complete conversions.
std::string ExpandTemplate(const std::string& text);

}  // namespace common

#endif  // COMMON_FORMAT_H_
