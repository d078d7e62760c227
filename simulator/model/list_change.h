// How the two access control lists of a file's descriptor change.
#ifndef SIMULATOR_MODEL_LIST_CHANGE_H_
#define SIMULATOR_MODEL_LIST_CHANGE_H_

#include <windows.h>

#include <optional>

#include "simulator/model/descriptor.h"

namespace simulator {

struct SecurityChange;

// What tells the DACL and the SACL apart.
struct ListKind {
  std::optional<Acl> Descriptor::*list;
  std::optional<Acl> SecurityChange::*changed;
  SECURITY_DESCRIPTOR_CONTROL present;
  SECURITY_DESCRIPTOR_CONTROL defaulted;
  SECURITY_DESCRIPTOR_CONTROL auto_inherited;
  SECURITY_DESCRIPTOR_CONTROL is_protected;
  SECURITY_INFORMATION set;
  SECURITY_INFORMATION protect;
  SECURITY_INFORMATION unprotect;
};
extern const ListKind kDaclKind;
extern const ListKind kSaclKind;

// Puts `list` into the descriptor as Windows stores it: generic rights as those of a file, a
// folder's inheritable entry with generic rights as two, one for the folder and one for what is
// below. `information` may protect the list or end that; else it stays as it was. What was set is
// marked as automatically inherited.
void SetList(const ListKind& kind, SECURITY_INFORMATION information, const std::optional<Acl>& list,
             bool is_folder, Descriptor* descriptor);

// Replaces the inherited entries of a list that is not protected by what the parent lets inherit.
void InheritList(const ListKind& kind, const Descriptor& parent, bool is_folder,
                 Descriptor* descriptor);

// Marks as inherited those entries of a list from before automatic inheritance that are the same as
// what `parent` lets inherit.
void MarkInherited(const ListKind& kind, const Descriptor& parent, bool is_folder,
                   Descriptor* descriptor);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_LIST_CHANGE_H_
