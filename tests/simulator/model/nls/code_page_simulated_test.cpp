#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "simulator/model/nls/code_page.h"

namespace simulator {
namespace {

TEST(CodePagesOfALanguage, AreThoseOfWindows) {
  const struct {
    LANGID language;
    UINT ansi;
    UINT oem;
  } cases[] = {
      {1033, 1252, 437}, {1031, 1252, 850}, {1036, 1252, 850}, {3082, 1252, 850}, {1045, 1250, 852},
      {1038, 1250, 852}, {1049, 1251, 866}, {1055, 1254, 857}, {1041, 932, 932},  {2052, 936, 936},
      {1042, 949, 949},  {1028, 950, 950},  {3076, 950, 950},  {4100, 936, 936},
  };
  for (const auto& [language, ansi, oem] : cases) {
    EXPECT_EQ(AnsiCodePageOf(language), ansi) << language;
    EXPECT_EQ(OemCodePageOf(language), oem) << language;
  }
}

TEST(CodePage, ConvertsUtf8ThereAndBack) {
  EXPECT_EQ(AnsiFromUtf8("Größe \\ 1", 1252),
            "Gr\xF6\xDF"
            "e \\ 1");
  EXPECT_EQ(Utf8FromAnsi("Gr\xF6\xDF"
                         "e \\ 1",
                         1252),
            "Größe \\ 1");
  EXPECT_EQ(AnsiFromUtf8("Größe", 850),
            "Gr\x94\xE1"
            "e");
  EXPECT_EQ(AnsiFromUtf8("運\\誠", 936), "\xDF\\\\\xD5\\");
  EXPECT_EQ(Utf8FromAnsi("\xDF\\\\\xD5\\", 936), "運\\誠");
  EXPECT_EQ(AnsiFromUtf8("表ソ", 932), "\x95\\\x83\\");
}

TEST(CodePage, LeavesUtf8AsItIs) {
  EXPECT_EQ(AnsiFromUtf8("運\xFF", kUtf8CodePage), "運\xFF");
  EXPECT_EQ(Utf8FromAnsi("運\xFF", kUtf8CodePage), "運\xFF");
}

TEST(CodePage, KnowsWhatItLacks) {
  EXPECT_TRUE(IsInCodePage("Größe €", 1252));
  EXPECT_FALSE(IsInCodePage("運", 1252));
  EXPECT_TRUE(IsInCodePage("運", 936));
  EXPECT_FALSE(IsInCodePage("Größe", 936));
  // The C library converts it, but to another character of the code page.
  EXPECT_FALSE(IsInCodePage("\u2014", 932));
  EXPECT_TRUE(IsInCodePage("\u2015", 932));
  EXPECT_TRUE(IsInCodePage("", 1252));
  EXPECT_TRUE(IsInCodePage("any 運", kUtf8CodePage));
}

TEST(CodePage, HasLeadBytes) {
  for (const int byte : {0x81, 0x9F, 0xE0, 0xFC})
    EXPECT_TRUE(IsLeadByte(static_cast<char>(byte), 932));
  for (const int byte : {0x41, 0x80, 0xA0, 0xDF, 0xFD}) {
    EXPECT_FALSE(IsLeadByte(static_cast<char>(byte), 932));
  }
  for (const UINT page : {936u, 949u, 950u}) {
    EXPECT_TRUE(IsLeadByte('\x81', page));
    EXPECT_TRUE(IsLeadByte('\xFE', page));
    EXPECT_FALSE(IsLeadByte('\x80', page));
    EXPECT_FALSE(IsLeadByte('\xFF', page));
  }
  EXPECT_FALSE(IsLeadByte('\x81', 1252));
  EXPECT_FALSE(IsLeadByte('\xE4', kUtf8CodePage));
}

TEST(CodePage, IsCutBehindAWholeCharacter) {
  const std::string chinese =
      "a\xDF\\"
      "b\xD5\\";
  const size_t whole[] = {0, 1, 1, 3, 4, 4, 6, 6};
  for (size_t longest = 0; longest < 8; ++longest) {
    EXPECT_EQ(WholeCharacters(chinese, longest, 936), whole[longest]) << longest;
  }
  EXPECT_EQ(WholeCharacters("Größe", 3, kUtf8CodePage), 2u);
  EXPECT_EQ(WholeCharacters("Gr\xF6\xDF", 3, 1252), 3u);
}

TEST(CodePage, IsConvertedOnAnyThread) {
  std::string converted;
  std::thread([&converted] { converted = AnsiFromUtf8("運", 936); }).join();
  EXPECT_EQ(converted, "\xDF\\");
}

TEST(CodePageDeathTest, IsOneThatTheLibraryKnows) {
  EXPECT_DEATH(Utf8FromAnsi("\x80", 12345), "CP12345");
}

}  // namespace
}  // namespace simulator
