// A line of the ACL backup file.
#include <algorithm>
#include <cstdint>
#include <string>

#include "acl/acl_backup.h"
#include "common/strings.h"
#include "fuzz/expect.h"
#include "fuzz/fields.h"
#include "fuzz/targets.h"

namespace fuzz {
namespace {

bool IsField(std::string_view text) {
  return !text.empty() && text.find_first_of("\"\r\n") == std::string_view::npos;
}

// A line as the preparation tool writes it gives back what was put in.
void ReadWellFormed(std::string_view path, int32_t attributes, std::string_view sddl) {
  const std::string line = "\"" + std::string(path) + "\"," + std::to_string(attributes) + ",\"" +
                           std::string(sddl) + "\"\r\n";
  const acl::AclBackupRecord record = acl::ParseAclLine(line);
  Expect(record.Path == path, "a path comes back");
  Expect(record.Attributes == attributes, "attributes come back");
  Expect(record.Sddl == common::ToUpperAscii(sddl), "a descriptor comes back in upper case");
}

}  // namespace

void AclLine(std::string_view bytes) {
  const acl::AclBackupRecord record = acl::ParseAclLine(bytes);
  Expect(record.Path.size() <= bytes.size() && record.Sddl.size() <= bytes.size(),
         "fields are parts of the line");
  Expect(record.Path.find('\0') == std::string::npos && record.Sddl.find('\0') == std::string::npos,
         "fields end before a zero byte");
  Expect(std::none_of(record.Sddl.begin(), record.Sddl.end(),
                      [](char c) { return c >= 'a' && c <= 'z'; }),
         "a descriptor is in upper case");

  const std::string_view path = TakeField(bytes);
  const std::string_view sddl = TakeField(bytes);
  if (IsField(path) && IsField(sddl)) ReadWellFormed(path, NumberOf<int32_t>(bytes), sddl);
}

}  // namespace fuzz
