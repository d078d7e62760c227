// Security identifiers of accounts.
#ifndef ACL_ACCOUNT_SID_H_
#define ACL_ACCOUNT_SID_H_

#include <windows.h>

#include <cstdint>
#include <string>

#include "common/owner.h"

namespace acl {

// Looks an account of the local system up. 0 on success, 3 for an empty name, 6 when there is no
// such account or no memory, which leaves `sid` as it is, or when its SID cannot be copied, which
// empties `sid`.
[[nodiscard]] int32_t GetAccountSid(const std::string& name, common::UniqueLocal<void>& sid);

}  // namespace acl

#endif  // ACL_ACCOUNT_SID_H_
