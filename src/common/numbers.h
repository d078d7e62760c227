// Reading of numbers as the C runtime reads them.
#ifndef COMMON_NUMBERS_H_
#define COMMON_NUMBERS_H_

#include <string_view>

namespace common {

// atoi: leading white space and one sign are allowed, reading stops at the first character that is
// not a digit, and nothing to read gives 0. A number beyond int becomes the nearest int.
int ReadDecimal(std::string_view text);

// Whether `text` is exactly the decimal text of the number that it reads as: "40" is, "040", "1.5"
// and "4O" are not.
bool IsCanonicalDecimal(std::string_view text);

}  // namespace common

#endif  // COMMON_NUMBERS_H_
