// Literals in the conditions and resource attributes of a descriptor's text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_LITERALS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_LITERALS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/security/sddl_cursor.h"

namespace simulator {

struct SddlInteger {
  char sign = '\0';  // '+', '-' or none
  int base = 10;     // 8, 10, 16
  uint64_t magnitude = 0;

  uint64_t Value() const { return sign == '-' ? 0 - magnitude : magnitude; }
  bool FitsSigned() const;
};

// All take what they name when it comes next; nothing when it does not.
std::optional<SddlInteger> TakeInteger(SddlCursor& text);  // "-12", "0x1F", "017"
std::optional<std::string> TakeQuoted(SddlCursor& text);   // "\"VP\"", without the quotes
std::optional<std::string> TakeOctets(SddlCursor& text);   // "#01ff", as bytes
std::optional<uint8_t> TakeHexByte(SddlCursor& text);      // "1f"

std::string IntegerText(const SddlInteger& integer);
std::string OctetsText(std::string_view bytes);
std::string HexByteText(uint8_t byte);

// UTF-16, little-endian.
std::string Utf16Bytes(std::string_view utf8);
std::string Utf8FromUtf16Bytes(std::string_view bytes);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_LITERALS_H_
