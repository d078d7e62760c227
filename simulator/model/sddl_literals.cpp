#include "simulator/model/sddl_literals.h"

#include <charconv>
#include <cstddef>
#include <sstream>
#include <system_error>

#include "simulator/model/byte_reader.h"
#include "simulator/model/utf8.h"

namespace simulator {
namespace {

bool IsHighSurrogate(uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::optional<uint8_t> HexByte(std::string_view digits) {
  uint8_t byte = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, byte, 16);
  if (digits.size() != 2 || error != std::errc() || rest != end) return std::nullopt;
  return byte;
}

}  // namespace

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

std::optional<std::string> TakeOctets(SddlCursor& text) {
  SddlCursor ahead = text;
  if (!ahead.Take("#")) return std::nullopt;
  std::string bytes;
  while (const std::optional<uint8_t> byte = HexByte(ahead.rest().substr(0, 2))) {
    bytes += static_cast<char>(*byte);
    ahead.Take(2);
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

std::string OctetsText(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const char c : bytes) {
    const auto byte = static_cast<uint8_t>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

std::string Utf16Bytes(std::string_view utf8) {
  std::string bytes;
  for (const wchar_t character : WideFromUtf8(utf8)) {
    const auto value = static_cast<uint32_t>(character);  // NOLINT(*-signed-char*,cert-str34-c)
    if (value > 0xFFFF) {
      AppendNumber(static_cast<uint16_t>(0xD800 + ((value - 0x10000) >> 10)), bytes);
      AppendNumber(static_cast<uint16_t>(0xDC00 + ((value - 0x10000) & 0x3FF)), bytes);
    } else {
      AppendNumber(static_cast<uint16_t>(value), bytes);
    }
  }
  return bytes;
}

std::string Utf8FromUtf16Bytes(std::string_view bytes) {
  std::wstring wide;
  ByteReader reader(bytes);
  while (reader.rest().size() >= sizeof(uint16_t)) {
    uint32_t value = reader.Take<uint16_t>();
    const uint32_t low = ByteReader(reader.rest()).Take<uint16_t>();
    if (IsHighSurrogate(value) && IsLowSurrogate(low)) {
      reader.Take<uint16_t>();
      value = 0x10000 + ((value - 0xD800) << 10 | (low - 0xDC00));
    }
    wide += static_cast<wchar_t>(value);
  }
  return Utf8FromWide(wide);
}

}  // namespace simulator
