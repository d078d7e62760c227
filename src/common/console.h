// Plain and coloured text on standard output. Any thread; texts of two threads can interleave.
#ifndef COMMON_CONSOLE_H_
#define COMMON_CONSOLE_H_

#include <windows.h>

#include <string>

#include "common/format.h"

namespace common {

// Prints formatted text, like printf.
COMMON_PRINTF_FORMAT(1, 2)
void PrintFormatted(const char* format, ...);

// Prints `text` as a format string without arguments: see ExpandTemplate.
void PrintTemplate(const std::string& text);

// Console text attributes; `bright` adds the intensity attribute.
inline constexpr WORD kGreen = 2;
inline constexpr WORD kRed = 4;
inline constexpr WORD kYellow = 6;

// Formats at most 2,046 characters and prints the result, again as a format string, in the given
// colour. Then restores the console's attributes. If standard output is not a console, prints the
// text without colour.
COMMON_PRINTF_FORMAT(3, 4)
void ColorPrint(bool bright, WORD attribute, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintRed(bool bright, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintYellow(bool bright, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintGreen(bool bright, const char* format, ...);

// ColorPrint with `text` as the format string and without arguments: "%%" is converted twice.
void ColorPrintTemplate(bool bright, WORD attribute, const std::string& text);

}  // namespace common

#endif  // COMMON_CONSOLE_H_
