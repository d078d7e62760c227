// An input that holds several texts has them one behind the other, separated by bytes of zero.
#ifndef FUZZ_FIELDS_H_
#define FUZZ_FIELDS_H_

#include <cstddef>
#include <string_view>

namespace fuzz {

// Cuts the first field off the front. The last one reaches to the end; behind it all are empty.
inline std::string_view TakeField(std::string_view& bytes) {
  const size_t end = bytes.find('\0');
  const std::string_view field = bytes.substr(0, end);
  bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  return field;
}

// A number from a field's bytes; zeros where it has fewer.
template <typename Number>
Number NumberOf(std::string_view field) {
  Number number{};
  field.copy(reinterpret_cast<char*>(&number), sizeof(number));
  return number;
}

}  // namespace fuzz

#endif  // FUZZ_FIELDS_H_
