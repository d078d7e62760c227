// Who may do what: the kernel's rules. Pure.
#ifndef SIMULATOR_MODEL_SECURITY_ACCESS_H_
#define SIMULATOR_MODEL_SECURITY_ACCESS_H_

#include <windows.h>

#include <set>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// Whom a token speaks for.
struct Identity {
  Sid user;
  std::set<Sid> groups;   // without the user; all are enabled
  std::set<Sid> may_own;  // besides the user: groups that may be made an owner
  Sid default_owner;      // of new objects
  Sid primary_group;      // of new objects
};

// Whether the DACL grants all of `wanted`, specific and standard rights of a file without generic
// ones. The owner always has READ_CONTROL and WRITE_DAC (unless an ACE for OWNER RIGHTS, S-1-3-4,
// says otherwise). Conditions of entries are not evaluated: with one an entry grants nothing, and
// denies all the same. Privileges, labels and ACCESS_SYSTEM_SECURITY are the caller's matter.
bool Grants(const Descriptor& descriptor, const Identity& identity, ACCESS_MASK wanted);

// Generic rights replaced by those of a file.
ACCESS_MASK MapGeneric(ACCESS_MASK mask);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCESS_H_
