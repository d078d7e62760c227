#include "simulator/model/security/sacl_entries.h"

#include <algorithm>

namespace simulator {
namespace {

bool HasAny(const std::optional<Acl>& list) {
  return list && std::any_of(list->aces.begin(), list->aces.end(), HasOwnBit);
}

Acl Audits(const Acl& list) {
  Acl audits = list;
  std::erase_if(audits.aces, HasOwnBit);
  return audits;
}

}  // namespace

bool HasOwnBit(const Ace& ace) {
  return ace.type == SYSTEM_MANDATORY_LABEL_ACE_TYPE ||
         ace.type == SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE ||
         ace.type == SYSTEM_SCOPED_POLICY_ID_ACE_TYPE;
}

std::shared_ptr<const Descriptor> WithoutOwnBits(const std::shared_ptr<const Descriptor>& whole) {
  if (!HasAny(whole->sacl)) return whole;
  auto rest = std::make_shared<Descriptor>(*whole);
  rest->sacl = Audits(*whole->sacl);
  return rest;
}

void KeepOwnBits(const std::optional<Acl>& before, Descriptor* changed) {
  std::optional<Acl>& list = changed->sacl;
  if (!HasAny(before) && !HasAny(list)) return;
  Acl made = list ? Audits(*list) : Acl{};
  if (before && made.aces == Audits(*before).aces) {
    list = before;
    return;
  }
  for (const Ace& ace : before ? before->aces : std::vector<Ace>{}) {
    if (!HasOwnBit(ace)) continue;
    const bool is_inherited = (ace.flags & INHERITED_ACE) != 0;
    const auto first_audit = std::find_if_not(made.aces.begin(), made.aces.end(), HasOwnBit);
    made.aces.insert(is_inherited ? made.aces.end() : first_audit, ace);
  }
  if (before) made.revision = std::max(made.revision, before->revision);
  list = std::move(made);
}

}  // namespace simulator
