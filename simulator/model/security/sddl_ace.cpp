#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/security/sddl_parts.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {
namespace {

struct Name {
  std::string_view text;
  BYTE value;
};

// https://learn.microsoft.com/windows/win32/secauthz/ace-strings
constexpr auto kTypes = std::to_array<Name>({
    {"A", ACCESS_ALLOWED_ACE_TYPE},
    {"D", ACCESS_DENIED_ACE_TYPE},
    {"AU", SYSTEM_AUDIT_ACE_TYPE},
    {"AL", SYSTEM_ALARM_ACE_TYPE},
    {"OA", ACCESS_ALLOWED_OBJECT_ACE_TYPE},
    {"OD", ACCESS_DENIED_OBJECT_ACE_TYPE},
    {"OU", SYSTEM_AUDIT_OBJECT_ACE_TYPE},
    {"OL", SYSTEM_ALARM_OBJECT_ACE_TYPE},
    {"XA", ACCESS_ALLOWED_CALLBACK_ACE_TYPE},
    {"XD", ACCESS_DENIED_CALLBACK_ACE_TYPE},
    {"ZA", ACCESS_ALLOWED_CALLBACK_OBJECT_ACE_TYPE},
    {"XU", SYSTEM_AUDIT_CALLBACK_ACE_TYPE},
    {"ML", SYSTEM_MANDATORY_LABEL_ACE_TYPE},
    {"RA", SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE},
    {"SP", SYSTEM_SCOPED_POLICY_ID_ACE_TYPE},
});

constexpr auto kFlags = std::to_array<Name>({
    {"OI", OBJECT_INHERIT_ACE},
    {"CI", CONTAINER_INHERIT_ACE},
    {"NP", NO_PROPAGATE_INHERIT_ACE},
    {"IO", INHERIT_ONLY_ACE},
    {"ID", INHERITED_ACE},
    {"SA", SUCCESSFUL_ACCESS_ACE_FLAG},
    {"FA", FAILED_ACCESS_ACE_FLAG},
});

// Whether a text in parentheses follows the SID: a condition, or the resource attribute. It is not
// evaluated and not taken apart.
bool HasData(BYTE type) {
  return type == ACCESS_ALLOWED_CALLBACK_ACE_TYPE || type == ACCESS_DENIED_CALLBACK_ACE_TYPE ||
         type == ACCESS_ALLOWED_CALLBACK_OBJECT_ACE_TYPE ||
         type == SYSTEM_AUDIT_CALLBACK_ACE_TYPE || type == SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE;
}

// The blanks before a field count for nothing, those behind it are wrong.
bool TakeSeparator(SddlCursor& text) {
  const bool is_separator = text.Take(";");
  text.SkipBlanks();
  return is_separator;
}

bool TakeType(SddlCursor& text, BYTE* type) {
  const std::string_view word = text.TakeWhile([](char c) { return c != ';'; });
  const auto found = std::find_if(kTypes.begin(), kTypes.end(), [word](const Name& known) {
    return IsSameWord(known.text, word);
  });
  if (found == kTypes.end()) return false;
  *type = found->value;
  return true;
}

void TakeFlags(SddlCursor& text, BYTE* flags) {
  const auto take_one = [&text, flags](const Name& flag) {
    if (!text.Take(flag.text)) return false;
    *flags = static_cast<BYTE>(*flags | flag.value);
    return true;
  };
  while (std::any_of(kFlags.begin(), kFlags.end(), take_one)) {
  }
}

// Takes a parenthesis and all up to the one that closes it; nothing if none does. Those between
// quotation marks do not count.
std::string_view TakeBracketed(SddlCursor& text) {
  int depth = 0;
  bool is_quoted = false;
  const std::string_view rest = text.rest();
  for (size_t i = 0; i < rest.size(); ++i) {
    if (rest[i] == '"') is_quoted = !is_quoted;
    if (!is_quoted && rest[i] == '(') ++depth;
    if (!is_quoted && rest[i] == ')') --depth;
    if (depth == 0) return text.Take(rest.front() == '(' ? i + 1 : 0);
  }
  return {};
}

// Kept as it came, with the zeros that fill the last DWORD up.
bool TakeData(SddlCursor& text, Ace* ace) {
  if (!HasData(ace->type)) return true;
  if (!TakeSeparator(text)) return false;
  ace->data = TakeBracketed(text);
  if (ace->data.empty()) return false;
  ace->data.resize((ace->data.size() + sizeof(DWORD) - 1) / sizeof(DWORD) * sizeof(DWORD));
  text.SkipBlanks();
  return true;
}

std::string DataText(const Ace& ace) {
  if (!HasData(ace.type)) return "";
  const std::string text = ace.data.substr(0, ace.data.find_last_not_of('\0') + 1);
  SddlCursor cursor(text);
  if (TakeBracketed(cursor).empty() || !cursor.AtEnd()) {
    Unsupported("the data of an entry of type " + std::to_string(ace.type));
  }
  return ";" + text;
}

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

// Reads "bf967aba-0de6-11d0-a285-00aa003049e2", or an empty field before the next separator.
// Returns false if the text is neither.
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

// Empty for none.
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

}  // namespace

DWORD TakeAce(SddlCursor& text, const AccountDomains& domains, Ace* ace) {
  if (!text.Take("(")) return ERROR_INVALID_ACL;
  text.SkipBlanks();
  if (!TakeType(text, &ace->type) || !TakeSeparator(text)) return ERROR_INVALID_ACL;
  TakeFlags(text, &ace->flags);
  if (!TakeSeparator(text)) return ERROR_INVALID_ACL;
  if (!TakeRights(text, &ace->mask) || !TakeSeparator(text)) return ERROR_INVALID_ACL;
  if (!TakeGuid(text, &ace->object_type) || !TakeSeparator(text)) return ERROR_INVALID_ACL;
  if (!TakeGuid(text, &ace->inherited_object_type) || !TakeSeparator(text)) {
    return ERROR_INVALID_ACL;
  }
  if ((ace->object_type || ace->inherited_object_type) && !IsObjectAce(ace->type)) {
    return ERROR_INVALID_ACL;
  }
  const DWORD error = TakeSid(text, domains, &ace->sid);
  if (error != ERROR_SUCCESS) return error;
  text.SkipBlanks();
  return TakeData(text, ace) && text.Take(")") ? ERROR_SUCCESS : ERROR_INVALID_ACL;
}

std::string AceText(const Ace& ace, const AccountDomains& domains) {
  const auto type = std::find_if(kTypes.begin(), kTypes.end(),
                                 [&ace](const Name& known) { return known.value == ace.type; });
  if (type == kTypes.end()) Unsupported("an entry of type " + std::to_string(ace.type));
  std::string flags;
  for (const Name& flag : kFlags) {
    if ((ace.flags & flag.value) != 0) flags += flag.text;
  }
  return "(" + std::string(type->text) + ";" + flags + ";" + RightsText(ace.type, ace.mask) + ";" +
         GuidText(ace.object_type) + ";" + GuidText(ace.inherited_object_type) + ";" +
         ShortSidText(ace.sid, domains) + DataText(ace) + ")";
}

}  // namespace simulator
