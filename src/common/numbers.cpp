#include "common/numbers.h"

#include <charconv>
#include <limits>
#include <string>

namespace common {

int ReadDecimal(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t\n\v\f\r");
  if (first == std::string_view::npos) return 0;
  text.remove_prefix(first);
  // from_chars accepts a minus sign but not a plus sign.
  if (text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return 0;
  }
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc::result_out_of_range) {
    return text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  return number;
}

bool IsCanonicalDecimal(std::string_view text) { return std::to_string(ReadDecimal(text)) == text; }

}  // namespace common
