// Accounts by name, and security identifiers. The names are those of an English server.
#include <windows.h>

#include <string>
#include <vector>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr SID_NAME_USE kUnset = SidTypeInvalid;  // as no account is

struct Found {
  BOOL ok = FALSE;
  DWORD error = 0;
  std::string sid;
  DWORD sid_size = 0;
  std::string domain;
  DWORD domain_size = 0;
  SID_NAME_USE use = kUnset;
};

// With buffers of exactly these sizes.
Found LookUp(const char* name, DWORD sid_size, DWORD domain_size) {
  std::vector<char> sid(sid_size + 1, '#');
  std::vector<char> domain(domain_size + 1, '#');
  Found found;
  found.sid_size = sid_size;
  found.domain_size = domain_size;
  ::SetLastError(kNobodysError);
  found.ok = ::LookupAccountNameA(nullptr, name, sid.data(), &found.sid_size, domain.data(),
                                  &found.domain_size, &found.use);
  found.error = ::GetLastError();
  EXPECT_EQ(sid.back(), '#') << name;
  EXPECT_EQ(domain.back(), '#') << name;
  if (found.ok) {
    found.sid.assign(sid.data(), sid_size);
    found.domain = domain.data();
  }
  return found;
}

const std::string kAdministratorsSid("\1\2\0\0\0\0\0\5\x20\0\0\0\x20\2\0\0", 16);

class AccountContract : public HostTest {};

TEST_F(AccountContract, TheAdministratorsAreAnAliasOfTheBuiltInDomain) {
  const Found found = LookUp("Administrators", 16, 8);
  ASSERT_TRUE(found.ok) << found.error;
  EXPECT_EQ(found.sid, kAdministratorsSid);
  EXPECT_EQ(found.domain, "BUILTIN");
  EXPECT_EQ(found.domain_size, 7u);
  EXPECT_EQ(found.use, SidTypeAlias);
}

TEST_F(AccountContract, NamesAreFoundWhateverTheirCaseAndBehindTheirDomain) {
  for (const char* const name :
       {"ADMINISTRATORS", "administrators", "BUILTIN\\Administrators", "builtin\\administrators"}) {
    const Found found = LookUp(name, 16, 8);
    ASSERT_TRUE(found.ok) << name;
    EXPECT_EQ(found.sid, kAdministratorsSid) << name;
  }
}

struct KnownAccount {
  const char* name;
  std::string sid;
  std::string domain;
  SID_NAME_USE use;
};

TEST_F(AccountContract, EveryServerHasTheseAccounts) {
  for (const KnownAccount& known : std::vector<KnownAccount>{
           {"Users", std::string("\1\2\0\0\0\0\0\5\x20\0\0\0\x21\2\0\0", 16), "BUILTIN",
            SidTypeAlias},
           {"Guests", std::string("\1\2\0\0\0\0\0\5\x20\0\0\0\x22\2\0\0", 16), "BUILTIN",
            SidTypeAlias},
           {"Backup Operators", std::string("\1\2\0\0\0\0\0\5\x20\0\0\0\x27\2\0\0", 16), "BUILTIN",
            SidTypeAlias},
           {"Everyone", std::string("\1\1\0\0\0\0\0\1\0\0\0\0", 12), "", SidTypeWellKnownGroup},
           {"CREATOR OWNER", std::string("\1\1\0\0\0\0\0\3\0\0\0\0", 12), "",
            SidTypeWellKnownGroup},
           {"SYSTEM", std::string("\1\1\0\0\0\0\0\5\x12\0\0\0", 12), "NT AUTHORITY",
            SidTypeWellKnownGroup},
           {"NT AUTHORITY\\Authenticated Users", std::string("\1\1\0\0\0\0\0\5\xB\0\0\0", 12),
            "NT AUTHORITY", SidTypeWellKnownGroup},
       }) {
    const DWORD domain_size = static_cast<DWORD>(known.domain.size()) + 1;
    const Found found = LookUp(known.name, static_cast<DWORD>(known.sid.size()), domain_size);
    ASSERT_TRUE(found.ok) << known.name << found.error;
    EXPECT_EQ(found.sid, known.sid) << known.name;
    EXPECT_EQ(found.domain, known.domain);
    EXPECT_EQ(found.domain_size, domain_size - 1) << known.name;
    EXPECT_EQ(found.use, known.use) << known.name;
  }
}

TEST_F(AccountContract, ABufferThatIsTooSmallTellsBothSizes) {
  struct Sizes {
    DWORD sid;
    DWORD domain;
  };
  for (const Sizes& sizes :
       {Sizes{0, 0}, Sizes{15, 8}, Sizes{16, 7}, Sizes{100, 0}, Sizes{0, 100}}) {
    const Found found = LookUp("Administrators", sizes.sid, sizes.domain);
    EXPECT_FALSE(found.ok);
    EXPECT_EQ(found.error, DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(found.sid_size, 16u);
    EXPECT_EQ(found.domain_size, 8u);
    EXPECT_EQ(found.use, kUnset);
  }
}

TEST_F(AccountContract, SizesAreToldWithoutBuffers) {
  DWORD sid_size = 0;
  DWORD domain_size = 0;
  SID_NAME_USE use = kUnset;
  EXPECT_EQ(ErrorOf([&] {
              return ::LookupAccountNameA(nullptr, "Everyone", nullptr, &sid_size, nullptr,
                                          &domain_size, &use);
            }),
            DWORD{ERROR_INSUFFICIENT_BUFFER});
  EXPECT_EQ(sid_size, 12u);
  EXPECT_EQ(domain_size, 1u);
}

TEST_F(AccountContract, OtherNamesAreNobodys) {
  for (const char* const name :
       {"Nobody Of That Name", "BUILTIN\\Nobody", "Administratoren", "Elsewhere\\Administrators"}) {
    const Found found = LookUp(name, 100, 100);
    EXPECT_FALSE(found.ok) << name;
    EXPECT_EQ(found.error, DWORD{ERROR_NONE_MAPPED}) << name;
  }
}

class SidContract : public HostTest {};

TEST_F(SidContract, LengthsGoByTheNumberOfParts) {
  SID one = {SID_REVISION, 1, {{0, 0, 0, 0, 0, 5}}, {18}};
  EXPECT_EQ(::GetLengthSid(&one), 12u);
  std::vector<DWORD> most((8 + 4 * SID_MAX_SUB_AUTHORITIES) / sizeof(DWORD));
  most[0] = SID_REVISION | SID_MAX_SUB_AUTHORITIES << 8;
  EXPECT_EQ(::GetLengthSid(most.data()), 68u);
}

TEST_F(SidContract, CopiesNeedRoomForTheWholeSid) {
  std::string source = kAdministratorsSid;
  std::string copy(17, '#');
  EXPECT_TRUE(::CopySid(16, copy.data(), source.data()));
  EXPECT_EQ(copy, kAdministratorsSid + '#');
  copy.assign(17, '#');
  ::SetLastError(kNobodysError);
  EXPECT_FALSE(::CopySid(15, copy.data(), source.data()));
  const DWORD error = ::GetLastError();
  EXPECT_EQ(copy, std::string(17, '#'));
  if (IsUnderWine()) GTEST_SKIP() << wine::kCopySid;
  EXPECT_EQ(error, DWORD{ERROR_INSUFFICIENT_BUFFER});
}

}  // namespace
}  // namespace tests
