#include "common/privileges.h"

#include <windows.h>

#include "common/owner.h"

namespace common {

int EnablePrivilege(const char* name) {
  UniqueHandle token;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY,
                          token.put())) {
    return -1;
  }
  LUID luid{};
  if (!::LookupPrivilegeValueA(nullptr, name, &luid)) return -2;

  TOKEN_PRIVILEGES privileges{};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Luid = luid;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!::AdjustTokenPrivileges(token.get(), FALSE, &privileges, 0, nullptr, nullptr)) {
    token.release();  // the handle stays open
    return -3;
  }
  return 0;
}

}  // namespace common
