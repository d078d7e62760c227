#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/privileges.h"
#include "simulator/model/server.h"

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
  EXPECT_TRUE(server.handles().OpenKinds().empty());
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
  EXPECT_TRUE(server.handles().OpenKinds().empty());
}

TEST(EnablePrivilege, IsMinus1WhenTheTokenCannotBeOpened) {
  simulator::Server server;
  server.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -1);
  EXPECT_TRUE(server.handles().OpenKinds().empty());
}

TEST(EnablePrivilege, IsMinus2ForAnUnknownNameAndClosesTheToken) {
  simulator::Server server;
  EXPECT_EQ(EnablePrivilege("SeNoSuchPrivilege"), -2);
  EXPECT_TRUE(server.handles().OpenKinds().empty());
}

TEST(EnablePrivilege, IsMinus2WhenTheLookUpFails) {
  simulator::Server server;
  server.calls().FailNext("LookupPrivilegeValueA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -2);
  EXPECT_TRUE(server.handles().OpenKinds().empty());
}

TEST(EnablePrivilege, IsMinus3WhenTheTokenCannotBeAdjustedAndLeavesItOpen) {
  simulator::Server server;
  server.calls().FailNext("AdjustTokenPrivileges", ERROR_ACCESS_DENIED);
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), -3);
  EXPECT_EQ(server.handles().OpenKinds(), std::vector<std::string>{"token"});
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

}  // namespace
}  // namespace common
