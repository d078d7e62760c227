#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;
using simulator::ShutdownRequest;

class ShutdownTest : public testing::Test {
 protected:
  ShutdownTest() { Enable(true); }

  void Enable(bool enabled) {
    ASSERT_TRUE(server_.security().SetEnabled(
        simulator::Security::Lookup("SeShutdownPrivilege").value(), enabled));
  }

  // The error, 0 for none.
  static DWORD Initiate(std::wstring message, DWORD seconds, BOOL force, BOOL reboot) {
    return ::InitiateSystemShutdownW(nullptr, message.data(), seconds, force, reboot)
               ? DWORD{ERROR_SUCCESS}
               : ::GetLastError();
  }

  Server server_;
};

TEST_F(ShutdownTest, IsNotScheduledAtFirst) {
  EXPECT_FALSE(server_.shutdown().Scheduled().has_value());
}

TEST_F(ShutdownTest, KeepsWhatItWasAskedFor) {
  ASSERT_EQ(Initiate(L"soon \u8fdb", 30, FALSE, TRUE), DWORD{ERROR_SUCCESS});
  const std::optional<ShutdownRequest> request = server_.shutdown().Scheduled();
  ASSERT_TRUE(request.has_value());
  EXPECT_EQ(request->message, "soon \xE8\xBF\x9B");
  EXPECT_EQ(request->seconds, 30u);
  EXPECT_FALSE(request->force_apps_closed);
  EXPECT_TRUE(request->reboot);
  EXPECT_EQ(server_.calls().ArgumentsOf("InitiateSystemShutdownW"),
            std::vector<std::string>{"\"soon \xE8\xBF\x9B\", 30, 0, 1"});
}

TEST_F(ShutdownTest, NeedsItsPrivilegeEnabled) {
  Enable(false);
  EXPECT_EQ(Initiate(L"", 30, TRUE, FALSE), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_FALSE(server_.shutdown().Scheduled().has_value());
}

TEST_F(ShutdownTest, IsScheduledOnce) {
  EXPECT_EQ(Initiate(L"first", 30, TRUE, FALSE), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Initiate(L"second", 10, FALSE, TRUE), DWORD{ERROR_SHUTDOWN_IN_PROGRESS});
  EXPECT_EQ(server_.shutdown().Scheduled()->message, "first");
}

TEST_F(ShutdownTest, IsNotScheduledWhenAFaultIsDue) {
  server_.calls().FailNext("InitiateSystemShutdownW", ERROR_NOT_READY);
  EXPECT_EQ(Initiate(L"", 30, TRUE, FALSE), DWORD{ERROR_NOT_READY});
  EXPECT_FALSE(server_.shutdown().Scheduled().has_value());
}

TEST_F(ShutdownTest, OutlivesTheProcess) {
  server_.own_process().Run([] { return static_cast<int>(Initiate(L"x", 30, FALSE, TRUE)); });
  EXPECT_TRUE(server_.shutdown().Scheduled().has_value());
  server_.own_process().Run([] { return 0; });
  EXPECT_TRUE(server_.shutdown().Scheduled().has_value());
}

TEST_F(ShutdownTest, AbortsForAnotherMachine) {
  std::wstring machine = L"other";
  EXPECT_DEATH(::InitiateSystemShutdownW(machine.data(), nullptr, 30, FALSE, TRUE),
               "another machine");
}

}  // namespace
