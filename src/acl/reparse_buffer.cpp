#include "acl/reparse_buffer.h"

#include <cstddef>
#include <cstdint>

namespace acl {
namespace {

constexpr uint32_t kMountPointTag = 0xA0000003;
constexpr size_t kHeaderSize = 8;  // tag, data length, reserved
constexpr size_t kNamesSize = 8;   // offset and length of both names
constexpr size_t kTerminatorSize = 2;
constexpr size_t kMaximumSize = 16384;

void Append16(std::vector<unsigned char>& bytes, size_t value) {
  bytes.push_back(static_cast<unsigned char>(value & 0xFF));
  bytes.push_back(static_cast<unsigned char>(value >> 8 & 0xFF));
}

// Returns the text in UTF-16, for both widths of wchar_t.
std::vector<unsigned char> Utf16Bytes(std::wstring_view text) {
  constexpr uint32_t kFirstBehind16Bits = 0x10000;
  std::vector<unsigned char> bytes;
  bytes.reserve(2 * text.size());
  for (const wchar_t unit : text) {
    const auto code = static_cast<char32_t>(unit);
    if (code < kFirstBehind16Bits) {
      Append16(bytes, code);
    } else {
      Append16(bytes, 0xD800 + ((code - kFirstBehind16Bits) >> 10 & 0x3FF));
      Append16(bytes, 0xDC00 + (code & 0x3FF));
    }
  }
  return bytes;
}

}  // namespace

std::vector<unsigned char> MountPointReparseBuffer(std::wstring_view substitute_name) {
  const std::vector<unsigned char> name = Utf16Bytes(substitute_name);
  const size_t data_length = kNamesSize + name.size() + 2 * kTerminatorSize;
  if (kHeaderSize + data_length > kMaximumSize) return {};

  std::vector<unsigned char> buffer;
  buffer.reserve(kHeaderSize + data_length);
  Append16(buffer, kMountPointTag & 0xFFFF);
  Append16(buffer, kMountPointTag >> 16);
  Append16(buffer, data_length);
  Append16(buffer, 0);  // reserved
  Append16(buffer, 0);  // offset of the substitute name
  Append16(buffer, name.size());
  Append16(buffer, name.size() + kTerminatorSize);  // offset of the print name
  // Oddity: names in junctions, see docs/oddities.md.
  Append16(buffer, 0);
  buffer.insert(buffer.end(), name.begin(), name.end());
  Append16(buffer, 0);
  Append16(buffer, 0);
  return buffer;
}

}  // namespace acl
