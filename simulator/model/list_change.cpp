#include "simulator/model/list_change.h"

#include <algorithm>
#include <vector>

#include "simulator/model/access.h"
#include "simulator/model/files.h"

namespace simulator {
namespace {

using Control = SECURITY_DESCRIPTOR_CONTROL;

constexpr int kInheritance = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
constexpr int kAllInheritance = kInheritance | NO_PROPAGATE_INHERIT_ACE | INHERIT_ONLY_ACE;

void Set(Control bits, bool on, Descriptor* descriptor) {
  const int control = on ? descriptor->control | bits : descriptor->control & ~bits;
  descriptor->control = static_cast<Control>(control);
}

Acl AsStored(const Acl& given, bool is_folder) {
  Acl stored;
  stored.revision = given.revision;
  for (const Ace& ace : given.aces) {
    const ACCESS_MASK mapped = MapGeneric(ace.mask);
    const bool is_for_below = (ace.flags & INHERIT_ONLY_ACE) != 0;
    stored.aces.push_back(ace);
    if (mapped == ace.mask || is_for_below) continue;
    stored.aces.back().mask = mapped;
    if (!is_folder || (ace.flags & kInheritance) == 0) continue;
    stored.aces.back().flags = static_cast<BYTE>(ace.flags & ~kAllInheritance);
    stored.aces.push_back(ace);
    stored.aces.back().flags = static_cast<BYTE>(ace.flags | INHERIT_ONLY_ACE);
  }
  return stored;
}

}  // namespace

const ListKind kDaclKind = {&Descriptor::dacl,
                            &SecurityChange::dacl,
                            SE_DACL_PRESENT,
                            SE_DACL_DEFAULTED,
                            SE_DACL_AUTO_INHERITED,
                            SE_DACL_PROTECTED,
                            DACL_SECURITY_INFORMATION,
                            PROTECTED_DACL_SECURITY_INFORMATION,
                            UNPROTECTED_DACL_SECURITY_INFORMATION};
const ListKind kSaclKind = {&Descriptor::sacl,
                            &SecurityChange::sacl,
                            SE_SACL_PRESENT,
                            SE_SACL_DEFAULTED,
                            SE_SACL_AUTO_INHERITED,
                            SE_SACL_PROTECTED,
                            SACL_SECURITY_INFORMATION,
                            PROTECTED_SACL_SECURITY_INFORMATION,
                            UNPROTECTED_SACL_SECURITY_INFORMATION};

void SetList(const ListKind& kind, SECURITY_INFORMATION information, const std::optional<Acl>& list,
             bool is_folder, Descriptor* descriptor) {
  if ((information & kind.protect) != 0) Set(kind.is_protected, true, descriptor);
  if ((information & kind.unprotect) != 0) Set(kind.is_protected, false, descriptor);
  Set(kind.present, true, descriptor);
  Set(kind.auto_inherited, true, descriptor);
  Set(kind.defaulted, false, descriptor);
  std::optional<Acl>& stored = descriptor->*kind.list;
  stored.reset();
  if (list) stored = AsStored(*list, is_folder);
}

void InheritList(const ListKind& kind, const Descriptor& parent, bool is_folder,
                 Descriptor* descriptor) {
  Descriptor made = Reinherited(*descriptor, parent, is_folder);
  descriptor->*kind.list = std::move(made.*kind.list);
  const Control bits = static_cast<Control>(kind.present | kind.auto_inherited);
  Set(bits, false, descriptor);
  Set(static_cast<Control>(made.control & bits), true, descriptor);
}

void MarkInherited(const ListKind& kind, const Descriptor& parent, bool is_folder,
                   Descriptor* descriptor) {
  std::optional<Acl>& list = descriptor->*kind.list;
  if (!list || (descriptor->control & kind.auto_inherited) != 0) return;
  Descriptor bare;
  bare.owner = descriptor->owner;
  bare.group = descriptor->group;
  const Descriptor from_parent = Reinherited(bare, parent, is_folder);
  if (!(from_parent.*kind.list)) return;
  const std::vector<Ace>& inherited = (from_parent.*kind.list)->aces;
  for (Ace& ace : list->aces) {
    Ace marked = ace;
    marked.flags = static_cast<BYTE>(marked.flags | INHERITED_ACE);
    if (std::find(inherited.begin(), inherited.end(), marked) != inherited.end()) ace = marked;
  }
}

}  // namespace simulator
