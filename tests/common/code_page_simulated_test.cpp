#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/code_page.h"
#include "simulator/model/server.h"

namespace common {
namespace {

constexpr char kNarrow[] = "C:\\\xE8\xBF\x81\xE7\xA7\xBB \xC3\xA4\xE2\x82\xAC";
constexpr wchar_t kWide[] = L"C:\\\u8FC1\u79FB \u00E4\u20AC";

TEST(CodePage, ConvertsCharactersOfSeveralBytes) {
  simulator::Server server;
  EXPECT_EQ(NarrowToWide(kNarrow), kWide);
  EXPECT_EQ(WideToNarrow(kWide), kNarrow);
}

TEST(CodePage, AsksForTheLengthOfTheWholeInputFirst) {
  simulator::Server server;
  const std::string text("a\0bc", 4);
  NarrowToWide(text);
  WideToNarrow(std::wstring(text.begin(), text.end()));
  // Code page, flags, text, its length, room.
  const std::vector<std::string> expected = {"0, 0, \"" + text + "\", 4, 0",
                                             "0, 0, \"" + text + "\", 4, 4"};
  EXPECT_EQ(server.calls().ArgumentsOf("MultiByteToWideChar"), expected);
  EXPECT_EQ(server.calls().ArgumentsOf("WideCharToMultiByte"), expected);
}

TEST(CodePage, TakesWhatIsNoCharacterForTheDefaultCharacter) {
  simulator::Server server;
  EXPECT_EQ(NarrowToWide("a\xFFz"), L"a\uFFFDz");
  EXPECT_EQ(NarrowToWide("a\xE8\xBF"), L"a\uFFFD");
}

TEST(CodePage, IsEmptyWhenTheSystemRefuses) {
  for (const int occurrence : {1, 2}) {
    simulator::Server server;
    server.calls().FailNext("MultiByteToWideChar", ERROR_NO_UNICODE_TRANSLATION, occurrence);
    server.calls().FailNext("WideCharToMultiByte", ERROR_INVALID_PARAMETER, occurrence);
    EXPECT_EQ(NarrowToWide("abc"), L"") << occurrence;
    EXPECT_EQ(WideToNarrow(L"abc"), "") << occurrence;
  }
}

}  // namespace
}  // namespace common
