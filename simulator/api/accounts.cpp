// Accounts and their security identifiers.
#include "simulator/model/security/accounts.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/api/security_parts.h"
#include "simulator/model/security/security.h"

using simulator::Call;
using simulator::Unsupported;

BOOL WINAPI LookupAccountNameA(LPCSTR system_name, LPCSTR account_name, PSID sid, LPDWORD sid_size,
                               LPSTR domain_name, LPDWORD domain_name_size, PSID_NAME_USE use) {
  if (system_name != nullptr) Unsupported("LookupAccountNameA: a system name");
  if (account_name == nullptr || *account_name == '\0') Unsupported("LookupAccountNameA: no name");
  if (sid_size == nullptr || domain_name_size == nullptr || use == nullptr) {
    Unsupported("LookupAccountNameA: nowhere to put a size or the use");
  }
  const Call call("LookupAccountNameA", account_name, *sid_size, *domain_name_size);
  if (call.fails()) return FALSE;
  const std::optional<simulator::Account> account =
      simulator::FindAccount(simulator::FromAnsi(call, account_name), call.server().system(),
                             call.server().security().domains());
  if (!account) return call.Done(ERROR_NONE_MAPPED);

  const std::string bytes = simulator::SidBytes(account->sid);
  const std::string domain = simulator::ToAnsi(call, account->domain);
  const DWORD length = static_cast<DWORD>(domain.size());
  const bool fits = *sid_size >= bytes.size() && *domain_name_size > length;
  *sid_size = static_cast<DWORD>(bytes.size());
  // What is needed counts the terminator, what has been written does not.
  *domain_name_size = fits ? length : length + 1;
  if (!fits) return call.Done(ERROR_INSUFFICIENT_BUFFER);
  if (sid == nullptr || domain_name == nullptr) Unsupported("LookupAccountNameA: no buffer");
  std::copy(bytes.begin(), bytes.end(), static_cast<char*>(sid));
  std::copy_n(domain.c_str(), length + size_t{1}, domain_name);
  *use = account->use;
  return call.Succeed(TRUE);
}

// Cannot fail, so it is neither numbered nor traced.
DWORD WINAPI GetLengthSid(PSID sid) {
  if (sid == nullptr) Unsupported("GetLengthSid: no SID");
  return static_cast<DWORD>(simulator::SidBytesAt(sid).size());
}

BOOL WINAPI CopySid(DWORD size, PSID destination, PSID source) {
  if (source == nullptr) Unsupported("CopySid: no SID");
  const std::string_view bytes = simulator::SidBytesAt(source);
  const Call call("CopySid", size);
  if (call.fails()) return FALSE;
  if (size < bytes.size()) return call.Done(ERROR_INSUFFICIENT_BUFFER);
  if (destination == nullptr) Unsupported("CopySid: no buffer");
  std::memcpy(destination, bytes.data(), bytes.size());
  return call.Succeed(TRUE);
}
