// Security identifiers of accounts.
#ifndef ACL_ACCOUNT_SID_H_
#define ACL_ACCOUNT_SID_H_

#include <windows.h>

#include <cstdint>
#include <string>

#include "common/owner.h"

namespace acl {

// Looks up an account of the local system. Returns 0 on success and 3 if `name` is empty. Returns 6
// with `sid` unchanged if the account is not found or the lookup buffer cannot be allocated.
// Returns 6 with `sid` emptied if the memory for the copy of the SID cannot be allocated or CopySid
// fails.
[[nodiscard]] int32_t GetAccountSid(const std::string& name, common::UniqueLocal<void>& sid);

}  // namespace acl

#endif  // ACL_ACCOUNT_SID_H_
