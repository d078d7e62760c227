// What children get from their parents.
// https://learn.microsoft.com/windows/win32/secauthz/ace-inheritance-rules
#include <algorithm>

#include "simulator/model/access.h"
#include "simulator/model/well_known_sids.h"

namespace simulator {
namespace {

constexpr BYTE kInheritFlags =
    OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE | NO_PROPAGATE_INHERIT_ACE | INHERIT_ONLY_ACE;

BYTE With(BYTE flags, int more) { return static_cast<BYTE>(flags | more); }
BYTE Without(BYTE flags, int fewer) { return static_cast<BYTE>(flags & ~fewer); }

// The bits of one of the two lists in a descriptor's control word.
struct ListControl {
  SECURITY_DESCRIPTOR_CONTROL present;
  SECURITY_DESCRIPTOR_CONTROL auto_inherited;
  SECURITY_DESCRIPTOR_CONTROL is_protected;
};
constexpr ListControl kDacl = {SE_DACL_PRESENT, SE_DACL_AUTO_INHERITED, SE_DACL_PROTECTED};
constexpr ListControl kSacl = {SE_SACL_PRESENT, SE_SACL_AUTO_INHERITED, SE_SACL_PROTECTED};

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
  const bool goes_on = child.is_folder && (ace.flags & NO_PROPAGATE_INHERIT_ACE) == 0 &&
                       (ace.flags & (CONTAINER_INHERIT_ACE | OBJECT_INHERIT_ACE)) != 0;
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

void InheritList(const ListControl& bits, const std::optional<Acl>& parent,
                 SECURITY_DESCRIPTOR_CONTROL parent_control, Child child, std::optional<Acl>* list,
                 SECURITY_DESCRIPTOR_CONTROL* control) {
  const bool automatic = (parent_control & bits.auto_inherited) != 0;
  child.mark = automatic ? INHERITED_ACE : 0;
  Acl inherited = InheritedAcl(parent, child);
  if (inherited.aces.empty()) return;
  *list = std::move(inherited);
  *control |= bits.present;
  if (automatic) *control |= bits.auto_inherited;
}

// A null list stays null.
void ReinheritList(const ListControl& bits, const std::optional<Acl>& parent, const Child& child,
                   std::optional<Acl>* list, SECURITY_DESCRIPTOR_CONTROL* control) {
  const bool is_present = (*control & bits.present) != 0;
  if ((*control & bits.is_protected) != 0 || (is_present && !*list)) return;
  Acl inherited = InheritedAcl(parent, child);
  if (!is_present && inherited.aces.empty()) return;
  Acl made = is_present ? std::move(**list) : Acl{};
  std::erase_if(made.aces, [](const Ace& ace) { return (ace.flags & INHERITED_ACE) != 0; });
  made.aces.insert(made.aces.end(), inherited.aces.begin(), inherited.aces.end());
  made.revision = std::max(made.revision, inherited.revision);
  *list = std::move(made);
  *control |= bits.present | bits.auto_inherited;
}

}  // namespace

Descriptor InheritedDescriptor(const Descriptor& parent, bool is_folder, const Identity& creator) {
  Descriptor made;
  made.owner = creator.default_owner;
  made.group = creator.primary_group;
  const Child child = {is_folder, made.owner, made.group, 0};
  InheritList(kDacl, parent.dacl, parent.control, child, &made.dacl, &made.control);
  InheritList(kSacl, parent.sacl, parent.control, child, &made.sacl, &made.control);
  if (!made.dacl) {
    made.control |= SE_DACL_PRESENT;
    made.dacl = Acl{ACL_REVISION, {FullAccess(creator.default_owner), FullAccess(kLocalSystem)}};
  }
  return made;
}

Descriptor Reinherited(const Descriptor& own, const Descriptor& parent, bool is_folder) {
  Descriptor made = own;
  const Child child = {is_folder, own.owner, own.group, INHERITED_ACE};
  ReinheritList(kDacl, parent.dacl, child, &made.dacl, &made.control);
  ReinheritList(kSacl, parent.sacl, child, &made.sacl, &made.control);
  return made;
}

}  // namespace simulator
