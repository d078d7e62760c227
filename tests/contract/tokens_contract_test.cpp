// The process token and its privileges.
#include <windows.h>

#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class TokenContract : public HostTest {
 protected:
  TokenContract() : token_(Open(TOKEN_QUERY | TOKEN_ADJUST_PRIVILEGES)) {}

  static HANDLE Open(DWORD access) {
    HANDLE token = nullptr;
    EXPECT_TRUE(::OpenProcessToken(::GetCurrentProcess(), access, &token));
    return token;
  }

  static LUID Luid(const char* name) {
    LUID luid{};
    EXPECT_TRUE(::LookupPrivilegeValueA(nullptr, name, &luid)) << name;
    return luid;
  }

  static DWORD Number(const char* name) {
    const LUID luid = Luid(name);
    EXPECT_EQ(luid.HighPart, 0) << name;
    return luid.LowPart;
  }

  static DWORD LookupError(const char* name) {
    LUID luid{};
    return ErrorOf([&] { return ::LookupPrivilegeValueA(nullptr, name, &luid); });
  }

  // The last error behind an answer that is TRUE.
  DWORD Adjust(LUID luid, DWORD attributes) const {
    TOKEN_PRIVILEGES privileges{1, {{luid, attributes}}};
    ::SetLastError(kNobodysError);
    EXPECT_TRUE(::AdjustTokenPrivileges(token_.get(), FALSE, &privileges, 0, nullptr, nullptr));
    return ::GetLastError();
  }

  const common::UniqueHandle token_;
};

constexpr LUID kNotHeld{999, 0};

TEST_F(TokenContract, PrivilegesHaveTheirNumbers) {
  EXPECT_EQ(Number("SeCreateTokenPrivilege"), 2u);
  EXPECT_EQ(Number("SeAssignPrimaryTokenPrivilege"), 3u);
  EXPECT_EQ(Number("SeLockMemoryPrivilege"), 4u);
  EXPECT_EQ(Number("SeIncreaseQuotaPrivilege"), 5u);
  EXPECT_EQ(Number("SeMachineAccountPrivilege"), 6u);
  EXPECT_EQ(Number("SeTcbPrivilege"), 7u);
  EXPECT_EQ(Number("SeSecurityPrivilege"), 8u);
  EXPECT_EQ(Number("SeTakeOwnershipPrivilege"), 9u);
  EXPECT_EQ(Number("SeLoadDriverPrivilege"), 10u);
  EXPECT_EQ(Number("SeSystemProfilePrivilege"), 11u);
  EXPECT_EQ(Number("SeSystemtimePrivilege"), 12u);
  EXPECT_EQ(Number("SeProfileSingleProcessPrivilege"), 13u);
  EXPECT_EQ(Number("SeIncreaseBasePriorityPrivilege"), 14u);
  EXPECT_EQ(Number("SeCreatePagefilePrivilege"), 15u);
  EXPECT_EQ(Number("SeCreatePermanentPrivilege"), 16u);
  EXPECT_EQ(Number(SE_BACKUP_NAME), 17u);
  EXPECT_EQ(Number(SE_RESTORE_NAME), 18u);
  EXPECT_EQ(Number("SeShutdownPrivilege"), 19u);
  EXPECT_EQ(Number("SeDebugPrivilege"), 20u);
  EXPECT_EQ(Number("SeAuditPrivilege"), 21u);
  EXPECT_EQ(Number("SeSystemEnvironmentPrivilege"), 22u);
  EXPECT_EQ(Number("SeChangeNotifyPrivilege"), 23u);
  EXPECT_EQ(Number("SeRemoteShutdownPrivilege"), 24u);
  EXPECT_EQ(Number("SeUndockPrivilege"), 25u);
  EXPECT_EQ(Number("SeSyncAgentPrivilege"), 26u);
  EXPECT_EQ(Number("SeEnableDelegationPrivilege"), 27u);
  EXPECT_EQ(Number("SeManageVolumePrivilege"), 28u);
  EXPECT_EQ(Number("SeImpersonatePrivilege"), 29u);
  EXPECT_EQ(Number("SeCreateGlobalPrivilege"), 30u);
}

