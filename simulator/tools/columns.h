// Text in columns, counted in characters of UTF-8.
#ifndef SIMULATOR_TOOLS_COLUMNS_H_
#define SIMULATOR_TOOLS_COLUMNS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace simulator {

size_t CharacterCount(std::string_view text);

// The text cut to `width` characters, or filled up with blanks to that many.
std::string LeftColumn(std::string_view text, size_t width);

// The text behind as many blanks as make `width` characters; longer text is kept whole.
std::string RightColumn(std::string_view text, size_t width);

// A size as the disk tool writes it: "0 B", "1024 KB", "8189 MB", "931 GB". Rounded down, in the
// smallest unit (of 1,024 each) that needs no more than four digits.
std::string SizeText(uint64_t bytes);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_COLUMNS_H_
