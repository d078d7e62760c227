#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/privileges.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/test_names.h"

namespace common {
namespace {

TEST(EnablePrivilege, EnablesThePrivilege) {
  simulator::Server server;
  ASSERT_FALSE(server.security().Enabled("SeBackupPrivilege"));
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
  EXPECT_TRUE(server.security().Enabled("SeBackupPrivilege"));
  EXPECT_FALSE(server.security().Enabled("SeRestorePrivilege"));
}

TEST(EnablePrivilege, ClosesTheToken) {
  simulator::Server server;
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(EnablePrivilege, OpensTheTokenToAdjustAndQuery) {
  simulator::Server server;
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
  const std::vector<std::string> arguments = server.calls().ArgumentsOf("OpenProcessToken");
  ASSERT_EQ(arguments.size(), 1u);
  EXPECT_NE(arguments[0].find(", 40"), std::string::npos) << arguments[0];
}

TEST(EnablePrivilege, SucceedsForAPrivilegeThatTheTokenDoesNotHold) {
  simulator::Server server;
  server.security().Revoke("SeBackupPrivilege");
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
  EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(EnablePrivilege, IsMinus1WhenTheTokenCannotBeOpened) {
  simulator::Server server;
  server.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -1);
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(EnablePrivilege, IsMinus2ForAnUnknownNameAndClosesTheToken) {
  simulator::Server server;
  EXPECT_EQ(EnablePrivilege("SeNoSuchPrivilege"), -2);
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(EnablePrivilege, IsMinus2WhenTheLookUpFails) {
  simulator::Server server;
  server.calls().FailNext("LookupPrivilegeValueA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -2);
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(EnablePrivilege, IsMinus3WhenTheTokenCannotBeAdjustedAndLeavesItOpen) {
  simulator::Server server;
  server.calls().FailNext("AdjustTokenPrivileges", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -3);
  EXPECT_EQ(server.OpenHandles(), std::vector<std::string>{"token"});
  EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
}

TEST(EnablePrivilege, DoesNotLookAtTheResultOfClosingTheToken) {
  simulator::Server server;
  server.calls().FailNext("CloseHandle", ERROR_INVALID_HANDLE);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
}

TEST(EnablePrivilege, PrintsNothing) {
  simulator::Server server;
  EXPECT_EQ(EnablePrivilege("SeNoSuchPrivilege"), -2);
  server.calls().FailNext("AdjustTokenPrivileges", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -3);
  EXPECT_EQ(server.console().Text(), "");
}

// Switching, which tells whether the token holds the privilege.

TEST(SwitchPrivilege, EnablesThePrivilegeAlone) {
  simulator::Server server;
  EXPECT_TRUE(SwitchPrivilege("SeSecurityPrivilege", true));
  EXPECT_TRUE(server.security().Enabled("SeSecurityPrivilege"));
  EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
}

TEST(SwitchPrivilege, DisablesThePrivilegeAlone) {
  simulator::Server server;
  ASSERT_TRUE(SwitchPrivilege("SeSecurityPrivilege", true));
  ASSERT_TRUE(SwitchPrivilege("SeBackupPrivilege", true));
  EXPECT_TRUE(SwitchPrivilege("SeSecurityPrivilege", false));
  EXPECT_FALSE(server.security().Enabled("SeSecurityPrivilege"));
  EXPECT_TRUE(server.security().Enabled("SeBackupPrivilege"));
}

TEST(SwitchPrivilege, DisablesAPrivilegeThatIsNotEnabled) {
  simulator::Server server;
  EXPECT_TRUE(SwitchPrivilege("SeBackupPrivilege", false));
  EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
}

TEST(SwitchPrivilege, OpensTheTokenToAdjustAndQuery) {
  simulator::Server server;
  EXPECT_TRUE(SwitchPrivilege("SeBackupPrivilege", true));
  const std::vector<std::string> arguments = server.calls().ArgumentsOf("OpenProcessToken");
  ASSERT_EQ(arguments.size(), 1u);
  EXPECT_TRUE(arguments[0].ends_with(", 40")) << arguments[0];
}

// The adjusting call itself succeeds.
TEST(SwitchPrivilege, IsFalseForAPrivilegeThatTheTokenDoesNotHold) {
  for (const bool enabled : {true, false}) {
    simulator::Server server;
    server.security().Revoke("SeBackupPrivilege");
    EXPECT_FALSE(SwitchPrivilege("SeBackupPrivilege", enabled));
    EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
  }
}

TEST(SwitchPrivilege, IsFalseForAnUnknownName) {
  simulator::Server server;
  EXPECT_FALSE(SwitchPrivilege("SeNoSuchPrivilege", true));
  EXPECT_TRUE(server.calls().ArgumentsOf("AdjustTokenPrivileges").empty());
}

class SwitchPrivilegeCall : public testing::TestWithParam<std::string> {};

TEST_P(SwitchPrivilegeCall, ThatFailsMakesItFalseAndChangesNothing) {
  simulator::Server server;
  server.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED);
  EXPECT_FALSE(SwitchPrivilege("SeBackupPrivilege", true));
  EXPECT_FALSE(server.security().Enabled("SeBackupPrivilege"));
}

TEST_P(SwitchPrivilegeCall, ThatFailsLeavesNoTokenOpen) {
  simulator::Server server;
  server.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED);
  EXPECT_FALSE(SwitchPrivilege("SeBackupPrivilege", true));
  EXPECT_TRUE(server.OpenHandles().empty());
}

INSTANTIATE_TEST_SUITE_P(Calls, SwitchPrivilegeCall,
                         testing::Values("OpenProcessToken", "LookupPrivilegeValueA",
                                         "AdjustTokenPrivileges"),
                         tests::NamedAsPrinted());

TEST(SwitchPrivilege, LeavesNoTokenOpenHoweverItEnds) {
  simulator::Server server;
  server.security().Revoke("SeRestorePrivilege");
  EXPECT_TRUE(SwitchPrivilege("SeBackupPrivilege", true));
  EXPECT_FALSE(SwitchPrivilege("SeRestorePrivilege", true));
  EXPECT_FALSE(SwitchPrivilege("SeNoSuchPrivilege", true));
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(SwitchPrivilege, DoesNotLookAtTheResultOfClosingTheToken) {
  simulator::Server server;
  server.calls().FailNext("CloseHandle", ERROR_INVALID_HANDLE);
  EXPECT_TRUE(SwitchPrivilege("SeBackupPrivilege", true));
}

}  // namespace
}  // namespace common
