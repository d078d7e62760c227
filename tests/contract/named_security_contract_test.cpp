// Security descriptors set by a file's name.
#include <windows.h>

#include <aclapi.h>
#include <share.h>

#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/host.h"

namespace tests {
namespace {

// A list of one entry, which allows Everyone some rights.
struct EveryoneAcl {
  explicit EveryoneAcl(ACCESS_MASK mask) {
    entry.mask = mask;
    entry.sid.SubAuthorityCount = 1;
    entry.sid.IdentifierAuthority.Value[5] = 1;
  }
  PACL Get() { return &header; }

  ACL header = {ACL_REVISION, 0, sizeof(EveryoneAcl), 1, 0};
  struct {
    ACE_HEADER header = {ACCESS_ALLOWED_ACE_TYPE, 0, 8 + sizeof(SID)};
    ACCESS_MASK mask = 0;
    SID sid = {SID_REVISION, 0, {}, {0}};
  } entry;
};
static_assert(sizeof(EveryoneAcl) == 8 + 8 + 12);

constexpr SECURITY_INFORMATION kProtectedDacl =
    DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;

class NamedSecurityContract : public HostTest {
 protected:
  NamedSecurityContract() : file_(PathOf("file.txt")) { WriteBytes(file_, "text"); }

  static DWORD SetDacl(std::string path, PACL dacl) {
    return ::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, kProtectedDacl, nullptr, nullptr,
                                   dacl, nullptr);
  }
  static bool Opens(const std::string& path, const char* mode) {
    return static_cast<bool>(common::UniqueFile(::_fsopen(path.c_str(), mode, _SH_DENYNO)));
  }

  const std::string file_;
};

TEST_F(NamedSecurityContract, SetsTheListOfAFile) {
  EveryoneAcl all(FILE_ALL_ACCESS);
  EXPECT_EQ(SetDacl(file_, all.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "a"));
}

TEST_F(NamedSecurityContract, SetsTheListOfAFolder) {
  EveryoneAcl all(FILE_ALL_ACCESS);
  all.entry.header.AceFlags = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
  EXPECT_EQ(SetDacl(Folder(), all.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "r"));
}

TEST_F(NamedSecurityContract, SetsWhatIsInheritedBelowAFolder) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kDescriptors;
  EveryoneAcl all(FILE_ALL_ACCESS);
  ASSERT_EQ(SetDacl(Folder(), all.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(Opens(file_, "r"));
  all.entry.header.AceFlags = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
  ASSERT_EQ(SetDacl(Folder(), all.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "r"));
}

TEST_F(NamedSecurityContract, TakesVerbatimPaths) {
  EveryoneAcl all(FILE_ALL_ACCESS);
  EXPECT_EQ(SetDacl("\\\\?\\" + file_, all.Get()), DWORD{ERROR_SUCCESS});
}

TEST_F(NamedSecurityContract, WhatIsSetDecidesWhoOpensTheFile) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kDescriptors;
  EveryoneAcl reading(FILE_GENERIC_READ);
  ASSERT_EQ(SetDacl(file_, reading.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "r"));
  EXPECT_FALSE(Opens(file_, "a"));
  EveryoneAcl all(GENERIC_ALL);
  ASSERT_EQ(SetDacl(file_, all.Get()), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "a"));
}

TEST_F(NamedSecurityContract, ANullListGrantsEverything) {
  EXPECT_EQ(SetDacl(file_, nullptr), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(Opens(file_, "a"));
}

TEST_F(NamedSecurityContract, MissesFilesAndPaths) {
  EveryoneAcl all(FILE_ALL_ACCESS);
  EXPECT_EQ(SetDacl(PathOf("missing"), all.Get()), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(SetDacl(PathOf("missing\\a"), all.Get()), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(NamedSecurityContract, RefusesNamesThatAreNone) {
  EveryoneAcl all(FILE_ALL_ACCESS);
  EXPECT_EQ(SetDacl(PathOf("a*b"), all.Get()), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(::SetNamedSecurityInfoA(nullptr, SE_FILE_OBJECT, kProtectedDacl, nullptr, nullptr,
                                    all.Get(), nullptr),
            DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(NamedSecurityContract, RefusesAListThatIsNone) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kDescriptors;
  EveryoneAcl wrong(FILE_ALL_ACCESS);
  wrong.header.AceCount = 2;
  EXPECT_EQ(SetDacl(file_, wrong.Get()), DWORD{ERROR_INVALID_ACL});
}

TEST_F(NamedSecurityContract, DoesNotMindThatTheFileIsHeld) {
  const std::wstring path(file_.begin(), file_.end());
  const common::UniqueFileHandle holder(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                                      nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(holder);
  EveryoneAcl all(FILE_ALL_ACCESS);
  EXPECT_EQ(SetDacl(file_, all.Get()), DWORD{ERROR_SUCCESS});
}

}  // namespace
}  // namespace tests
