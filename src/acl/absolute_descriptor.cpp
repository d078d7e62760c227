#include "acl/absolute_descriptor.h"

#include <sddl.h>

#include <algorithm>

namespace acl {
namespace {

// Large enough that a validity check of a part does not read past its block.
constexpr DWORD kSmallestPart = std::max(sizeof(ACL), sizeof(SID));

// Allocates zeroed memory. Returns false if there is no memory.
// Oddity: absent parts, see docs/oddities.md.
template <typename Part>
bool Allocate(common::UniqueLocal<Part>& part, DWORD size) {
  part.reset(static_cast<Part*>(::LocalAlloc(LPTR, std::max(size, kSmallestPart))));
  return static_cast<bool>(part);
}

}  // namespace

bool AbsoluteDescriptor::Build(const std::string& sddl, DWORD& error) {
  common::UniqueLocal<void> relative;
  if (!::ConvertStringSecurityDescriptorToSecurityDescriptorA(sddl.c_str(), SDDL_REVISION_1,
                                                              relative.put(), nullptr)) {
    error = ::GetLastError();
    return false;
  }

  DWORD descriptor_size = 0;
  DWORD dacl_size = 0;
  DWORD sacl_size = 0;
  DWORD owner_size = 0;
  DWORD group_size = 0;
  ::MakeAbsoluteSD(relative.get(), nullptr, &descriptor_size, nullptr, &dacl_size, nullptr,
                   &sacl_size, nullptr, &owner_size, nullptr, &group_size);
  error = ::GetLastError();
  if (error != ERROR_INSUFFICIENT_BUFFER) return false;

  if (!Allocate(descriptor_, descriptor_size) || !Allocate(dacl_, dacl_size) ||
      !Allocate(sacl_, sacl_size) || !Allocate(owner_, owner_size) ||
      !Allocate(group_, group_size) ||
      !::MakeAbsoluteSD(relative.get(), descriptor_.get(), &descriptor_size, dacl_.get(),
                        &dacl_size, sacl_.get(), &sacl_size, owner_.get(), &owner_size,
                        group_.get(), &group_size)) {
    error = ::GetLastError();
    return false;
  }
  return true;
}

}  // namespace acl
