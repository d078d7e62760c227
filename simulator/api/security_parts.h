// The parts of security descriptors where the program keeps them. They say themselves how long they
// are; nothing says where the memory ends.
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

// As long as they say; whether they are a SID or a list is not looked at.
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
