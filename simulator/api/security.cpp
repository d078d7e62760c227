// The access token of the program.
#include "simulator/model/security/security.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/process_objects.h"

namespace simulator {
namespace {

BOOL LookUpPrivilege(const Call& call, std::string_view name, PLUID luid) {
  const std::optional<LUID> found = Security::Lookup(name);
  if (!found) return call.Done(ERROR_NO_SUCH_PRIVILEGE);
  *luid = *found;
  return call.Succeed(TRUE);
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Token;
using simulator::Unsupported;

BOOL WINAPI OpenProcessToken(HANDLE process, DWORD desired_access, PHANDLE token) {
  constexpr DWORD kHonoured = TOKEN_QUERY | TOKEN_ADJUST_PRIVILEGES;
  if (token == nullptr) Unsupported("OpenProcessToken: nowhere to put it");
  if (desired_access == 0 || (desired_access & ~kHonoured) != 0) {
    Unsupported("OpenProcessToken: access");
  }
  const Call call("OpenProcessToken", process, desired_access);
  if (call.fails()) return FALSE;
  simulator::Handles& handles = call.server().handles();
  if (process != ::GetCurrentProcess()) {
    if (handles.Find<simulator::ProcessObject>(process)) {
      Unsupported("OpenProcessToken of another process");
    }
    return call.Done(ERROR_INVALID_HANDLE);
  }
  *token = handles.Insert(std::make_shared<Token>(desired_access), false);
  return call.Succeed(TRUE);
}

BOOL WINAPI LookupPrivilegeValueA(LPCSTR system_name, LPCSTR name, PLUID luid) {
  if (system_name != nullptr) Unsupported("LookupPrivilegeValueA: a system name");
  if (name == nullptr || luid == nullptr) Unsupported("LookupPrivilegeValueA: no name or LUID");
  const Call call("LookupPrivilegeValueA", name);
  return call.fails() ? FALSE : simulator::LookUpPrivilege(call, name, luid);
}

BOOL WINAPI LookupPrivilegeValueW(LPCWSTR system_name, LPCWSTR name, PLUID luid) {
  if (system_name != nullptr) Unsupported("LookupPrivilegeValueW: a system name");
  if (name == nullptr || luid == nullptr) Unsupported("LookupPrivilegeValueW: no name or LUID");
  const Call call("LookupPrivilegeValueW", name);
  return call.fails() ? FALSE
                      : simulator::LookUpPrivilege(call, simulator::Utf8FromWide(name), luid);
}

BOOL WINAPI AdjustTokenPrivileges(HANDLE token, BOOL disable_all, PTOKEN_PRIVILEGES new_state,
                                  DWORD, PTOKEN_PRIVILEGES previous_state, PDWORD return_length) {
  if (disable_all) Unsupported("AdjustTokenPrivileges: all disabled");
  if (new_state == nullptr) Unsupported("AdjustTokenPrivileges: no new state");
  if (previous_state != nullptr || return_length != nullptr) {
    Unsupported("AdjustTokenPrivileges: the previous state");
  }
  const Call call("AdjustTokenPrivileges", token, new_state->PrivilegeCount,
                  new_state->Privileges[0].Luid.LowPart, new_state->Privileges[0].Attributes);
  if (call.fails()) return FALSE;
  const auto found = call.server().handles().Find<Token>(token);
  if (!found) return call.Done(ERROR_INVALID_HANDLE);
  if ((found->Access() & TOKEN_ADJUST_PRIVILEGES) == 0) return call.Done(ERROR_ACCESS_DENIED);

  bool all_assigned = true;
  // More entries than the array has lie behind it.
  const char* entries =
      reinterpret_cast<const char*>(new_state) + offsetof(TOKEN_PRIVILEGES, Privileges);
  for (DWORD i = 0; i < new_state->PrivilegeCount; ++i) {
    LUID_AND_ATTRIBUTES entry;
    std::memcpy(&entry, entries + i * sizeof(entry), sizeof(entry));
    if ((entry.Attributes & ~static_cast<DWORD>(SE_PRIVILEGE_ENABLED)) != 0) {
      Unsupported("LUID_AND_ATTRIBUTES::Attributes");
    }
    const bool enabled = entry.Attributes == SE_PRIVILEGE_ENABLED;
    if (!call.server().security().SetEnabled(entry.Luid, enabled)) all_assigned = false;
  }
  // The one call whose last error tells something about a success.
  ::SetLastError(all_assigned ? ERROR_SUCCESS : ERROR_NOT_ALL_ASSIGNED);
  return TRUE;
}
