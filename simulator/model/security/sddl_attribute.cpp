#include "simulator/model/security/sddl_attribute.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <vector>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/security/account_domains.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_literals.h"
#include "simulator/model/security/sddl_sids.h"

namespace simulator {
namespace {

struct ValueType {
  std::string_view name;
  WORD number;
};

constexpr WORD kSigned = 1;
constexpr WORD kUnsigned = 2;
constexpr WORD kText = 3;
constexpr WORD kSid = 5;
constexpr WORD kBoolean = 6;
constexpr WORD kOctets = 16;

constexpr auto kValueTypes = std::to_array<ValueType>({{"TI", kSigned},
                                                       {"TU", kUnsigned},
                                                       {"TS", kText},
                                                       {"TD", kSid},
                                                       {"TB", kBoolean},
                                                       {"TX", kOctets}});

constexpr size_t kHeader = 16;  // name, type, reserved, flags, number of values

std::string Sized(const std::string& value) {
  std::string bytes;
  AppendNumber(static_cast<DWORD>(value.size()), bytes);
  return bytes + value;
}

std::string Terminated(std::string_view text) {
  return Utf16Bytes(text) + std::string(sizeof(uint16_t), '\0');
}

std::optional<std::string> TakeNumber(SddlCursor& text, WORD type) {
  const std::optional<SddlInteger> integer = TakeInteger(text);
  if (!integer || (type == kSigned && !integer->FitsSigned()) ||
      (type != kSigned && integer->sign == '-') || (type == kBoolean && integer->magnitude > 1)) {
    return std::nullopt;
  }
  std::string bytes;
  AppendNumber(integer->Value(), bytes);
  return bytes;
}

std::optional<std::string> TakeValue(SddlCursor& text, WORD type, const AccountDomains& domains) {
  if (type == kText) {
    const std::optional<std::string> quoted = TakeQuoted(text);
    return quoted ? std::optional(Terminated(*quoted)) : std::nullopt;
  }
  if (type == kOctets) {
    const std::optional<std::string> octets = TakeOctets(text);
    return octets ? std::optional(Sized(*octets)) : std::nullopt;
  }
  if (type != kSid) return TakeNumber(text, type);
  Sid sid;
  const bool is_wrapped = text.Take("SID(");
  if (TakeSid(text, domains, &sid) != ERROR_SUCCESS) return std::nullopt;
  if (is_wrapped && !text.Take(")")) return std::nullopt;
  return Sized(SidBytes(sid));
}

// Takes a comma and the blanks about it.
bool TakeComma(SddlCursor& text) {
  text.SkipBlanks();
  const bool is_comma = text.Take(",");
  text.SkipBlanks();
  return is_comma;
}

std::string Layout(const std::string& name, WORD type, DWORD flags,
                   const std::vector<std::string>& values) {
  std::string offsets;
  std::string data;
  const size_t start = kHeader + values.size() * sizeof(DWORD);
  const auto place = [&data, start](const std::string& part) {
    const size_t offset = start + data.size();
    data += part;
    data.resize((data.size() + 3) / 4 * 4);
    return static_cast<DWORD>(offset);
  };
  std::string header;
  AppendNumber(place(Terminated(name)), header);
  AppendNumber(type, header);
  AppendNumber(WORD{0}, header);
  AppendNumber(flags, header);
  AppendNumber(static_cast<DWORD>(values.size()), header);
  for (const std::string& value : values) AppendNumber(place(value), offsets);
  return header + offsets + data;
}

std::optional<std::string_view> From(std::string_view bytes, DWORD offset) {
  if (offset > bytes.size()) return std::nullopt;
  return bytes.substr(offset);
}

std::optional<std::string> QuotedText(std::string_view bytes) {
  for (size_t size = 0; size + 1 < bytes.size(); size += sizeof(uint16_t)) {
    if (bytes[size] == '\0' && bytes[size + 1] == '\0') {
      return '"' + Utf8FromUtf16Bytes(bytes.substr(0, size)) + '"';
    }
  }
  return std::nullopt;
}

std::optional<std::string> ValueText(std::string_view bytes, WORD type,
                                     const AccountDomains& domains) {
  if (type == kText) return QuotedText(bytes);
  ByteReader reader(bytes);
  if (type == kSid || type == kOctets) {
    const auto size = reader.Take<DWORD>();
    const std::string_view value = reader.Take(size);
    if (!reader.ok()) return std::nullopt;
    if (type == kOctets) return OctetsText(value);
    const std::optional<Sid> sid = ReadSid(value);
    return sid ? std::optional(ShortSidText(*sid, domains)) : std::nullopt;
  }
  const auto number = reader.Take<uint64_t>();
  if (!reader.ok()) return std::nullopt;
  return type == kSigned ? std::to_string(static_cast<int64_t>(number)) : std::to_string(number);
}

}  // namespace

std::optional<std::string> TakeAttribute(SddlCursor& text, const AccountDomains& domains) {
  if (!text.Take("(")) return std::nullopt;
  text.SkipBlanks();
  const std::optional<std::string> name = TakeQuoted(text);
  if (!name || name->empty() || !TakeComma(text)) return std::nullopt;
  const auto type = std::find_if(kValueTypes.begin(), kValueTypes.end(),
                                 [&text](const ValueType& known) { return text.Take(known.name); });
  if (type == kValueTypes.end() || !TakeComma(text)) return std::nullopt;
  const std::optional<SddlInteger> flags = TakeInteger(text);
  if (!flags || flags->sign != '\0' || flags->magnitude > UINT32_MAX) return std::nullopt;
  std::vector<std::string> values;
  while (TakeComma(text)) {
    const std::optional<std::string> value = TakeValue(text, type->number, domains);
    if (!value) return std::nullopt;
    values.push_back(*value);
  }
  if (!text.Take(")")) return std::nullopt;
  return Layout(*name, type->number, static_cast<DWORD>(flags->magnitude), values);
}

std::optional<std::string> AttributeText(std::string_view bytes, const AccountDomains& domains) {
  ByteReader header(bytes);
  const auto name_offset = header.Take<DWORD>();
  const auto number = header.Take<WORD>();
  header.Take<WORD>();
  const auto flags = header.Take<DWORD>();
  const auto count = header.Take<DWORD>();
  const auto type =
      std::find_if(kValueTypes.begin(), kValueTypes.end(),
                   [number](const ValueType& known) { return known.number == number; });
  const auto name_bytes = From(bytes, name_offset);
  if (!header.ok() || type == kValueTypes.end() || !name_bytes) return std::nullopt;
  const std::optional<std::string> name = QuotedText(*name_bytes);
  if (!name) return std::nullopt;

  std::ostringstream text;
  text << '(' << *name << ',' << type->name << ",0x" << std::hex << flags;
  for (DWORD i = 0; i < count; ++i) {
    const auto value_bytes = From(bytes, header.Take<DWORD>());
    if (!header.ok() || !value_bytes) return std::nullopt;
    const std::optional<std::string> value = ValueText(*value_bytes, number, domains);
    if (!value) return std::nullopt;
    text << ',' << *value;
  }
  text << ')';
  return text.str();
}

}  // namespace simulator
