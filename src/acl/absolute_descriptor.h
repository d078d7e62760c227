// A security descriptor in absolute form, converted from SDDL text.
#ifndef ACL_ABSOLUTE_DESCRIPTOR_H_
#define ACL_ABSOLUTE_DESCRIPTOR_H_

#include <windows.h>

#include <string>

#include "common/owner.h"

namespace acl {

// Owns its five parts, which are allocated with LocalAlloc. A part that the text does not have is a
// block of zeros, which every call rejects: a null pointer would be a NULL DACL, which grants full
// access to everyone.
class AbsoluteDescriptor {
 public:
  // Converts SDDL text of revision 1. On failure returns false and sets `error` to the error code
  // of the call that failed; the parts must then not be used.
  // https://learn.microsoft.com/windows/win32/api/securitybaseapi/nf-securitybaseapi-makeabsolutesd
  [[nodiscard]] bool Build(const std::string& sddl, DWORD& error);

  PSID owner() const { return owner_.get(); }
  PSID group() const { return group_.get(); }
  PACL dacl() const { return dacl_.get(); }
  PACL sacl() const { return sacl_.get(); }

 private:
  common::UniqueLocal<void> descriptor_;
  common::UniqueLocal<ACL> dacl_;
  common::UniqueLocal<ACL> sacl_;
  common::UniqueLocal<void> owner_;
  common::UniqueLocal<void> group_;
};

}  // namespace acl

#endif  // ACL_ABSOLUTE_DESCRIPTOR_H_
