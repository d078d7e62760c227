// ACEs as text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_ACE_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_ACE_H_

#include <windows.h>

#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_cursor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

// Reads an ACE such as "(A;OICI;FA;;;BA)". Returns ERROR_SUCCESS, the error code of TakeSid, or
// ERROR_INVALID_ACL.
DWORD TakeAce(SddlCursor& text, const AccountDomains& domains, Ace* ace);

std::string AceText(const Ace& ace, const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_ACE_H_
