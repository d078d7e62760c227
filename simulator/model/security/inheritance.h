// Access control lists as NTFS stores them when they are set, and their inheritance by the kernel's
// rules. Functions without side effects.
// https://learn.microsoft.com/windows/win32/secauthz/ace-inheritance-rules
#ifndef SIMULATOR_MODEL_SECURITY_INHERITANCE_H_
#define SIMULATOR_MODEL_SECURITY_INHERITANCE_H_

#include <windows.h>

#include <optional>

#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"

namespace simulator {

// Returns the descriptor of a new file or folder below `parent`. Owner and group are those of
// `creator`; the lists are inherited from the parent. As on NTFS, a list is marked as automatically
// inherited if the parent's own list is (SE_DACL_AUTO_INHERITED). Without any inherited ACE, the
// DACL is the default DACL of an administrator's token: full access for the owner and the system.
Descriptor InheritedDescriptor(const Descriptor& parent, bool is_folder, const Identity& creator);

// Replaces the inherited ACEs of a list that is not protected by those that `parent` lets inherit.
// Explicit ACEs come first, in their order. Inherited ACEs for CREATOR OWNER and CREATOR GROUP
// apply to the owner and group of `own`, unless an earlier inherited ACE already specifies the same
// for them. A NULL list remains NULL.
void Reinherit(const ListKind& kind, const Descriptor& parent, bool is_folder, Descriptor* own);

// Returns `own` after Reinherit of both lists.
Descriptor Reinherited(const Descriptor& own, const Descriptor& parent, bool is_folder);

// If a list does not use automatic inheritance yet, marks as inherited those ACEs that are equal to
// ACEs that `parent` lets inherit.
void MarkInherited(const ListKind& kind, const Descriptor& parent, bool is_folder, Descriptor* own);

// Stores `list`, or a NULL list if it has no value, in the descriptor of a file or folder. Generic
// rights are replaced by those of a file. An inheritable ACE of a folder that has generic rights
// becomes two, one for the folder and one for the objects below it. `information` may set or clear
// the protection of the list; otherwise the protection is unchanged. The stored list is marked as
// automatically inherited.
void StoreList(const ListKind& kind, SECURITY_INFORMATION information,
               const std::optional<Acl>& list, bool is_folder, Descriptor* descriptor);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_INHERITANCE_H_
