// Look-up by name of the accounts that every server has.
#ifndef SIMULATOR_MODEL_SECURITY_ACCOUNTS_H_
#define SIMULATOR_MODEL_SECURITY_ACCOUNTS_H_

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

struct System;
struct Account {
  Sid sid;
  SID_NAME_USE use = SidTypeUnknown;
  std::string domain;  // as the server shows it: "BUILTIN", "VORDEFINIERT"; empty for Everyone
};

// Looks up a name in the server's language, in any case, with or without its domain:
// "Administrators", "BUILTIN\Administrators". A name in another language is not found. English and
// German names are known for all accounts. The name of Administrators is also known in several
// other languages in which it differs. For all other names, the English name is used, which many
// languages keep.
std::optional<Account> FindAccount(std::string_view name, const System& system,
                                   const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCOUNTS_H_
