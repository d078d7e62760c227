// Privileges of the process's token.
#ifndef COMMON_PRIVILEGES_H_
#define COMMON_PRIVILEGES_H_

namespace common {

// Enables a privilege such as "SeBackupPrivilege". 0 on success; -1 when the process's token cannot
// be opened, -2 when the name is unknown, -3 when the token cannot be adjusted, in which case its
// handle stays open. Success is the adjusting call's own: a privilege that the token does not hold
// yields 0 too.
// https://learn.microsoft.com/windows/win32/api/securitybaseapi/nf-securitybaseapi-adjusttokenprivileges
[[nodiscard]] int EnablePrivilege(const char* name);

// Enables a privilege, or disables it. False when that fails, or when the token does not hold the
// privilege. Leaves no handle open.
[[nodiscard]] bool SwitchPrivilege(const char* name, bool enabled);

}  // namespace common

#endif  // COMMON_PRIVILEGES_H_
