// The access rights of an ACE as text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_

#include <windows.h>

#include <string>

#include "simulator/model/security/sddl_cursor.h"

namespace simulator {

// Reads names and numbers in C notation ("FRSD", "0x1301bf"), or an empty field. A number that is
// too large means all rights. Returns false if a number has no digits.
bool TakeRights(SddlCursor& text, ACCESS_MASK* mask);

// Returns the name of exactly this mask, the names of each of its bits, or a hexadecimal number.
std::string RightsText(BYTE ace_type, ACCESS_MASK mask);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_
