#include "common/strings.h"

#include <array>
#include <cstdio>

namespace common {
namespace {

// Both convert in place, and store only what changes: most of a descriptor is upper case already.
void ToUpper(char& character) {
  if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 0x20);
}

void ToLower(char& character) {
  if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 0x20);
}

}  // namespace

void Split(std::string_view text, std::string_view separator, std::vector<std::string>& pieces) {
  size_t position = 0;
  if (!separator.empty()) {
    for (size_t found = text.find(separator); found != std::string_view::npos;
         found = text.find(separator, position)) {
      pieces.emplace_back(text.substr(position, found - position));
      position = found + separator.size();
    }
  }
  if (position != text.size()) pieces.emplace_back(text.substr(position));
}

std::string TrimSpaces(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

// Oddity: trims that leave a text, see docs/oddities.md.
std::string_view TrimLeft(std::string_view text, std::string_view set) {
  const size_t first = text.find_first_not_of(set);
  return first == std::string_view::npos ? text : text.substr(first);
}

// Oddity: trims that leave a text, see docs/oddities.md.
std::string_view TrimRight(std::string_view text, std::string_view set) {
  const size_t last = text.find_last_not_of(set);
  return last == std::string_view::npos ? text : text.substr(0, last + 1);
}

std::string ToUpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) ToUpper(character);
  return upper;
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& character : lower) ToLower(character);
  return lower;
}

std::string ToDecimal(uint32_t number) { return std::to_string(number); }

std::string FormatFixed2(double number) {
  std::array<char, 64> buffer{};
  const std::string format = "%." + ToDecimal(2) + "lf";
  // 1e308 has 309 digits; a text that does not fit into the buffer is truncated.
  std::snprintf(buffer.data(), buffer.size(), format.c_str(), number);
  return buffer.data();
}

}  // namespace common
