#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/server.h"

namespace {

using simulator::Server;

constexpr DWORD kClasses = ICC_BAR_CLASSES | ICC_COOL_CLASSES;

TEST(InitCommonControlsEx, KeepsTheClassesInTheTrace) {
  Server server;
  const INITCOMMONCONTROLSEX controls = {sizeof(controls), kClasses};
  EXPECT_TRUE(::InitCommonControlsEx(&controls));
  EXPECT_EQ(server.calls().ArgumentsOf("InitCommonControlsEx"), std::vector<std::string>{"1028"});
}

TEST(InitCommonControlsEx, FailsWhenAFaultIsDue) {
  Server server;
  server.calls().FailNext("InitCommonControlsEx", ERROR_NOT_ENOUGH_MEMORY);
  const INITCOMMONCONTROLSEX controls = {sizeof(controls), kClasses};
  EXPECT_FALSE(::InitCommonControlsEx(&controls));
}

TEST(InitCommonControlsEx, AbortsForWhatIsNotHonoured) {
  Server server;
  const INITCOMMONCONTROLSEX wrong_size = {4, kClasses};
  const INITCOMMONCONTROLSEX wrong_class = {sizeof(wrong_class), 0x10000};
  EXPECT_DEATH(::InitCommonControlsEx(&wrong_size), "INITCOMMONCONTROLSEX::dwSize");
  EXPECT_DEATH(::InitCommonControlsEx(&wrong_class), "INITCOMMONCONTROLSEX::dwICC");
}

}  // namespace
