// The security descriptor definition language, revision 1.
// https://learn.microsoft.com/windows/win32/secauthz/security-descriptor-definition-language
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_TEXT_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_TEXT_H_

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// The domains to which SDDL aliases refer: those of the server's own accounts ("LA") and those of
// the server's domain ("DA").
struct AccountDomains {
  Sid machine;                // S-1-5-21-x-y-z
  std::optional<Sid> domain;  // if the server has joined one
};

// Returns a system error code. `descriptor` is set if it is ERROR_SUCCESS.
DWORD ParseSddl(std::string_view text, const AccountDomains& domains, Descriptor* descriptor);

inline constexpr SECURITY_INFORMATION kAllParts =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION |
    SACL_SECURITY_INFORMATION;

// Returns the parts that `information` requests and the descriptor has, as Windows prints them:
// "O:", "G:", "D:", "S:" in that order, with aliases and named rights where they exist.
std::string SddlText(const Descriptor& descriptor, const AccountDomains& domains,
                     SECURITY_INFORMATION information = kAllParts);

// Reads "BA" or "S-1-5-32-544". Returns nothing if the text is not a SID.
std::optional<Sid> ParseSid(std::string_view text, const AccountDomains& domains);
std::string SidText(const Sid& sid);  // always in the S-1- form

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_TEXT_H_
