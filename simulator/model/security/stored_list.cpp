#include "simulator/model/security/stored_list.h"

#include "simulator/model/security/access.h"

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
