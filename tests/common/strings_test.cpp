#include "common/strings.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>
#include <vector>

namespace common {
namespace {

using Pieces = std::vector<std::string>;

Pieces SplitInto(std::string_view text, std::string_view separator) {
  Pieces pieces;
  Split(text, separator, pieces);
  return pieces;
}

struct SplitCase {
  std::string text;
  std::string separator;
  Pieces pieces;
};

TEST(Split, CutsAtEveryOccurrence) {
  using namespace std::string_literals;
  const std::vector<SplitCase> cases = {
      {"a,,b", ",", {"a", "", "b"}},
      {",a", ",", {"", "a"}},
      {"a,", ",", {"a"}},
      {",", ",", {""}},
      {",,", ",", {"", ""}},
      {"", ",", {}},
      {"abc", ",", {"abc"}},
      {" a , b ", ",", {" a ", " b "}},
      {"a", "abc", {"a"}},
      {"abc", "abc", {""}},
      {"abcabc", "abc", {"", ""}},
      {"xabcy", "abc", {"x", "y"}},
      {"a\0,b\0"s, ",", {"a\0"s, "b\0"s}},
      {"a\0b"s, "\0"s, {"a", "b"}},
      {"\xFF\xFE,\x80", ",", {"\xFF\xFE", "\x80"}},
      {"a\xFFz", "\xFF", {"a", "z"}},
      {"aXbxc", "x", {"aXb", "c"}},
  };
  for (const SplitCase& test : cases) {
    EXPECT_EQ(SplitInto(test.text, test.separator), test.pieces)
        << '"' << test.text << "\" at \"" << test.separator << '"';
  }
}

TEST(Split, CutsOnlyAtTheWholeSeparator) {
  EXPECT_EQ(SplitInto("a\r\nb\nc\rd\n\re\r\n", "\r\n"), (Pieces{"a", "b\nc\rd\n\re"}));
}

TEST(Split, FindsNoEmptySeparator) {
  EXPECT_EQ(SplitInto("a,b", ""), Pieces{"a,b"});
  EXPECT_EQ(SplitInto("", ""), Pieces{});
}

TEST(Split, FindsNoOverlappingOccurrences) {
  EXPECT_EQ(SplitInto("aaa", "aa"), (Pieces{"", "a"}));
  EXPECT_EQ(SplitInto("aaaa", "aa"), (Pieces{"", ""}));
  EXPECT_EQ(SplitInto("ababa", "aba"), (Pieces{"", "ba"}));
}

TEST(Split, AppendsToTheList) {
  Pieces pieces = {"before"};
  Split("a,b", ",", pieces);
  Split("", ",", pieces);
  Split("c", ",", pieces);
  EXPECT_EQ(pieces, (Pieces{"before", "a", "b", "c"}));
}

TEST(Split, TakesHugeTexts) {
  const std::string text(1'000'000, ',');
  EXPECT_EQ(SplitInto(text, ","), Pieces(1'000'000));
  EXPECT_EQ(SplitInto(text, ";"), Pieces{text});
}

struct TrimCase {
  std::string text;
  std::string trimmed;
};

TEST(TrimSpaces, RemovesBlanksAtBothEnds) {
  using namespace std::string_literals;
  const std::vector<TrimCase> cases = {
      {"", ""},           {" ", ""},   {"   ", ""},        {"a", "a"},         {"  a  b  ", "a  b"},
      {"a ", "a"},        {" a", "a"}, {"\ta\t", "\ta\t"}, {" \r\n ", "\r\n"}, {" \0 "s, "\0"s},
      {" \xA0 ", "\xA0"},
  };
  for (const TrimCase& test : cases) EXPECT_EQ(TrimSpaces(test.text), test.trimmed) << test.text;
}

struct TrimSetCase {
  std::string text;
  std::string set;
  std::string trimmed;
};

TEST(TrimLeft, RemovesLeadingCharactersOfTheSet) {
  using namespace std::string_literals;
  const std::vector<TrimSetCase> cases = {
      {"  a ", " ", "a "},
      {"\r\n a", "\n\r", " a"},
      {"xyxa", "xy", "a"},
      {"abc", "x", "abc"},
      {"axx", "x", "axx"},
      {"\0\0a"s, "\0"s, "a"},
      {"\xFF\xFEz", "\xFE\xFF", "z"},
  };
  for (const TrimSetCase& test : cases) {
    EXPECT_EQ(TrimLeft(test.text, test.set), test.trimmed) << test.text;
  }
}

TEST(TrimRight, RemovesTrailingCharactersOfTheSet) {
  using namespace std::string_literals;
  const std::vector<TrimSetCase> cases = {
      {" a  ", " ", " a"},
      {"a\r\n", "\n\r", "a"},
      {"a xyx", "xy", "a "},
      {"abc", "x", "abc"},
      {"xxa", "x", "xxa"},
      {"a\0\0"s, "\0"s, "a"},
      {"z\xFF\xFE", "\xFE\xFF", "z"},
  };
  for (const TrimSetCase& test : cases) {
    EXPECT_EQ(TrimRight(test.text, test.set), test.trimmed) << test.text;
  }
}

TEST(TrimLeft, NeverEmptiesAText) {
  EXPECT_EQ(TrimLeft("   ", " "), "   ");
  EXPECT_EQ(TrimLeft("\r\n\r", "\n\r"), "\r\n\r");
}

TEST(TrimRight, NeverEmptiesAText) {
  EXPECT_EQ(TrimRight("   ", " "), "   ");
  EXPECT_EQ(TrimRight("\r\n\r", "\n\r"), "\r\n\r");
}

TEST(TrimLeft, LeavesATextAloneWithoutASet) { EXPECT_EQ(TrimLeft(" a ", ""), " a "); }

TEST(TrimRight, LeavesATextAloneWithoutASet) { EXPECT_EQ(TrimRight(" a ", ""), " a "); }

TEST(TrimLeft, LeavesAnEmptyTextAlone) {
  EXPECT_EQ(TrimLeft("", " "), "");
  EXPECT_EQ(TrimLeft("", ""), "");
}

TEST(TrimRight, LeavesAnEmptyTextAlone) {
  EXPECT_EQ(TrimRight("", " "), "");
  EXPECT_EQ(TrimRight("", ""), "");
}

std::string EveryByte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(ToUpperAscii, MapsTheLettersAndNoOtherByte) {
  std::string expected = EveryByte();
  expected.replace('a', 26, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(ToUpperAscii(EveryByte()), expected);
}

TEST(ToLowerAscii, MapsTheLettersAndNoOtherByte) {
  std::string expected = EveryByte();
  expected.replace('A', 26, "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(ToLowerAscii(EveryByte()), expected);
}

TEST(ToLowerAscii, LeavesMultiByteCharactersAlone) {
  EXPECT_EQ(ToLowerAscii("C:\\\xC3\x84 \xE4\xB8\xAD\xE6\x96\x87 X"),
            "c:\\\xC3\x84 \xE4\xB8\xAD\xE6\x96\x87 x");
}

TEST(ToUpperAscii, GivesAnEmptyTextForAnEmptyOne) { EXPECT_EQ(ToUpperAscii(""), ""); }

TEST(ToLowerAscii, GivesAnEmptyTextForAnEmptyOne) { EXPECT_EQ(ToLowerAscii(""), ""); }

TEST(ToDecimal, WritesTheDigitsAlone) {
  EXPECT_EQ(ToDecimal(0), "0");
  EXPECT_EQ(ToDecimal(7), "7");
  EXPECT_EQ(ToDecimal(10), "10");
  EXPECT_EQ(ToDecimal(1'234'567), "1234567");
  EXPECT_EQ(ToDecimal(0x7FFFFFFF), "2147483647");
  EXPECT_EQ(ToDecimal(0x80000000), "2147483648");
  EXPECT_EQ(ToDecimal(0xFFFFFFFF), "4294967295");
}

struct FixedCase {
  double number;
  const char* text;
};

TEST(FormatFixed2, WritesTwoDigitsAfterThePoint) {
  const std::vector<FixedCase> cases = {
      {0, "0.00"},       {1, "1.00"},
      {-1.5, "-1.50"},   {0.994, "0.99"},
      {0.996, "1.00"},   {1.005, "1.00"},
      {2.675, "2.67"},   {99.999, "100.00"},
      {33.333, "33.33"}, {1234567.891, "1234567.89"},
      {-0.004, "-0.00"},
  };
  for (const FixedCase& test : cases) EXPECT_EQ(FormatFixed2(test.number), test.text);
}

// 1.005 and 2.675 are a little less than they read.
TEST(FormatFixed2, RoundsTheNumberThatIsStored) {
  EXPECT_EQ(FormatFixed2(1.005), "1.00");
  EXPECT_EQ(FormatFixed2(2.675), "2.67");
  EXPECT_EQ(FormatFixed2(2.676), "2.68");
  EXPECT_EQ(FormatFixed2(-0.006), "-0.01");
  EXPECT_EQ(FormatFixed2(-1e-300), "-0.00");
}

TEST(FormatFixed2, KeepsWhatFitsIntoItsBuffer) {
  char printed[512];
  std::snprintf(printed, sizeof(printed), "%.2lf", -std::numeric_limits<double>::max());
  EXPECT_EQ(FormatFixed2(-std::numeric_limits<double>::max()), std::string(printed, 63));
}

}  // namespace
}  // namespace common
