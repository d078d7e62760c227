// A security descriptor in absolute form, made of its text.
#ifndef ACL_ABSOLUTE_DESCRIPTOR_H_
#define ACL_ABSOLUTE_DESCRIPTOR_H_

#include <windows.h>

#include <string>

#include "common/owner.h"

namespace acl {

// Owns its five parts, in memory from the platform heap. A part that the text does not have is a
// block of zeros, which no call takes for a valid one: a null list would grant everything to
// everybody.
class AbsoluteDescriptor {
 public:
  // From SDDL, revision 1. On failure the parts are not to be used, and `error` is the code of the
  // call that failed.
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
