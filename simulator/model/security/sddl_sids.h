// SIDs within a descriptor's text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_

#include <windows.h>

#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_cursor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

// Reads an alias or the S-1- form. Returns ERROR_NONE_MAPPED for an alias of a domain if the server
// has not joined one, or ERROR_INVALID_SID for other text that is not a SID.
DWORD TakeSid(SddlCursor& text, const AccountDomains& domains, Sid* sid);

// Returns the alias if there is one; otherwise returns the S-1- form.
std::string ShortSidText(const Sid& sid, const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_
