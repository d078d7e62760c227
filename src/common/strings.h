// Text functions that the parsers, the backup-file readers and the logger rely on. Narrow text is
// 8-bit text in the system's ANSI code page; no function looks beyond single bytes. All are pure.
#ifndef COMMON_STRINGS_H_
#define COMMON_STRINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace common {

// Appends the pieces of `text` between occurrences of `separator` to `pieces`, which is not
// cleared. A leading separator yields an empty first piece, two adjacent ones an empty piece
// between them, a trailing one nothing; an empty text yields nothing. An empty separator never
// matches: a text that is not empty is then one piece. `text` is not to be one of `pieces`.
void Split(std::string_view text, std::string_view separator, std::vector<std::string>& pieces);

// Without blanks (0x20 only) at both ends.
std::string TrimSpaces(std::string_view text);

// Without the leading, or trailing, characters of `set`. A text made of such characters alone comes
// back unchanged: unlike TrimSpaces, these two never empty a text.
std::string TrimLeft(std::string_view text, std::string_view set);
std::string TrimRight(std::string_view text, std::string_view set);

// Copies with the 26 ASCII letters mapped; all other bytes stay.
std::string ToUpperAscii(std::string_view text);
std::string ToLowerAscii(std::string_view text);

// Decimal digits without sign, padding or separators.
std::string ToDecimal(uint32_t number);

// "%.2lf" of `number`, cut at 63 characters.
std::string FormatFixed2(double number);

}  // namespace common

#endif  // COMMON_STRINGS_H_
