// Text on standard output, plain and coloured. Any thread; the text of two threads may interleave.
#ifndef COMMON_CONSOLE_H_
#define COMMON_CONSOLE_H_

#include <windows.h>

#include <string>

#include "common/format.h"

namespace common {

// The C runtime's formatted print.
COMMON_PRINTF_FORMAT(1, 2)
void PrintFormatted(const char* format, ...);

// Prints `text` as a template without arguments: see ExpandTemplate.
void PrintTemplate(const std::string& text);

// Console text attributes; bright adds the intensity.
inline constexpr WORD kGreen = 2;
inline constexpr WORD kRed = 4;
inline constexpr WORD kYellow = 6;

// Formats at most 2,046 characters and prints the result, as a template once more, in the colour
// given. The console's attributes are then what they were. Without a console it prints all the
// same.
COMMON_PRINTF_FORMAT(3, 4)
void ColorPrint(bool bright, WORD attribute, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintRed(bool bright, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintYellow(bool bright, const char* format, ...);
COMMON_PRINTF_FORMAT(2, 3)
void PrintGreen(bool bright, const char* format, ...);

// ColorPrint with `text` itself as the template and no arguments: "%%" is thus read twice.
void ColorPrintTemplate(bool bright, WORD attribute, const std::string& text);

}  // namespace common

#endif  // COMMON_CONSOLE_H_
