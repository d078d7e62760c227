// Privileges of the process's token.
#ifndef COMMON_PRIVILEGES_H_
#define COMMON_PRIVILEGES_H_

namespace common {

// Enables a privilege such as "SeBackupPrivilege". Returns 0 on success; -1 if the token of the
// process cannot be opened, -2 if the name is unknown, -3 if AdjustTokenPrivileges fails. Also
// returns 0 if the token does not hold the privilege.
// https://learn.microsoft.com/windows/win32/api/securitybaseapi/nf-securitybaseapi-adjusttokenprivileges
[[nodiscard]] int EnablePrivilege(const char* name);

// Enables or disables a privilege. Returns false on failure, or if the token does not hold the
// privilege.
[[nodiscard]] bool SwitchPrivilege(const char* name, bool enabled);

}  // namespace common

#endif  // COMMON_PRIVILEGES_H_
