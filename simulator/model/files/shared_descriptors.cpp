#include "simulator/model/files/shared_descriptors.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "simulator/model/files/node.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/inheritance.h"
#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

// Enough for every folder that things are made in; what is forgotten is made again.
constexpr size_t kMostParents = 1024;

// O:BAG:SYD:AI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)(A;OICIIO;GA;;;CO)(A;OICI;0x1200a9;;;BU)
// (A;CI;LC;;;BU)(A;CIIO;DC;;;BU)(A;;0x1200a9;;;WD)
Descriptor RootDescriptor() {
  constexpr BYTE kAll = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
  constexpr ACCESS_MASK kReadAndExecute = FILE_GENERIC_READ | FILE_GENERIC_EXECUTE;
  const auto allow = [](int flags, ACCESS_MASK mask, const Sid& sid) {
    Ace ace;
    ace.flags = static_cast<BYTE>(flags);
    ace.mask = mask;
    ace.sid = sid;
    return ace;
  };

  Descriptor root;
  root.control = SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED;
  root.owner = kAdministrators;
  root.group = kLocalSystem;
  root.dacl.emplace();
  root.dacl->aces = {
      allow(kAll, FILE_ALL_ACCESS, kAdministrators),
      allow(kAll, FILE_ALL_ACCESS, kLocalSystem),
      allow(kAll | INHERIT_ONLY_ACE, GENERIC_ALL, kCreatorOwner),
      allow(kAll, kReadAndExecute, kUsers),
      allow(CONTAINER_INHERIT_ACE, FILE_ADD_SUBDIRECTORY, kUsers),
      allow(CONTAINER_INHERIT_ACE | INHERIT_ONLY_ACE, FILE_ADD_FILE, kUsers),
      allow(0, kReadAndExecute, kEveryone),
  };
  return root;
}

}  // namespace

SharedDescriptors::SharedDescriptors(const Identity& creator)
    : creator_(creator), root_(std::make_shared<const Descriptor>(RootDescriptor())) {}

SharedDescriptors::Shared SharedDescriptors::Below(const Shared& parent, bool is_folder) {
  if (children_.size() >= kMostParents && children_.count(parent) == 0) children_.clear();
  Shared& child = children_[parent].at(is_folder ? 1 : 0);
  if (!child) {
    child = std::make_shared<const Descriptor>(InheritedDescriptor(*parent, is_folder, creator_));
  }
  return child;
}

SharedDescriptors::Shared SharedDescriptors::Of(Descriptor descriptor) {
  const size_t hash = std::hash<std::string>()(DescriptorBytes(descriptor));
  for (auto [known, end] = known_.equal_range(hash); known != end; ++known) {
    Shared shared = known->second.lock();
    if (shared && *shared == descriptor) return shared;
  }
  if (known_.size() >= most_known_) {
    std::erase_if(known_, [](const auto& known) { return known.second.expired(); });
    most_known_ = std::max(most_known_, 2 * known_.size());
  }
  // A block of its own, unlike that of make_shared, is freed with its last user.
  Shared made(new Descriptor(std::move(descriptor)));
  known_.emplace(hash, made);
  return made;
}

void SharedDescriptors::Complete(Node& node, const Shared& missing) {
  if (!node.security) node.security = missing;
  for (const std::shared_ptr<Node>& child : node.contents().children) {
    Complete(*child, Below(node.security, child->IsFolder()));
  }
}

}  // namespace simulator
