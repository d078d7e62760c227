// An input that contains several texts stores them one after another, separated by NUL bytes.
#ifndef FUZZ_FIELDS_H_
#define FUZZ_FIELDS_H_

#include <cstddef>
#include <string_view>

namespace fuzz {

// Removes the first field from `bytes` and returns it. The last field extends to the end of the
// input; every further call returns an empty field.
inline std::string_view TakeField(std::string_view& bytes) {
  const size_t end = bytes.find('\0');
  const std::string_view field = bytes.substr(0, end);
  bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  return field;
}

// Returns the bytes of a field as a number. Missing bytes are read as zero.
template <typename Number>
Number NumberOf(std::string_view field) {
  Number number{};
  field.copy(reinterpret_cast<char*>(&number), sizeof(number));
  return number;
}

}  // namespace fuzz

#endif  // FUZZ_FIELDS_H_
