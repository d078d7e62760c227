// The ACL backup file: one line for each file and folder of a volume, in the ANSI code page.
//
//   "C:\Data\x.txt",32,"O:BAG:SYD:PAI(A;;FA;;;BA)"
#ifndef ACL_ACL_BACKUP_H_
#define ACL_ACL_BACKUP_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace acl {

struct AclBackupRecord {
  std::string Path;        // as it stands in the file
  int32_t Attributes = 0;  // file attribute bits; 0 leaves those of the object alone
  std::string Sddl;        // a security descriptor in upper case
};

// Takes a line apart, up to its first zero byte, with or without its line end. Any bytes will do: a
// line without the separators gives whatever lies where the fields were to be, at worst nothing.
AclBackupRecord ParseAclLine(std::string_view line);

// The parts of a descriptor that its upper-case text names, as SECURITY_INFORMATION bits. The names
// are looked for anywhere in the text: an "O:" inside an entry counts as an owner, too.
// https://learn.microsoft.com/windows/win32/secauthz/security-information
uint32_t SecurityInformationOf(std::string_view sddl);

}  // namespace acl

#endif  // ACL_ACL_BACKUP_H_
