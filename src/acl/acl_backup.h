// The ACL backup file: ANSI text, one line for each file and folder of a volume.
//
//   "C:\Data\x.txt",32,"O:BAG:SYD:PAI(A;;FA;;;BA)"
#ifndef ACL_ACL_BACKUP_H_
#define ACL_ACL_BACKUP_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace acl {

struct AclBackupRecord {
  std::string Path;        // unchanged
  int32_t Attributes = 0;  // file attributes; 0 if they are not to be set
  std::string Sddl;        // the security descriptor in upper case
};

// Splits a line, with or without its line end, up to its first zero byte. Accepts any bytes: a line
// without the separators gives arbitrary or empty fields.
AclBackupRecord ParseAclLine(std::string_view line);

// Returns the parts of a descriptor in upper case as SECURITY_INFORMATION bits. The parts are
// searched for in the whole text: "O:" inside an ACE also sets OWNER_SECURITY_INFORMATION.
// https://learn.microsoft.com/windows/win32/secauthz/security-information
uint32_t SecurityInformationOf(std::string_view sddl);

}  // namespace acl

#endif  // ACL_ACL_BACKUP_H_
