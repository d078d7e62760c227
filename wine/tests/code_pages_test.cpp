// The contract tests that need Windows' ANSI code page to be 936, which in Wine is the locale's.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "wine/drive/wine_prefix.h"
#include "wine/drive/wine_server.h"
#include "wine/tests/wine_case.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

TEST(DoubleBytePathsUnderWine, AreThoseOfTheSimulator) {
  constexpr LANGID kChinese = 2052;
  const fs::path folder = PrefixFolder("code_page");
  std::string text;
  {
    const simulator::WinePrefix prefix(folder, kChinese);
    fs::create_hard_link(simulator::WindowsProgram("tests/vantoro_tests.exe"),
                         prefix.OnSystemVolume("vantoro_tests.exe"));
    text = prefix.RunCommand({"C:\\vantoro_tests.exe", "--gtest_filter=DoubleBytePathContract.*"});
  }
  EXPECT_NE(text.find("[  PASSED  ] 5 tests."), std::string::npos) << text;
  EXPECT_EQ(text.find("SKIPPED"), std::string::npos) << text;
  if (!testing::Test::HasFailure()) simulator::RemovePrefix(folder);
}

}  // namespace
}  // namespace tests
