// What restoring a line of a list comes down to: the bare calls, on arguments that are ready.
#ifndef BENCHMARKS_BARE_RESTORE_H_
#define BENCHMARKS_BARE_RESTORE_H_

#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <array>
#include <string>

#include "acl/acl_backup.h"

namespace benchmarks {

// The path is writable because the system asks for that.
inline void RestoreBare(std::string& path, DWORD attributes, const std::string& sddl) {
  PSECURITY_DESCRIPTOR relative = nullptr;
  if (attributes != 0) ::SetFileAttributesA(path.c_str(), attributes);
  ::ConvertStringSecurityDescriptorToSecurityDescriptorA(sddl.c_str(), SDDL_REVISION_1, &relative,
                                                         nullptr);
  std::array<DWORD, 5> sizes{};
  ::MakeAbsoluteSD(relative, nullptr, &sizes[0], nullptr, &sizes[1], nullptr, &sizes[2], nullptr,
                   &sizes[3], nullptr, &sizes[4]);
  std::array<HLOCAL, 5> parts{};
  for (size_t i = 0; i < parts.size(); ++i) parts[i] = ::LocalAlloc(LPTR, sizes[i]);
  ::MakeAbsoluteSD(relative, parts[0], &sizes[0], static_cast<PACL>(parts[1]), &sizes[1],
                   static_cast<PACL>(parts[2]), &sizes[2], parts[3], &sizes[3], parts[4],
                   &sizes[4]);
  ::LocalFree(relative);
  ::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, acl::SecurityInformationOf(sddl), parts[3],
                          parts[4], static_cast<PACL>(parts[1]), static_cast<PACL>(parts[2]));
  for (const HLOCAL part : parts) ::LocalFree(part);
}

}  // namespace benchmarks

#endif  // BENCHMARKS_BARE_RESTORE_H_
