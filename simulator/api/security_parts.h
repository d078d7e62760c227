// The parts of security descriptors in the program's memory. Each part contains its own length; the
// end of the memory is unknown.
#ifndef SIMULATOR_API_SECURITY_PARTS_H_
#define SIMULATOR_API_SECURITY_PARTS_H_

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace simulator {

template <typename Header>
Header HeaderAt(const void* memory) {
  Header header;
  std::memcpy(&header, memory, sizeof(header));
  return header;
}

// Return as many bytes as the header states. Whether the bytes are a valid SID or ACL is not
// checked.
inline std::string_view SidBytesAt(const void* sid) {
  const auto* const bytes = static_cast<const char*>(sid);
  const auto count = static_cast<BYTE>(bytes[offsetof(SID, SubAuthorityCount)]);
  return {bytes, offsetof(SID, SubAuthority) + count * sizeof(DWORD)};
}

inline std::string_view AclBytesAt(const void* acl) {
  return {static_cast<const char*>(acl), HeaderAt<ACL>(acl).AclSize};
}

}  // namespace simulator

#endif  // SIMULATOR_API_SECURITY_PARTS_H_
