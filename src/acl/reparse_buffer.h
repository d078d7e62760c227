// The bytes that make a directory a junction.
#ifndef ACL_REPARSE_BUFFER_H_
#define ACL_REPARSE_BUFFER_H_

#include <string_view>
#include <vector>

namespace acl {

// A mount-point reparse buffer, little-endian, with an empty print name. Empty when the substitute
// name is too long for the 16,384 bytes that the system allows.
// https://learn.microsoft.com/windows-hardware/drivers/ddi/ntifs/ns-ntifs-_reparse_data_buffer
std::vector<unsigned char> MountPointReparseBuffer(std::wstring_view substitute_name);

}  // namespace acl

#endif  // ACL_REPARSE_BUFFER_H_
