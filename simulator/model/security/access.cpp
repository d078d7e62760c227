#include "simulator/model/security/access.h"

#include <algorithm>

#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

enum class Effect { kNone, kAllows, kDenies };

// Conditions are not evaluated, and one that cannot be evaluated never works in the caller's
// favour: it holds for an entry that denies, not for one that allows. A file has no object types,
// so object entries speak to all of it.
Effect EffectOf(const Ace& ace) {
  if ((ace.flags & INHERIT_ONLY_ACE) != 0) return Effect::kNone;
  switch (ace.type) {
    case ACCESS_ALLOWED_ACE_TYPE:
    case ACCESS_ALLOWED_OBJECT_ACE_TYPE:
      return Effect::kAllows;
    case ACCESS_DENIED_ACE_TYPE:
    case ACCESS_DENIED_OBJECT_ACE_TYPE:
    case ACCESS_DENIED_CALLBACK_ACE_TYPE:
    case ACCESS_DENIED_CALLBACK_OBJECT_ACE_TYPE:
      return Effect::kDenies;
    default:
      return Effect::kNone;
  }
}

bool Holds(const Identity& identity, const Sid& sid) {
  return identity.user == sid || identity.groups.contains(sid);
}

bool SpeaksTo(const Ace& ace, const Descriptor& descriptor, const Identity& identity) {
  if (ace.sid == kOwnerRights && !descriptor.owner) return false;
  return Holds(identity, ace.sid == kOwnerRights ? *descriptor.owner : ace.sid);
}

bool LimitsOwner(const Ace& ace) {
  return ace.sid == kOwnerRights && (ace.flags & INHERIT_ONLY_ACE) == 0;
}

}  // namespace

bool Grants(const Descriptor& descriptor, const Identity& identity, ACCESS_MASK wanted) {
  if ((descriptor.control & SE_DACL_PRESENT) == 0 || !descriptor.dacl) return true;
  const std::vector<Ace>& aces = descriptor.dacl->aces;
  ACCESS_MASK missing = wanted;
  if (descriptor.owner && Holds(identity, *descriptor.owner) &&
      std::none_of(aces.begin(), aces.end(), LimitsOwner)) {
    missing &= ~static_cast<ACCESS_MASK>(READ_CONTROL | WRITE_DAC);
  }
  for (const Ace& ace : aces) {
    const Effect effect = EffectOf(ace);
    if (effect == Effect::kNone || !SpeaksTo(ace, descriptor, identity)) continue;
    const ACCESS_MASK mask = MapGeneric(ace.mask);
    if (effect == Effect::kAllows) {
      missing &= ~mask;
    } else if ((missing & mask) != 0) {
      return false;
    }
  }
  return missing == 0;
}

ACCESS_MASK MapGeneric(ACCESS_MASK mask) {
  constexpr ACCESS_MASK kGeneric = GENERIC_READ | GENERIC_WRITE | GENERIC_EXECUTE | GENERIC_ALL;
  ACCESS_MASK mapped = mask & ~kGeneric;
  if ((mask & GENERIC_READ) != 0) mapped |= FILE_GENERIC_READ;
  if ((mask & GENERIC_WRITE) != 0) mapped |= FILE_GENERIC_WRITE;
  if ((mask & GENERIC_EXECUTE) != 0) mapped |= FILE_GENERIC_EXECUTE;
  if ((mask & GENERIC_ALL) != 0) mapped |= FILE_ALL_ACCESS;
  return mapped;
}

}  // namespace simulator
