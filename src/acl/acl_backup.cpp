#include "acl/acl_backup.h"

#include "common/numbers.h"
#include "common/strings.h"

namespace acl {
namespace {

constexpr size_t kNone = std::string_view::npos;

// SECURITY_INFORMATION.
constexpr uint32_t kOwner = 0x00000001;
constexpr uint32_t kGroup = 0x00000002;
constexpr uint32_t kDacl = 0x00000004;
constexpr uint32_t kSacl = 0x00000008;
constexpr uint32_t kUnprotectedSacl = 0x10000000;
constexpr uint32_t kUnprotectedDacl = 0x20000000;
constexpr uint32_t kProtectedSacl = 0x40000000;
constexpr uint32_t kProtectedDacl = 0x80000000;

// Returns at most `length` characters of `text` from `start`; empty if `text` ends before.
std::string_view From(std::string_view text, size_t start, size_t length = kNone) {
  return start < text.size() ? text.substr(start, length) : std::string_view();
}

// Returns true if the control letters between "D:" or "S:", which ends at `start`, and the first
// ACE include P.
// Oddity: protection without entries, see docs/oddities.md.
bool IsProtected(std::string_view sddl, size_t start) {
  const size_t first_entry = sddl.find('(', start);
  return first_entry != kNone && sddl.substr(start, first_entry - start).find('P') != kNone;
}

}  // namespace

AclBackupRecord ParseAclLine(std::string_view line) {
  line = line.substr(0, line.find('\0'));
  // The trims below would return a line end alone unchanged, but an empty line has no path.
  if (line.find_first_not_of("\r\n") == kNone) return {};
  const std::string_view text = common::TrimLeft(common::TrimRight(line, "\r\n\""), "\"");

  // Oddity: line without separators, see docs/oddities.md.
  const size_t path_end = text.find("\",");
  const size_t attributes_end = text.find(",\"", path_end + 1);
  AclBackupRecord record;
  record.Path = text.substr(0, path_end);
  // Oddity: comma in the attributes, see docs/oddities.md.
  record.Attributes = common::ReadDecimal(From(text, path_end + 2, attributes_end - path_end - 1));
  // Oddity: upper-case descriptor, see docs/oddities.md.
  record.Sddl = common::ToUpperAscii(From(text, attributes_end + 2));
  return record;
}

uint32_t SecurityInformationOf(std::string_view sddl) {
  // Oddity: parts found anywhere, see docs/oddities.md.
  // Oddity: labels in the SACL, see docs/oddities.md.
  uint32_t parts = 0;
  for (size_t colon = sddl.find(':', 1); colon != kNone; colon = sddl.find(':', colon + 1)) {
    const char name = sddl[colon - 1];
    if (name == 'O') parts |= kOwner;
    if (name == 'G') parts |= kGroup;
    // The first of each kind decides.
    if (name == 'D' && (parts & kDacl) == 0) {
      parts |= kDacl | (IsProtected(sddl, colon + 1) ? kProtectedDacl : kUnprotectedDacl);
    }
    if (name == 'S' && (parts & kSacl) == 0) {
      parts |= kSacl | (IsProtected(sddl, colon + 1) ? kProtectedSacl : kUnprotectedSacl);
    }
  }
  return parts;
}

}  // namespace acl
