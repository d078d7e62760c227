// The access rights of an entry as text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_

#include <windows.h>

#include <string>

#include "simulator/model/security/sddl_cursor.h"

namespace simulator {

// Takes names and numbers in the notation of C ("FRSD", "0x1301bf"), or nothing at all; a number
// that is too large means all rights. False at a number without digits.
bool TakeRights(SddlCursor& text, ACCESS_MASK* mask);

// A name that stands for exactly this mask, names for each of its bits, or a hexadecimal number.
std::string RightsText(BYTE ace_type, ACCESS_MASK mask);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_RIGHTS_H_
