// The accounts that every server has, by the names that it shows.
#ifndef SIMULATOR_MODEL_ACCOUNTS_H_
#define SIMULATOR_MODEL_ACCOUNTS_H_

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/sddl_text.h"
#include "simulator/model/system.h"

namespace simulator {

struct Account {
  Sid sid;
  SID_NAME_USE use = SidTypeUnknown;
  std::string domain;  // as the server shows it: "BUILTIN", "VORDEFINIERT"; empty for Everyone
};

// A name as the server's language has it, whatever its case, alone or behind its domain:
// "Administrators", "BUILTIN\Administrators". A name in another language is none. Aborts on a
// server in a language whose names are not known: they are for English, German and Simplified
// Chinese.
std::optional<Account> FindAccount(std::string_view name, const System& system,
                                   const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_ACCOUNTS_H_
