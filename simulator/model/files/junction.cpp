#include "simulator/model/files/junction.h"

#include <cstddef>
#include <cstring>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"

namespace simulator {
namespace {

struct Header {
  DWORD tag;
  WORD data_length;  // what follows the header
  WORD reserved;
};

struct Names {
  WORD substitute_offset;
  WORD substitute_length;
  WORD print_offset;
  WORD print_length;
};

constexpr size_t kNamesOffset = sizeof(Header) + sizeof(Names);
constexpr auto kLargestBuffer = static_cast<size_t>(MAXIMUM_REPARSE_DATA_BUFFER_SIZE);
constexpr size_t kUnit = sizeof(char16_t);  // names are UTF-16, whatever a WCHAR is on this host
constexpr DWORD kFirstTag = 2;              // those before are reserved

template <typename Value>
Value Read(std::string_view bytes, size_t offset) {
  Value value;
  std::memcpy(&value, bytes.data() + offset, sizeof(value));
  return value;
}

// A junction's names lie as Windows wants them: the substitute name first, its terminator, the
// print name, its terminator, and nothing else.
bool HasJunctionLayout(std::string_view buffer) {
  if (buffer.size() < kNamesOffset) return false;
  const auto names = Read<Names>(buffer, sizeof(Header));
  const size_t length = size_t{names.substitute_length} + names.print_length + 2 * kUnit;
  return names.substitute_offset == 0 && buffer.size() == kNamesOffset + length &&
         names.print_offset == names.substitute_length + kUnit;
}

}  // namespace

std::string JunctionBuffer(std::string_view target) {
  const std::u16string name = Utf16FromUtf8(std::string(kNtPrefix) + std::string(target));
  const size_t size = name.size() * kUnit;
  const size_t data_length = sizeof(Names) + size + 2 * kUnit;
  if (sizeof(Header) + data_length > kLargestBuffer) {
    Unsupported("a junction to a path that long");
  }
  const Header header = {IO_REPARSE_TAG_MOUNT_POINT, static_cast<WORD>(data_length), 0};
  const Names names = {0, static_cast<WORD>(size), static_cast<WORD>(size + kUnit), 0};
  std::string buffer(sizeof(header) + data_length, '\0');
  std::memcpy(buffer.data(), &header, sizeof(header));
  std::memcpy(buffer.data() + sizeof(header), &names, sizeof(names));
  std::memcpy(buffer.data() + kNamesOffset, name.data(), size);
  return buffer;
}

DWORD CheckReparseBuffer(std::string_view buffer) {
  if (buffer.size() < sizeof(Header) || buffer.size() > kLargestBuffer) {
    return ERROR_INVALID_REPARSE_DATA;
  }
  const auto header = Read<Header>(buffer, 0);
  if (sizeof(Header) + header.data_length != buffer.size()) return ERROR_INVALID_REPARSE_DATA;
  if (header.tag < kFirstTag) return ERROR_REPARSE_TAG_INVALID;
  if (header.tag != IO_REPARSE_TAG_MOUNT_POINT) Unsupported("a reparse point but a junction");
  return HasJunctionLayout(buffer) ? ERROR_SUCCESS : ERROR_INVALID_REPARSE_DATA;
}

DWORD ReparseTag(std::string_view buffer) {
  return buffer.size() < sizeof(Header) ? 0 : Read<Header>(buffer, 0).tag;
}

std::optional<std::string> SubstituteName(std::string_view buffer) {
  if (ReparseTag(buffer) != IO_REPARSE_TAG_MOUNT_POINT || !HasJunctionLayout(buffer)) {
    return std::nullopt;
  }
  const size_t length = Read<Names>(buffer, sizeof(Header)).substitute_length;
  std::u16string name(length / kUnit, u'\0');
  std::memcpy(name.data(), buffer.data() + kNamesOffset, name.size() * kUnit);
  return Utf8FromUtf16(name);
}

}  // namespace simulator
