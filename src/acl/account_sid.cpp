#include "acl/account_sid.h"

#include <array>

namespace acl {
namespace {

constexpr DWORD kBufferSize = 4096;

constexpr int32_t kNoName = 3;
constexpr int32_t kFailed = 6;

}  // namespace

int32_t GetAccountSid(const std::string& name, common::UniqueLocal<void>& sid) {
  if (name.empty()) return kNoName;
  const common::UniqueLocal<void> found(::LocalAlloc(LPTR, kBufferSize));
  if (!found) return kFailed;
  std::array<char, kBufferSize> domain{};
  DWORD found_size = kBufferSize;
  DWORD domain_size = kBufferSize;
  SID_NAME_USE use{};
  if (!::LookupAccountNameA(nullptr, name.c_str(), found.get(), &found_size, domain.data(),
                            &domain_size, &use)) {
    return kFailed;
  }

  const DWORD length = ::GetLengthSid(found.get());
  sid.reset(::LocalAlloc(LPTR, length));
  if (!sid) return kFailed;
  if (!::CopySid(length, sid.get(), found.get())) {
    sid.reset();
    return kFailed;
  }
  return 0;
}

}  // namespace acl
