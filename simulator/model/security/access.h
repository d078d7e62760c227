// The kernel's access check. Functions without side effects.
#ifndef SIMULATOR_MODEL_SECURITY_ACCESS_H_
#define SIMULATOR_MODEL_SECURITY_ACCESS_H_

#include <windows.h>

#include <set>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// The identity of a token.
struct Identity {
  Sid user;
  std::set<Sid> groups;   // other than the user; all are enabled
  std::set<Sid> may_own;  // besides the user: groups that may be assigned as owner
  Sid default_owner;      // of new objects
  Sid primary_group;      // of new objects
};

// Returns true if the DACL grants all of `wanted`; otherwise returns false. `wanted` has specific
// and standard rights of a file, but no generic ones. The owner always has READ_CONTROL and
// WRITE_DAC, unless the DACL has an ACE for OWNER RIGHTS (S-1-3-4). Conditions are not evaluated: a
// conditional ACE that allows access has no effect, and one that denies access applies as if its
// condition were true. Privileges, labels and ACCESS_SYSTEM_SECURITY are left to the caller.
bool Grants(const Descriptor& descriptor, const Identity& identity, ACCESS_MASK wanted);

// Returns the mask with generic rights replaced by those of a file.
ACCESS_MASK MapGeneric(ACCESS_MASK mask);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCESS_H_
