// Text functions for the parsers, the readers of the backup files and the logger. Narrow text is
// ANSI text; all functions work on single bytes. All are pure.
#ifndef COMMON_STRINGS_H_
#define COMMON_STRINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace common {

// Appends the pieces of `text` between occurrences of `separator` to `pieces`, which is not
// cleared. A leading separator gives an empty first piece, two adjacent separators give an empty
// piece between them, a trailing separator gives no further piece; an empty text gives no pieces.
// An empty separator never matches. `text` must not refer to an element of `pieces`.
void Split(std::string_view text, std::string_view separator, std::vector<std::string>& pieces);

// Removes leading and trailing spaces (0x20 only).
std::string TrimSpaces(std::string_view text);

// Remove leading or trailing characters of `set`. If all characters of the text are in `set`, it is
// returned unchanged: unlike TrimSpaces, these two never return an empty text for a nonempty one.
// The result refers to the characters of `text`.
std::string_view TrimLeft(std::string_view text, std::string_view set);
std::string_view TrimRight(std::string_view text, std::string_view set);

// Convert the 26 ASCII letters; all other bytes are unchanged.
std::string ToUpperAscii(std::string_view text);
std::string ToLowerAscii(std::string_view text);

// Returns the decimal digits without sign, padding or separators.
std::string ToDecimal(uint32_t number);

// Formats `number` with "%.2lf", truncated after 63 characters.
std::string FormatFixed2(double number);

}  // namespace common

#endif  // COMMON_STRINGS_H_
