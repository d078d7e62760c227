// Text in columns. Widths are counted in UTF-8 characters.
#ifndef SIMULATOR_TOOLS_COLUMNS_H_
#define SIMULATOR_TOOLS_COLUMNS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace simulator {

size_t CharacterCount(std::string_view text);

// Returns the text truncated to `width` characters, or padded with spaces on the right.
std::string LeftColumn(std::string_view text, size_t width);

// Returns the text padded with spaces on the left to `width` characters. Longer text is not
// truncated.
std::string RightColumn(std::string_view text, size_t width);

// Returns a size as the disk tool prints it: "0 B", "1024 KB", "8189 MB", "931 GB". The size is
// rounded down, in the smallest unit (each 1,024 times the previous one) that needs at most four
// digits.
std::string SizeText(uint64_t bytes);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_COLUMNS_H_
