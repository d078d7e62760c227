#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <set>

#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/security/well_known_sids.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;

class SecurityTest : public testing::Test {
 protected:
  static HANDLE OpenToken(DWORD access = TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY) {
    HANDLE token = nullptr;
    EXPECT_TRUE(::OpenProcessToken(::GetCurrentProcess(), access, &token));
    return token;
  }

  static TOKEN_PRIVILEGES StateOf(const char* privilege, DWORD attributes) {
    TOKEN_PRIVILEGES state = {};
    state.PrivilegeCount = 1;
    EXPECT_TRUE(::LookupPrivilegeValueA(nullptr, privilege, &state.Privileges[0].Luid));
    state.Privileges[0].Attributes = attributes;
    return state;
  }

  static BOOL Adjust(HANDLE token, TOKEN_PRIVILEGES state) {
    return ::AdjustTokenPrivileges(token, FALSE, &state, 0, nullptr, nullptr);
  }

  Server server_;
};

TEST_F(SecurityTest, EnablesNothingButChangeNotifyAtFirst) {
  EXPECT_TRUE(server_.security().Enabled("SeChangeNotifyPrivilege"));
  EXPECT_FALSE(server_.security().Enabled(SE_BACKUP_NAME));
}

TEST_F(SecurityTest, EnablesAndDisablesAPrivilegeThatTheTokenHolds) {
  const HANDLE token = OpenToken();
  EXPECT_TRUE(Adjust(token, StateOf(SE_RESTORE_NAME, SE_PRIVILEGE_ENABLED)));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(server_.security().Enabled(SE_RESTORE_NAME));
  EXPECT_TRUE(Adjust(token, StateOf(SE_RESTORE_NAME, 0)));
  EXPECT_FALSE(server_.security().Enabled(SE_RESTORE_NAME));
}

TEST_F(SecurityTest, ReportsAPrivilegeThatTheTokenDoesNotHoldByTheLastErrorOnly) {
  server_.security().Revoke(SE_BACKUP_NAME);
  EXPECT_TRUE(Adjust(OpenToken(), StateOf(SE_BACKUP_NAME, SE_PRIVILEGE_ENABLED)));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ALL_ASSIGNED});
  EXPECT_FALSE(server_.security().Enabled(SE_BACKUP_NAME));
}

TEST_F(SecurityTest, EnablesWhatIsGranted) {
  server_.security().Grant("SeTcbPrivilege");
  EXPECT_TRUE(Adjust(OpenToken(), StateOf("SeTcbPrivilege", SE_PRIVILEGE_ENABLED)));
  EXPECT_TRUE(server_.security().Enabled("SeTcbPrivilege"));
}

TEST_F(SecurityTest, AdjustsEveryEntryOfAList) {
  struct {
    DWORD count = 2;
    LUID_AND_ATTRIBUTES privileges[2] = {{{7, 0}, SE_PRIVILEGE_ENABLED},    // not held
                                         {{17, 0}, SE_PRIVILEGE_ENABLED}};  // held
  } list;
  alignas(TOKEN_PRIVILEGES) std::array<std::byte, sizeof(list)> bytes;
  std::memcpy(bytes.data(), &list, sizeof(list));
  EXPECT_TRUE(::AdjustTokenPrivileges(
      OpenToken(), FALSE, reinterpret_cast<PTOKEN_PRIVILEGES>(bytes.data()), 0, nullptr, nullptr));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ALL_ASSIGNED});
  EXPECT_TRUE(server_.security().Enabled(SE_BACKUP_NAME));
}

TEST_F(SecurityTest, NeedsATokenOpenedForAdjusting) {
  EXPECT_FALSE(Adjust(OpenToken(TOKEN_QUERY), StateOf(SE_BACKUP_NAME, SE_PRIVILEGE_ENABLED)));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_FALSE(server_.security().Enabled(SE_BACKUP_NAME));
}

