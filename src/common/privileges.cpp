#include "common/privileges.h"

#include <windows.h>

#include "common/owner.h"

namespace common {
namespace {

constexpr DWORD kAccess = TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY;

BOOL Adjust(HANDLE token, LUID luid, DWORD attributes) {
  TOKEN_PRIVILEGES privileges{};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Luid = luid;
  privileges.Privileges[0].Attributes = attributes;
  return ::AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
}

}  // namespace

int EnablePrivilege(const char* name) {
  UniqueHandle token;
  if (!::OpenProcessToken(::GetCurrentProcess(), kAccess, token.put())) return -1;
  LUID luid{};
  if (!::LookupPrivilegeValueA(nullptr, name, &luid)) return -2;
  // Oddity: privilege that is not held, see docs/oddities.md.
  if (!Adjust(token.get(), luid, SE_PRIVILEGE_ENABLED)) {
    // Oddity: handles left open, see docs/oddities.md.
    token.release();
    return -3;
  }
  return 0;
}

bool SwitchPrivilege(const char* name, bool enabled) {
  UniqueHandle token;
  LUID luid{};
  // AdjustTokenPrivileges succeeds even if the token does not hold the privilege; only the last
  // error says so.
  return ::OpenProcessToken(::GetCurrentProcess(), kAccess, token.put()) &&
         ::LookupPrivilegeValueA(nullptr, name, &luid) &&
         Adjust(token.get(), luid, enabled ? SE_PRIVILEGE_ENABLED : 0) &&
         ::GetLastError() == ERROR_SUCCESS;
}

}  // namespace common
