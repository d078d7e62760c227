// Conversion of text to numbers by the rules of the C runtime.
#ifndef COMMON_NUMBERS_H_
#define COMMON_NUMBERS_H_

#include <string_view>

namespace common {

// Converts like atoi: skips leading white space, accepts one sign, stops at the first character
// that is not a digit. Returns 0 if there are no digits. A number outside the range of int becomes
// the nearest int.
int ReadDecimal(std::string_view text);

// Returns true if `text` equals the decimal text of the number that ReadDecimal returns for it:
// true for "40"; false for "040", "1.5" and "4O".
bool IsCanonicalDecimal(std::string_view text);

}  // namespace common

#endif  // COMMON_NUMBERS_H_
