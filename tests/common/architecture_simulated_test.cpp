#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/architecture.h"
#include "simulator/model/server.h"

namespace common {
namespace {

TEST(IsNativeX64, IsTrueForTheTwo64BitArchitecturesOnly) {
  const std::vector<std::pair<WORD, bool>> cases = {
      {0, false}, {5, false},  {6, true},   {7, false},      {8, false},
      {9, true},  {10, false}, {12, false}, {0xFFFF, false},
  };
  simulator::Server server;
  for (const auto& [architecture, expected] : cases) {
    server.system().architecture = architecture;
    bool is_x64 = !expected;
    EXPECT_TRUE(IsNativeX64(is_x64)) << architecture;
    EXPECT_EQ(is_x64, expected) << architecture;
  }
}

TEST(IsNativeX64, LeavesTheAnswerAloneWithoutGetNativeSystemInfo) {
  simulator::Server server;
  server.system().has_native_system_info = false;
  for (const bool before : {false, true}) {
    bool is_x64 = before;
    EXPECT_FALSE(IsNativeX64(is_x64));
    EXPECT_EQ(is_x64, before);
  }
}

TEST(IsNativeX64, LeavesTheAnswerAloneWhenALookUpFails) {
  for (const std::string call : {"GetModuleHandleW", "GetProcAddress"}) {
    simulator::Server server;
    server.calls().FailNext(call, ERROR_MOD_NOT_FOUND);
    bool is_x64 = true;
    EXPECT_FALSE(IsNativeX64(is_x64)) << call;
    EXPECT_TRUE(is_x64) << call;
  }
}

TEST(IsNativeX64, LooksTheFunctionUpInKernel32) {
  simulator::Server server;
  bool is_x64 = false;
  EXPECT_TRUE(IsNativeX64(is_x64));
  EXPECT_EQ(server.calls().ArgumentsOf("GetModuleHandleW"),
            std::vector<std::string>{"\"kernel32\""});
}

}  // namespace
}  // namespace common
