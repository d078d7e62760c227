#include "simulator/model/common/utf8.h"

#include <cstdint>

namespace simulator {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;
constexpr uint32_t kFirstPair = 0x10000;  // what takes two units of UTF-16 begins here
constexpr uint32_t kHighSurrogate = 0xD800;
constexpr uint32_t kLowSurrogate = 0xDC00;

struct Range {
  uint8_t low;
  uint8_t high;
};

// Decoded here and not by a library: Windows puts one U+FFFD for each longest piece that could have
// begun a character, three for E0 80 80, where utfcpp puts one for the whole sequence.

// The bytes that may follow a lead byte at once: overlong forms, surrogates and what lies beyond
// U+10FFFF are refused there.
Range SecondByte(uint8_t lead) {
  switch (lead) {
    case 0xE0:
      return {0xA0, 0xBF};
    case 0xED:
      return {0x80, 0x9F};
    case 0xF0:
      return {0x90, 0xBF};
    case 0xF4:
      return {0x80, 0x8F};
    default:
      return {0x80, 0xBF};
  }
}

// The number of bytes that follow the lead byte; -1 when no character begins with it.
int Followers(uint8_t lead) {
  if (lead < 0x80) return 0;
  if (lead < 0xC2) return -1;
  if (lead < 0xE0) return 1;
  if (lead < 0xF0) return 2;
  return lead < 0xF5 ? 3 : -1;
}

// Takes one character, or the piece that could have begun one, off the front.
wchar_t TakeCharacter(std::string_view& text) {
  const uint8_t lead = static_cast<uint8_t>(text.front());
  text.remove_prefix(1);
  const int followers = Followers(lead);
  if (followers < 0) return kReplacement;
  if (followers == 0) return static_cast<wchar_t>(lead);

  uint32_t value = lead & (0x3Fu >> followers);
  Range range = SecondByte(lead);
  for (int i = 0; i < followers; ++i) {
    if (text.empty()) return kReplacement;
    const uint8_t byte = static_cast<uint8_t>(text.front());
    if (byte < range.low || byte > range.high) return kReplacement;
    text.remove_prefix(1);
    value = value << 6 | (byte & 0x3Fu);
    range = {0x80, 0xBF};
  }
  return static_cast<wchar_t>(value);
}

// Takes a unit, or a pair of surrogates, off the front.
uint32_t TakeCharacter(std::u16string_view& text) {
  const auto is_surrogate = [&text](size_t i, uint32_t first) {
    return i < text.size() && text[i] >= first && text[i] < first + 0x400;
  };
  uint32_t value = text.front();
  size_t taken = 1;
  if (is_surrogate(0, kHighSurrogate) && is_surrogate(1, kLowSurrogate)) {
    value = kFirstPair + ((value - kHighSurrogate) << 10) + (text[1] - kLowSurrogate);
    taken = 2;
  }
  text.remove_prefix(taken);
  return value;
}

// A surrogate, and what lies beyond U+10FFFF, is no character.
void AppendCharacter(uint32_t value, std::string& text) {
  if ((value >= kHighSurrogate && value < 0xE000) || value > 0x10FFFF) {
    value = static_cast<uint32_t>(kReplacement);
  }
  const auto append = [&text](uint32_t byte) { text += static_cast<char>(byte); };
  const auto follow = [&append, value](int shift) { append(0x80 | (value >> shift & 0x3F)); };
  if (value < 0x80) {
    append(value);
  } else if (value < 0x800) {
    append(0xC0 | value >> 6);
    follow(0);
  } else if (value < 0x10000) {
    append(0xE0 | value >> 12);
    follow(6);
    follow(0);
  } else {
    append(0xF0 | value >> 18);
    follow(12);
    follow(6);
    follow(0);
  }
}

}  // namespace

std::wstring WideFromUtf8(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) wide += TakeCharacter(text);
  return wide;
}

std::string Utf8FromWide(std::wstring_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const wchar_t unit : text) {
    const auto value = static_cast<uint32_t>(unit);  // NOLINT(*-signed-char*,cert-str34-c): no char
    AppendCharacter(value, utf8);
  }
  return utf8;
}

std::u16string Utf16FromUtf8(std::string_view text) {
  std::u16string units;
  while (!text.empty()) {
    const auto value = static_cast<char32_t>(TakeCharacter(text));
    if (value < kFirstPair) {
      units += static_cast<char16_t>(value);
    } else {
      units += static_cast<char16_t>(kHighSurrogate + ((value - kFirstPair) >> 10));
      units += static_cast<char16_t>(kLowSurrogate + ((value - kFirstPair) & 0x3FF));
    }
  }
  return units;
}

std::string Utf8FromUtf16(std::u16string_view text) {
  std::string utf8;
  while (!text.empty()) AppendCharacter(TakeCharacter(text), utf8);
  return utf8;
}

size_t Utf16Length(std::string_view utf8) {
  size_t units = 0;
  while (!utf8.empty()) units += TakeCharacter(utf8) >= static_cast<wchar_t>(kFirstPair) ? 2 : 1;
  return units;
}

}  // namespace simulator
