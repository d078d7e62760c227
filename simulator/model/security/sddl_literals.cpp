#include "simulator/model/security/sddl_literals.h"

#include <charconv>
#include <cstddef>
#include <sstream>
#include <system_error>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/common/utf8.h"

namespace simulator {

bool SddlInteger::FitsSigned() const {
  return magnitude <= uint64_t{INT64_MAX} + (sign == '-' ? 1 : 0);
}

std::optional<SddlInteger> TakeInteger(SddlCursor& text) {
  SddlInteger integer;
  SddlCursor ahead = text;
  if (ahead.Peek() == '+' || ahead.Peek() == '-') integer.sign = ahead.Take(1).front();
  if (ahead.Take("0x")) {
    integer.base = 16;
  } else if (ahead.Peek() == '0') {
    integer.base = 8;
  }
  const std::string_view rest = ahead.rest();
  const auto [end, error] =
      std::from_chars(rest.data(), rest.data() + rest.size(), integer.magnitude, integer.base);
  if (error != std::errc()) return std::nullopt;
  ahead.Take(static_cast<size_t>(end - rest.data()));
  if (integer.magnitude == 0 && integer.base == 8) integer.base = 10;
  text = ahead;
  return integer;
}

std::optional<std::string> TakeQuoted(SddlCursor& text) {
  SddlCursor ahead = text;
  if (!ahead.Take("\"")) return std::nullopt;
  const std::string_view quoted = ahead.TakeWhile([](char c) { return c != '"' && c != '\0'; });
  if (!ahead.Take("\"")) return std::nullopt;
  text = ahead;
  return std::string(quoted);
}

std::optional<uint8_t> TakeHexByte(SddlCursor& text) {
  const std::string_view digits = text.rest().substr(0, 2);
  const char* const last = digits.data() + digits.size();
  uint8_t byte = 0;
  const auto [end, error] = std::from_chars(digits.data(), last, byte, 16);
  if (digits.size() != 2 || error != std::errc() || end != last) return std::nullopt;
  text.Take(digits.size());
  return byte;
}

std::optional<std::string> TakeOctets(SddlCursor& text) {
  SddlCursor ahead = text;
  if (!ahead.Take("#")) return std::nullopt;
  std::string bytes;
  while (const std::optional<uint8_t> byte = TakeHexByte(ahead)) {
    bytes += static_cast<char>(*byte);
  }
  text = ahead;
  return bytes;
}

std::string IntegerText(const SddlInteger& integer) {
  std::ostringstream text;
  if (integer.sign != '\0') text << integer.sign;
  if (integer.base == 16) text << "0x" << std::hex;
  if (integer.base == 8) text << '0' << std::oct;
  text << integer.magnitude;
  return text.str();
}

std::string HexByteText(uint8_t byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  return {kDigits[byte >> 4], kDigits[byte & 0xF]};
}

std::string OctetsText(std::string_view bytes) {
  std::string text = "#";
  for (const char c : bytes) text += HexByteText(static_cast<uint8_t>(c));
  return text;
}

std::string Utf16Bytes(std::string_view utf8) {
  std::string bytes;
  for (const char16_t unit : Utf16FromUtf8(utf8)) AppendNumber(uint16_t{unit}, bytes);
  return bytes;
}

std::string Utf8FromUtf16Bytes(std::string_view bytes) {
  std::u16string units;
  ByteReader reader(bytes);
  while (reader.rest().size() >= sizeof(char16_t)) units += reader.Take<char16_t>();
  return Utf8FromUtf16(units);
}

}  // namespace simulator
