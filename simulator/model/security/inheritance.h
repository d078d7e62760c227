// What children get from their parents: the kernel's rules. Pure.
// https://learn.microsoft.com/windows/win32/secauthz/ace-inheritance-rules
#ifndef SIMULATOR_MODEL_SECURITY_INHERITANCE_H_
#define SIMULATOR_MODEL_SECURITY_INHERITANCE_H_

#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/list_kind.h"

namespace simulator {

// What a new file or folder gets below `parent`: owner and group from the identity, the lists from
// what the parent lets inherit. They are marked as inherited when the parent's own list is marked
// so (SE_DACL_AUTO_INHERITED), as NTFS does it. Without any inherited entry the DACL is what an
// administrator's token has: full access for the owner and the system.
Descriptor InheritedDescriptor(const Descriptor& parent, bool is_folder, const Identity& creator);

// Makes the inherited entries of a list that is not protected anew from `parent`. Explicit entries
// stand first, in their order; inherited ones of CREATOR OWNER and CREATOR GROUP speak to those of
// `own`, where no entry of theirs says as much already. A null list stays null.
void Reinherit(const ListKind& kind, const Descriptor& parent, bool is_folder, Descriptor* own);

// `own` with both lists made anew so.
Descriptor Reinherited(const Descriptor& own, const Descriptor& parent, bool is_folder);

// Marks as inherited those entries of a list from before automatic inheritance that are the same as
// what `parent` lets inherit.
void MarkInherited(const ListKind& kind, const Descriptor& parent, bool is_folder, Descriptor* own);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_INHERITANCE_H_
