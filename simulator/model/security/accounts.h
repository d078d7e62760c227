// The accounts that every server has, by the names that it shows.
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

// A name as the server's language has it, whatever its case, alone or behind its domain:
// "Administrators", "BUILTIN\Administrators". A name in another language is none. All names are
// known in English and German, the one of the Administrators in other languages that have their
// own; whatever is not known is taken for the English name, which many languages keep.
std::optional<Account> FindAccount(std::string_view name, const System& system,
                                   const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCOUNTS_H_
