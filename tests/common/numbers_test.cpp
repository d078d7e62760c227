#include "common/numbers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace common {
namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

struct ReadCase {
  std::string text;
  int number;
};

TEST(ReadDecimal, ReadsDigitsUpToTheFirstOtherCharacter) {
  const std::vector<ReadCase> cases = {
      {"0", 0},
      {"12", 12},
      {"007", 7},
      {"12abc", 12},
      {"1.5", 1},
      {"4O", 4},
      {"12 34", 12},
      {"0x10", 0},
      {"1e3", 1},
      {"5-3", 5},
      {"5\xFF", 5},
      {"3,4", 3},
      {"2147483647", kMax},
      {"-2147483648", kMin},
  };
  for (const ReadCase& test : cases) EXPECT_EQ(ReadDecimal(test.text), test.number) << test.text;
}

TEST(ReadDecimal, SkipsLeadingWhiteSpace) {
  EXPECT_EQ(ReadDecimal("   7"), 7);
  EXPECT_EQ(ReadDecimal("\t\n\v\f\r 7"), 7);
  EXPECT_EQ(ReadDecimal("\xA0 7"), 0);
}

TEST(ReadDecimal, TakesOneSign) {
  const std::vector<ReadCase> cases = {
      {"+5", 5},  {"-5", -5}, {" -5", -5}, {" +5", 5}, {"+-5", 0}, {"-+5", 0},
      {"--5", 0}, {"++5", 0}, {"- 5", 0},  {"+ 5", 0}, {"-0", 0},
  };
  for (const ReadCase& test : cases) EXPECT_EQ(ReadDecimal(test.text), test.number) << test.text;
}

TEST(ReadDecimal, IsZeroWhereThereIsNothingToRead) {
  using namespace std::string_literals;
  for (const std::string& text :
       {""s, " "s, "\r\n"s, "+"s, "-"s, "abc"s, "a1"s, ".5"s, "\0"s, "\0005"s}) {
    EXPECT_EQ(ReadDecimal(text), 0) << text;
  }
}

TEST(ReadDecimal, StopsAtAZeroByte) {
  using namespace std::string_literals;
  EXPECT_EQ(ReadDecimal("12\00034"s), 12);
}

TEST(ReadDecimal, ReadsAsTheRuntimeDoes) {
  for (const char* text : {"1", " 42x", "-7", "+8", "+-9", "", "00", "-2147483648", "\v3"}) {
    EXPECT_EQ(ReadDecimal(text), std::atoi(text)) << text;
  }
}

TEST(ReadDecimal, GivesTheNearestNumberBeyondInt) {
  EXPECT_EQ(ReadDecimal("2147483648"), kMax);
  EXPECT_EQ(ReadDecimal("+99999999999"), kMax);
  EXPECT_EQ(ReadDecimal("-2147483649"), kMin);
  EXPECT_EQ(ReadDecimal(std::string(100'000, '9')), kMax);
  EXPECT_EQ(ReadDecimal("-" + std::string(100'000, '9') + "x"), kMin);
  EXPECT_EQ(ReadDecimal(std::string(100'000, '0') + "5"), 5);
}

TEST(IsCanonicalDecimal, IsTrueForTheTextOfANumber) {
  for (const char* text : {"0", "40", "7", "-5", "2147483647", "-2147483648"}) {
    EXPECT_TRUE(IsCanonicalDecimal(text)) << text;
  }
}

TEST(IsCanonicalDecimal, IsFalseForEveryOtherText) {
  using namespace std::string_literals;
  for (const std::string& text :
       {""s, "040"s, "1.5"s, "4O"s, " 40"s, "40 "s, "+40"s, "-0"s, "00"s, "-"s, "x"s, "40\0"s,
        "2147483648"s, "99999999999999999999"s, "1,000"s, "40\r"s}) {
    EXPECT_FALSE(IsCanonicalDecimal(text)) << text;
  }
}

}  // namespace
}  // namespace common
