#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <sstream>
#include <string_view>
#include <system_error>

#include "simulator/model/security/sddl_parts.h"

namespace simulator {
namespace {

struct Right {
  std::string_view name;
  ACCESS_MASK mask;
};

// https://learn.microsoft.com/windows/win32/secauthz/ace-strings
constexpr auto kSingleRights = std::to_array<Right>({
    {"CC", 0x0001},
    {"DC", 0x0002},
    {"LC", 0x0004},
    {"SW", 0x0008},
    {"RP", 0x0010},
    {"WP", 0x0020},
    {"DT", 0x0040},
    {"LO", 0x0080},
    {"CR", 0x0100},
    {"SD", DELETE},
    {"RC", READ_CONTROL},
    {"WD", WRITE_DAC},
    {"WO", WRITE_OWNER},
    {"GA", GENERIC_ALL},
    {"GX", GENERIC_EXECUTE},
    {"GW", GENERIC_WRITE},
    {"GR", GENERIC_READ},
});

// Of files and of registry keys.
constexpr auto kCombinedRights = std::to_array<Right>({
    {"FA", FILE_ALL_ACCESS},
    {"FR", FILE_GENERIC_READ},
    {"FW", FILE_GENERIC_WRITE},
    {"FX", FILE_GENERIC_EXECUTE},
    {"KA", 0xF003F},
    {"KR", 0x20019},
    {"KW", 0x20006},
    {"KX", 0x20019},
});

constexpr auto kLabelRights = std::to_array<Right>({
    {"NW", SYSTEM_MANDATORY_LABEL_NO_WRITE_UP},
    {"NR", SYSTEM_MANDATORY_LABEL_NO_READ_UP},
    {"NX", SYSTEM_MANDATORY_LABEL_NO_EXECUTE_UP},
});

template <typename Rights>
bool TakeOneOf(const Rights& rights, SddlCursor& text, ACCESS_MASK* mask) {
  const auto found = std::find_if(rights.begin(), rights.end(),
                                  [&text](const Right& right) { return text.Take(right.name); });
  if (found == rights.end()) return false;
  *mask |= found->mask;
  return true;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool TakeNumber(SddlCursor& text, ACCESS_MASK* mask) {
  const bool is_negative = text.Take("-");
  int base = 10;
  if (text.Take("0x")) {
    base = 16;
  } else if (text.Peek() == '0') {
    base = 8;
  }
  const std::string_view rest = text.rest();
  uint32_t number = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number, base);
  if (error == std::errc::invalid_argument) return false;
  text.Take(static_cast<size_t>(end - rest.data()));
  if (error == std::errc::result_out_of_range) number = UINT32_MAX;
  *mask |= is_negative ? 0 - number : number;
  return true;
}

// Empty when a bit has no name.
template <typename Rights>
std::string NamesOf(const Rights& rights, ACCESS_MASK mask) {
  std::string names;
  for (const Right& right : rights) {
    if ((mask & right.mask) == 0) continue;
    names += right.name;
    mask &= ~right.mask;
  }
  return mask == 0 ? names : "";
}

}  // namespace

bool TakeRights(SddlCursor& text, ACCESS_MASK* mask) {
  *mask = 0;
  bool more = true;
  while (more) {
    if (IsDigit(text.Peek()) || text.Peek() == '-') {
      if (!TakeNumber(text, mask)) return false;
    } else {
      more = TakeOneOf(kSingleRights, text, mask) || TakeOneOf(kCombinedRights, text, mask) ||
             TakeOneOf(kLabelRights, text, mask);
    }
  }
  return true;
}

std::string RightsText(BYTE ace_type, ACCESS_MASK mask) {
  if (mask == 0) return "";
  const auto combined = std::find_if(kCombinedRights.begin(), kCombinedRights.end(),
                                     [mask](const Right& right) { return right.mask == mask; });
  if (combined != kCombinedRights.end()) return std::string(combined->name);
  std::string names = ace_type == SYSTEM_MANDATORY_LABEL_ACE_TYPE ? NamesOf(kLabelRights, mask)
                                                                  : NamesOf(kSingleRights, mask);
  if (!names.empty()) return names;
  std::ostringstream number;
  number << "0x" << std::hex << mask;
  return number.str();
}

}  // namespace simulator
