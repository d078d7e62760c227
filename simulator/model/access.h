// Rules that the kernel applies to descriptors: who may do what, and what a child gets from its
// parent. Pure.
#ifndef SIMULATOR_MODEL_ACCESS_H_
#define SIMULATOR_MODEL_ACCESS_H_

#include <windows.h>

#include <set>

#include "simulator/model/descriptor.h"

namespace simulator {

// Whom a token speaks for.
struct Identity {
  Sid user;
  std::set<Sid> groups;     // enabled ones, without the user
  std::set<Sid> deny_only;  // groups that only deny
  std::set<Sid> may_own;    // besides the user: groups that may be made an owner
  Sid default_owner;        // of new objects
  Sid primary_group;        // of new objects
};

// Whether the DACL grants all of `wanted`, specific and standard rights of a file without generic
// ones. The owner always has READ_CONTROL and WRITE_DAC (unless an ACE for OWNER RIGHTS, S-1-3-4,
// says otherwise). Conditions of entries are not evaluated: with one an entry grants nothing, and
// denies all the same. Privileges, labels and ACCESS_SYSTEM_SECURITY are the caller's matter.
bool Grants(const Descriptor& descriptor, const Identity& identity, ACCESS_MASK wanted);

// Generic rights replaced by those of a file.
ACCESS_MASK MapGeneric(ACCESS_MASK mask);

// What a new file or folder gets below `parent`: owner and group from the identity, the lists from
// what the parent lets inherit. They are marked as inherited when the parent's own list is marked
// so (SE_DACL_AUTO_INHERITED), as NTFS does it. Without any inherited entry the DACL is what an
// administrator's token has: full access for the owner and the system.
Descriptor InheritedDescriptor(const Descriptor& parent, bool is_folder, const Identity& creator);

// `own` with its inherited entries, those of a list that is not protected, made anew from `parent`.
// Explicit entries stand first, in their order; inherited ones of CREATOR OWNER and CREATOR GROUP
// speak to those of `own`, where no entry of theirs says as much already. A null list stays null.
Descriptor Reinherited(const Descriptor& own, const Descriptor& parent, bool is_folder);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_ACCESS_H_
