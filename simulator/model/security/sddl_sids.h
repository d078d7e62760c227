// SIDs within a descriptor's text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_

#include <windows.h>

#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_cursor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

// Takes an alias or the S-1- form. ERROR_NONE_MAPPED for an alias of a domain on a server that has
// joined none, ERROR_INVALID_SID for everything else that is no SID.
DWORD TakeSid(SddlCursor& text, const AccountDomains& domains, Sid* sid);

// The alias when there is one.
std::string ShortSidText(const Sid& sid, const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_SIDS_H_
