#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;

constexpr LANGID kChinese = 2052;
constexpr char kProgress[] = "\xE8\xBF\x9B\xE5\xBA\xA6";

class LanguageTest : public testing::Test {
 protected:
  static std::string LoadText() {
    char text[512] = {};
    EXPECT_GT(::LoadStringA(nullptr, 117, text, 512), 0);
    return text;
  }

  Server server_;
};

TEST_F(LanguageTest, IsTheSystemsAtFirst) {
  EXPECT_EQ(::GetSystemDefaultLangID(), 1033);
  EXPECT_EQ(LoadText(), "Progress");
  server_.system().language = kChinese;
  EXPECT_EQ(::GetSystemDefaultLangID(), kChinese);
  EXPECT_EQ(LoadText(), kProgress);
}

TEST_F(LanguageTest, IsTheThreadsOnceItIsSet) {
  EXPECT_EQ(::SetThreadUILanguage(kChinese), kChinese);
  EXPECT_EQ(LoadText(), kProgress);
  EXPECT_EQ(::GetSystemDefaultLangID(), 1033);
  EXPECT_EQ(server_.calls().ArgumentsOf("SetThreadUILanguage"), std::vector<std::string>{"2052"});
}

TEST_F(LanguageTest, IsSetForOneThread) {
  ::SetThreadUILanguage(kChinese);
  std::thread([] { EXPECT_EQ(LoadText(), "Progress"); }).join();
}

TEST_F(LanguageTest, IsGoneWithItsServer) {
  ::SetThreadUILanguage(kChinese);
  EXPECT_EQ(server_.threads().State().ui_language, kChinese);
  server_.threads().ForgetStates();
  EXPECT_FALSE(server_.threads().State().ui_language.has_value());
}

TEST_F(LanguageTest, FollowsTheLocaleBeforeWindowsVista) {
  server_.system().major_version = 5;
  EXPECT_TRUE(::SetThreadLocale(kChinese));
  EXPECT_EQ(LoadText(), kProgress);
}

TEST_F(LanguageTest, DoesNotFollowTheLocaleSinceWindowsVista) {
  server_.system().major_version = 6;
  EXPECT_TRUE(::SetThreadLocale(kChinese));
  EXPECT_EQ(LoadText(), "Progress");
}

TEST_F(LanguageTest, StaysWhenAFaultIsDue) {
  server_.calls().FailNext("SetThreadUILanguage", ERROR_INVALID_PARAMETER);
  EXPECT_EQ(::SetThreadUILanguage(kChinese), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(LoadText(), "Progress");
  server_.system().major_version = 5;
  server_.calls().FailNext("SetThreadLocale", ERROR_INVALID_PARAMETER);
  EXPECT_FALSE(::SetThreadLocale(kChinese));
  EXPECT_EQ(LoadText(), "Progress");
}

TEST_F(LanguageTest, IsNoLocaleOfReservedBits) {
  EXPECT_FALSE(::SetThreadLocale(0x01000000 | kChinese));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(LanguageTest, AbortsForWhatIsNotHonoured) {
  EXPECT_DEATH(::SetThreadUILanguage(0), "what the console can show");
  EXPECT_DEATH(::SetThreadLocale(0x10000 | kChinese), "a sort order");
  EXPECT_DEATH(::SetThreadLocale(0x0400), "without a language");
  server_.system().major_version = 5;
  EXPECT_DEATH(::SetThreadUILanguage(kChinese), "before Windows Vista");
}

}  // namespace
