// printf-style formatting into bounded text.
#ifndef COMMON_FORMAT_H_
#define COMMON_FORMAT_H_

#include <cstdarg>
#include <cstddef>
#include <string>

// Lets the compiler check templates: `template_at` and `first` are the positions of the template
// and of the first argument; a member's position 1 is `this`.
#ifdef __clang__
#define COMMON_PRINTF_FORMAT(template_at, first) [[gnu::format(printf, template_at, first)]]
#else
#define COMMON_PRINTF_FORMAT(template_at, first) [[gnu::format(gnu_printf, template_at, first)]]
#endif

namespace common {

// Messages are built in buffers of this many units, one of them for the terminator.
inline constexpr size_t kMessageUnits = 2048;

// The text of `format` with its arguments, cut behind `max_length` units, which is less than
// kMessageUnits. A "%s" of a wide template takes wide text.
COMMON_PRINTF_FORMAT(2, 0)
std::string FormatCut(size_t max_length, const char* format, va_list arguments);
std::wstring FormatCut(size_t max_length, const wchar_t* format, va_list arguments);

// What printing `text` as a template without arguments gives: "%%" becomes "%", everything else
// stands as it is, a lone "%" and whole conversions included.
std::string ExpandTemplate(const std::string& text);

}  // namespace common

#endif  // COMMON_FORMAT_H_
