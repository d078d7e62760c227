#include "simulator/model/security/inheritance.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

constexpr BYTE kBelow = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
constexpr BYTE kInheritFlags = kBelow | NO_PROPAGATE_INHERIT_ACE | INHERIT_ONLY_ACE;

BYTE With(BYTE flags, int more) { return static_cast<BYTE>(flags | more); }
BYTE Without(BYTE flags, int fewer) { return static_cast<BYTE>(flags & ~fewer); }

struct Child {
  bool is_folder;
  const std::optional<Sid>& owner;
  const std::optional<Sid>& group;
  BYTE mark;  // INHERITED_ACE, or 0 below a parent without automatic inheritance
};

// `ace` as it works on the child itself: real SIDs and rights.
Ace Effective(Ace ace, const Child& child) {
  ace.flags = Without(ace.flags, kInheritFlags);
  ace.mask = MapGeneric(ace.mask);
  if (ace.sid == kCreatorOwner && child.owner) ace.sid = *child.owner;
  if (ace.sid == kCreatorGroup && child.group) ace.sid = *child.group;
  return ace;
}

// Whether `ace`, which acts on a child itself, adds nothing to what stands there already.
bool IsCovered(const Ace& ace, const std::vector<Ace>& aces) {
  return std::any_of(aces.begin(), aces.end(), [&ace](const Ace& earlier) {
    constexpr int kAudits = SUCCESSFUL_ACCESS_ACE_FLAG | FAILED_ACCESS_ACE_FLAG;
    return (earlier.flags & INHERIT_ONLY_ACE) == 0 && (ace.flags & kAudits & ~earlier.flags) == 0 &&
           (ace.mask & ~earlier.mask) == 0 && earlier.type == ace.type && earlier.sid == ace.sid &&
           earlier.object_type == ace.object_type && earlier.data == ace.data;
  });
}

void AppendInherited(Ace ace, const Child& child, std::vector<Ace>* aces) {
  const BYTE wanted = child.is_folder ? CONTAINER_INHERIT_ACE : OBJECT_INHERIT_ACE;
  // An entry for children of one object type: files have none.
  const bool acts = (ace.flags & wanted) != 0 && !ace.inherited_object_type;
  const bool goes_on =
      child.is_folder && (ace.flags & NO_PROPAGATE_INHERIT_ACE) == 0 && (ace.flags & kBelow) != 0;
  ace.flags = With(ace.flags, child.mark);
  if (acts) {
    const Ace effective = Effective(ace, child);
    if (goes_on && effective.mask == ace.mask && effective.sid == ace.sid) {
      ace.flags = Without(ace.flags, INHERIT_ONLY_ACE);
      aces->push_back(std::move(ace));
      return;
    }
    if (!IsCovered(effective, *aces)) aces->push_back(effective);
  }
  if (goes_on) {
    ace.flags = With(ace.flags, INHERIT_ONLY_ACE);
    aces->push_back(std::move(ace));
  }
}

Acl InheritedAcl(const std::optional<Acl>& parent, const Child& child) {
  Acl inherited;
  if (!parent) return inherited;
  for (const Ace& ace : parent->aces) AppendInherited(ace, child, &inherited.aces);
  if (!inherited.aces.empty()) inherited.revision = parent->revision;
  return inherited;
}

Ace FullAccess(const Sid& sid) {
  Ace ace;
  ace.mask = FILE_ALL_ACCESS;
  ace.sid = sid;
  return ace;
}

void InheritList(const ListKind& kind, const Descriptor& parent, Child child, Descriptor* made) {
  const bool automatic = (parent.control & kind.auto_inherited) != 0;
  child.mark = automatic ? INHERITED_ACE : 0;
  Acl inherited = InheritedAcl(parent.*kind.list, child);
  if (inherited.aces.empty()) return;
  made->*kind.list = std::move(inherited);
  made->control |= kind.present;
  if (automatic) made->control |= kind.auto_inherited;
}

void Set(SECURITY_DESCRIPTOR_CONTROL bits, bool on, Descriptor* descriptor) {
  const int control = on ? descriptor->control | bits : descriptor->control & ~bits;
  descriptor->control = static_cast<SECURITY_DESCRIPTOR_CONTROL>(control);
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
    if (!is_folder || (ace.flags & kBelow) == 0) continue;
    stored.aces.back().flags = Without(ace.flags, kInheritFlags);
    stored.aces.push_back(ace);
    stored.aces.back().flags = With(ace.flags, INHERIT_ONLY_ACE);
  }
  return stored;
}

}  // namespace

Descriptor InheritedDescriptor(const Descriptor& parent, bool is_folder, const Identity& creator) {
  Descriptor made;
  made.owner = creator.default_owner;
  made.group = creator.primary_group;
  const Child child = {is_folder, made.owner, made.group, 0};
  for (const ListKind& kind : kListKinds) InheritList(kind, parent, child, &made);
  if (!made.dacl) {
    made.control |= SE_DACL_PRESENT;
    made.dacl = Acl{ACL_REVISION, {FullAccess(creator.default_owner), FullAccess(kLocalSystem)}};
  }
  return made;
}

void Reinherit(const ListKind& kind, const Descriptor& parent, bool is_folder, Descriptor* own) {
  std::optional<Acl>& list = own->*kind.list;
  const bool is_present = (own->control & kind.present) != 0;
  if ((own->control & kind.is_protected) != 0 || (is_present && !list)) return;
  const Child child = {is_folder, own->owner, own->group, INHERITED_ACE};
  Acl inherited = InheritedAcl(parent.*kind.list, child);
  if (!is_present && inherited.aces.empty()) return;
  Acl made = is_present ? std::move(*list) : Acl{};
  std::erase_if(made.aces, [](const Ace& ace) { return (ace.flags & INHERITED_ACE) != 0; });
  made.aces.insert(made.aces.end(), inherited.aces.begin(), inherited.aces.end());
  made.revision = std::max(made.revision, inherited.revision);
  list = std::move(made);
  own->control |= kind.present | kind.auto_inherited;
}

Descriptor Reinherited(const Descriptor& own, const Descriptor& parent, bool is_folder) {
  Descriptor made = own;
  for (const ListKind& kind : kListKinds) Reinherit(kind, parent, is_folder, &made);
  return made;
}

void MarkInherited(const ListKind& kind, const Descriptor& parent, bool is_folder,
                   Descriptor* own) {
  std::optional<Acl>& list = own->*kind.list;
  if (!list || (own->control & kind.auto_inherited) != 0) return;
  const Child child = {is_folder, own->owner, own->group, INHERITED_ACE};
  const std::vector<Ace> inherited = InheritedAcl(parent.*kind.list, child).aces;
  for (Ace& ace : list->aces) {
    Ace marked = ace;
    marked.flags = With(marked.flags, INHERITED_ACE);
    if (std::find(inherited.begin(), inherited.end(), marked) != inherited.end()) ace = marked;
  }
}

void StoreList(const ListKind& kind, SECURITY_INFORMATION information,
               const std::optional<Acl>& list, bool is_folder, Descriptor* descriptor) {
  if ((information & kind.protect) != 0) Set(kind.is_protected, true, descriptor);
  if ((information & kind.unprotect) != 0) Set(kind.is_protected, false, descriptor);
  Set(kind.present, true, descriptor);
  Set(kind.auto_inherited, true, descriptor);
  Set(kind.defaulted, false, descriptor);
  std::optional<Acl>& stored = descriptor->*kind.list;
  stored.reset();
  if (list) stored = AsStored(*list, is_folder);
}

}  // namespace simulator