TEST_F(SecurityTest, RefusesATokenThatIsClosed) {
  const HANDLE token = OpenToken();
  EXPECT_TRUE(::CloseHandle(token));
  EXPECT_FALSE(Adjust(token, StateOf(SE_BACKUP_NAME, SE_PRIVILEGE_ENABLED)));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(SecurityTest, KnowsPrivilegesByTheNumbersThatWindowsGivesThem) {
  EXPECT_EQ(simulator::Security::Lookup(SE_BACKUP_NAME)->LowPart, 17u);
  EXPECT_EQ(simulator::Security::Lookup("sERESTOREpRIVILEGE")->LowPart, 18u);
}

TEST_F(SecurityTest, KnowsNoOtherNames) {
  LUID luid = {};
  EXPECT_FALSE(::LookupPrivilegeValueA(nullptr, "SeNothingPrivilege", &luid));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NO_SUCH_PRIVILEGE});
  EXPECT_FALSE(::LookupPrivilegeValueA(nullptr, "", &luid));
}

TEST_F(SecurityTest, LooksUpWideNamesAsWell) {
  LUID luid{};
  EXPECT_TRUE(::LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &luid));
  EXPECT_EQ(luid.LowPart, 19u);
  EXPECT_FALSE(::LookupPrivilegeValueW(nullptr, L"SeNothingPrivilege", &luid));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NO_SUCH_PRIVILEGE});
  EXPECT_DEATH(::LookupPrivilegeValueW(L"other", L"x", &luid), "a system name");
}

TEST_F(SecurityTest, OpensNoTokenOfAHandleThatIsNotOpen) {
  HANDLE token = nullptr;
  EXPECT_FALSE(::OpenProcessToken(nullptr, TOKEN_QUERY, &token));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(SecurityTest, SpeaksForTheServersOwnAdministrator) {
  const simulator::Identity& identity = server_.security().identity();
  simulator::Sid user = server_.security().domains().machine;
  user.parts.push_back(500);
  EXPECT_EQ(identity.user, user);
  EXPECT_EQ(identity.default_owner, simulator::kAdministrators);
  EXPECT_EQ(identity.may_own, std::set{simulator::kAdministrators});
  EXPECT_TRUE(identity.groups.contains(simulator::kAdministrators));
  EXPECT_TRUE(identity.groups.contains(identity.primary_group));
  EXPECT_FALSE(identity.groups.contains(user));
}

TEST_F(SecurityTest, IsInNoDomainUnlessItJoinsOne) {
  EXPECT_FALSE(server_.security().domains().domain);
  const simulator::Sid domain{5, {21, 4, 5, 6}};
  server_.security().JoinDomain(domain);
  EXPECT_EQ(server_.security().domains().domain, domain);
}

TEST_F(SecurityTest, FailsWhenFaultsAreDue) {
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  HANDLE token = nullptr;
  EXPECT_FALSE(::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token));
  server_.calls().FailNext("LookupPrivilegeValueA", ERROR_NOT_ENOUGH_MEMORY);
  LUID luid = {};
  EXPECT_FALSE(::LookupPrivilegeValueA(nullptr, SE_BACKUP_NAME, &luid));
  const TOKEN_PRIVILEGES state = StateOf(SE_BACKUP_NAME, SE_PRIVILEGE_ENABLED);
  token = OpenToken();
  server_.calls().FailNext("AdjustTokenPrivileges", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_FALSE(Adjust(token, state));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  EXPECT_FALSE(server_.security().Enabled(SE_BACKUP_NAME));
}

TEST_F(SecurityTest, AbortsForWhatIsNotHonoured) {
  HANDLE token = OpenToken();
  EXPECT_DEATH(::OpenProcessToken(::GetCurrentProcess(), 0xF01FF, &token), "access");
  EXPECT_DEATH(::AdjustTokenPrivileges(token, TRUE, nullptr, 0, nullptr, nullptr), "all disabled");
  EXPECT_DEATH(Adjust(token, StateOf(SE_BACKUP_NAME, 4)), "Attributes");
  EXPECT_DEATH(server_.security().Grant("SeNothingPrivilege"), "SeNothingPrivilege");
}

}  // namespace