TEST_F(TokenContract, NewPrivilegesHaveTheirNumbers) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNewPrivileges;
  EXPECT_EQ(Number("SeTrustedCredManAccessPrivilege"), 31u);
  EXPECT_EQ(Number("SeRelabelPrivilege"), 32u);
  EXPECT_EQ(Number("SeIncreaseWorkingSetPrivilege"), 33u);
  EXPECT_EQ(Number("SeTimeZonePrivilege"), 34u);
  EXPECT_EQ(Number("SeCreateSymbolicLinkPrivilege"), 35u);
  EXPECT_EQ(Number("SeDelegateSessionUserImpersonatePrivilege"), 36u);
}

TEST_F(TokenContract, PrivilegeNamesHaveNoCase) { EXPECT_EQ(Number("sebackupPRIVILEGE"), 17u); }

TEST_F(TokenContract, PrivilegesHaveWideNamesAsWell) {
  LUID luid{};
  EXPECT_TRUE(::LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &luid));
  EXPECT_EQ(luid.LowPart, 19u);
  EXPECT_EQ(luid.HighPart, 0);
  EXPECT_TRUE(::LookupPrivilegeValueW(nullptr, L"sebackupPRIVILEGE", &luid));
  EXPECT_EQ(luid.LowPart, 17u);
  EXPECT_EQ(ErrorOf([&] { return ::LookupPrivilegeValueW(nullptr, L"SeNoSuchPrivilege", &luid); }),
            ERROR_NO_SUCH_PRIVILEGE);
}

TEST_F(TokenContract, OtherNamesAreNoPrivileges) {
  for (const char* name :
       {"", "SeNoSuchPrivilege", "SeBackup", "SeBackupPrivilege ", " SeBackupPrivilege"}) {
    EXPECT_EQ(LookupError(name), ERROR_NO_SUCH_PRIVILEGE) << name;
  }
}

TEST_F(TokenContract, AHeldPrivilegeIsSwitchedOnAndOff) {
  for (const char* name : {SE_BACKUP_NAME, SE_RESTORE_NAME}) {
    EXPECT_EQ(Adjust(Luid(name), SE_PRIVILEGE_ENABLED), ERROR_SUCCESS) << name;
    EXPECT_EQ(Adjust(Luid(name), SE_PRIVILEGE_ENABLED), ERROR_SUCCESS) << name;
    EXPECT_EQ(Adjust(Luid(name), 0), ERROR_SUCCESS) << name;
    EXPECT_EQ(Adjust(Luid(name), 0), ERROR_SUCCESS) << name;
  }
}

TEST_F(TokenContract, APrivilegeThatIsNotHeldIsASuccessWithAnError) {
  EXPECT_EQ(Adjust(Luid("SeCreateTokenPrivilege"), SE_PRIVILEGE_ENABLED), ERROR_NOT_ALL_ASSIGNED);
  EXPECT_EQ(Adjust(Luid("SeCreateTokenPrivilege"), 0), ERROR_NOT_ALL_ASSIGNED);
  EXPECT_EQ(Adjust(kNotHeld, SE_PRIVILEGE_ENABLED), ERROR_NOT_ALL_ASSIGNED);
  EXPECT_EQ(Adjust({0, 0}, SE_PRIVILEGE_ENABLED), ERROR_NOT_ALL_ASSIGNED);
  EXPECT_EQ(Adjust({17, 1}, SE_PRIVILEGE_ENABLED), ERROR_NOT_ALL_ASSIGNED);
}

TEST_F(TokenContract, NoPrivilegesAreASuccess) {
  TOKEN_PRIVILEGES privileges{0, {{kNotHeld, SE_PRIVILEGE_ENABLED}}};
  ::SetLastError(kNobodysError);
  EXPECT_TRUE(::AdjustTokenPrivileges(token_.get(), FALSE, &privileges, 0, nullptr, nullptr));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_SUCCESS});
}

TEST_F(TokenContract, AdjustingNeedsThatAccess) {
  const common::UniqueHandle query_only(Open(TOKEN_QUERY));
  TOKEN_PRIVILEGES privileges{1, {{Luid(SE_BACKUP_NAME), SE_PRIVILEGE_ENABLED}}};
  EXPECT_EQ(ErrorOf([&] {
              return ::AdjustTokenPrivileges(query_only.get(), FALSE, &privileges, 0, nullptr,
                                             nullptr);
            }),
            ERROR_ACCESS_DENIED);
}

TEST_F(TokenContract, EveryOpeningGivesAHandleOfItsOwn) {
  const common::UniqueHandle other(Open(TOKEN_QUERY));
  EXPECT_NE(other.get(), token_.get());
}

}  // namespace
}  // namespace tests
