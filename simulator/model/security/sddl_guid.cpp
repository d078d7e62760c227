#include "simulator/model/security/sddl_guid.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "simulator/model/security/sddl_literals.h"

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
    for (size_t i = 0; i < group.count; ++i) text += HexByteText((*guid)[group.bytes[i]]);
  }
  return text;
}

}  // namespace simulator
