// The reparse data of a junction.
#ifndef ACL_REPARSE_BUFFER_H_
#define ACL_REPARSE_BUFFER_H_

#include <string_view>
#include <vector>

namespace acl {

// Returns a little-endian mount-point reparse buffer with an empty print name. Empty if the
// substitute name does not fit into the 16,384 bytes that the system allows.
// https://learn.microsoft.com/windows-hardware/drivers/ddi/ntifs/ns-ntifs-_reparse_data_buffer
std::vector<unsigned char> MountPointReparseBuffer(std::wstring_view substitute_name);

}  // namespace acl

#endif  // ACL_REPARSE_BUFFER_H_
