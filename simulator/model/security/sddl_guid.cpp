#include "simulator/model/security/sddl_guid.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace simulator {
namespace {

// Where the bytes of a group of digits lie.
struct Group {
  size_t count;
  std::array<size_t, 6> bytes;
};
constexpr auto kGroups = std::to_array<Group>({
    {4, {3, 2, 1, 0}},
    {2, {5, 4}},
    {2, {7, 6}},
    {2, {8, 9}},
    {6, {10, 11, 12, 13, 14, 15}},
});

// Takes two hexadecimal digits if they come next.
std::optional<uint8_t> TakeHexByte(SddlCursor& text) {
  const std::string_view digits = text.rest().substr(0, 2);
  const char* const last = digits.data() + digits.size();
  uint8_t byte = 0;
  const auto [end, error] = std::from_chars(digits.data(), last, byte, 16);
  if (digits.size() != 2 || error != std::errc() || end != last) return std::nullopt;
  text.Take(digits.size());
  return byte;
}

}  // namespace

bool TakeGuid(SddlCursor& text, std::optional<Guid>* guid) {
  if (text.Peek() == ';') return true;
  guid->emplace();
  for (const Group& group : kGroups) {
    if (&group != kGroups.begin() && !text.Take("-")) return false;
    for (size_t i = 0; i < group.count; ++i) {
      const std::optional<uint8_t> byte = TakeHexByte(text);
      if (!byte) return false;
      (**guid)[group.bytes[i]] = *byte;
    }
  }
  return true;
}

std::string GuidText(const std::optional<Guid>& guid) {
  if (!guid) return "";
  std::string text;
  for (const Group& group : kGroups) {
    if (!text.empty()) text += '-';
    for (size_t i = 0; i < group.count; ++i) {
      constexpr std::string_view kDigits = "0123456789abcdef";
      const uint8_t byte = (*guid)[group.bytes[i]];
      text += kDigits[byte >> 4];
      text += kDigits[byte & 0xF];
    }
  }
  return text;
}

}  // namespace simulator
