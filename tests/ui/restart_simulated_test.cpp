#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "ui/restart.h"

namespace ui {
namespace {

using Lines = std::vector<std::string>;

class RestartTest : public testing::Test {
 protected:
  bool IsScheduled() { return server_.shutdown().Scheduled().has_value(); }
  bool HasPrivilege() { return server_.security().Enabled("SeShutdownPrivilege"); }

  simulator::Server server_;
};

TEST_F(RestartTest, SchedulesARestartIn30Seconds) {
  EXPECT_TRUE(Restart(L"a message: 重启"));
  const std::optional<simulator::ShutdownRequest> request = server_.shutdown().Scheduled();
  ASSERT_TRUE(request);
  EXPECT_EQ(request->message, "a message: 重启");
  EXPECT_EQ(request->seconds, 30U);
  EXPECT_FALSE(request->force_apps_closed);
  EXPECT_TRUE(request->reboot);
}

TEST_F(RestartTest, DisablesThePrivilegeAgain) {
  EXPECT_TRUE(Restart(L""));
  EXPECT_FALSE(HasPrivilege());
  EXPECT_EQ(server_.calls().ArgumentsOf("AdjustTokenPrivileges").size(), 2U);
}

TEST_F(RestartTest, OpensTheTokenToAdjustAndQuery) {
  EXPECT_TRUE(Restart(L""));
  const Lines arguments = server_.calls().ArgumentsOf("OpenProcessToken");
  ASSERT_EQ(arguments.size(), 1U);
  EXPECT_TRUE(arguments[0].ends_with(", 40")) << arguments[0];
}

TEST_F(RestartTest, LeavesTheTokenOpen) {
  EXPECT_TRUE(Restart(L""));
  EXPECT_EQ(server_.OpenHandles(), Lines{"token"});
}

TEST_F(RestartTest, FailsWithoutTheToken) {
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(Restart(L""));
  EXPECT_FALSE(IsScheduled());
  EXPECT_EQ(server_.calls().Count(), 1);
}

TEST_F(RestartTest, FailsWithoutThePrivilege) {
  server_.security().Revoke("SeShutdownPrivilege");
  EXPECT_FALSE(Restart(L""));
  EXPECT_FALSE(IsScheduled());
}

TEST_F(RestartTest, FailsWhenThePrivilegeCannotBeEnabled) {
  server_.calls().FailNext("AdjustTokenPrivileges", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(Restart(L""));
  EXPECT_FALSE(IsScheduled());
}

// The privilege's name alone is not worth a check: without its number nothing can be enabled.
TEST_F(RestartTest, FailsWhenThePrivilegeIsNotFound) {
  server_.calls().FailNext("LookupPrivilegeValueW", ERROR_NO_SUCH_PRIVILEGE);
  EXPECT_FALSE(Restart(L""));
  EXPECT_FALSE(IsScheduled());
  EXPECT_EQ(server_.calls().ArgumentsOf("AdjustTokenPrivileges").size(), 1U);
}

TEST_F(RestartTest, LeavesThePrivilegeOnWhenTheSystemRefuses) {
  server_.calls().FailNext("InitiateSystemShutdownW", ERROR_SHUTDOWN_IN_PROGRESS);
  EXPECT_FALSE(Restart(L""));
  EXPECT_TRUE(HasPrivilege());
}

TEST_F(RestartTest, SucceedsThoughThePrivilegeStaysOn) {
  server_.calls().FailNext("AdjustTokenPrivileges", ERROR_ACCESS_DENIED, 2);
  EXPECT_TRUE(Restart(L""));
  EXPECT_TRUE(IsScheduled());
}

}  // namespace
}  // namespace ui
