#include "common/times.h"

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <string>
#include <vector>

#include "support/host.h"

namespace common {
namespace {

struct DurationCase {
  int32_t seconds;
  const char* text;
};

TEST(FormatDuration, LeavesOutZeroHoursAndMinutesButNeverTheSeconds) {
  const std::vector<DurationCase> cases = {
      {0, "0s"},        {1, "1s"},
      {59, "59s"},      {60, "1m0s"},
      {61, "1m1s"},     {119, "1m59s"},
      {3599, "59m59s"}, {3600, "1h0s"},
      {3601, "1h1s"},   {3659, "1h59s"},
      {3660, "1h1m0s"}, {3661, "1h1m1s"},
      {3725, "1h2m5s"}, {7200, "2h0s"},
      {86400, "24h0s"}, {std::numeric_limits<int32_t>::max(), "596523h14m7s"},
  };
  for (const DurationCase& test : cases) EXPECT_EQ(FormatDuration(test.seconds), test.text);
}

TEST(FormatDuration, IsEmptyForANegativeDuration) {
  EXPECT_EQ(FormatDuration(-1), "");
  EXPECT_EQ(FormatDuration(-3600), "");
  EXPECT_EQ(FormatDuration(std::numeric_limits<int32_t>::min()), "");
}

// "2024-03-05" has the shape "0000-00-00".
std::string ShapeOf(std::string text) {
  for (char& character : text) {
    if (std::isdigit(static_cast<unsigned char>(character)) != 0) character = '0';
  }
  return text;
}

using TimesTest = tests::HostTest;

TEST_F(TimesTest, TheDateIsEightDigits) { EXPECT_EQ(ShapeOf(GetDateString()), "00000000"); }

TEST_F(TimesTest, TheTimeStampStandsInBrackets) {
  EXPECT_EQ(ShapeOf(GetTimeStamp()), "[0000-00-00 00:00:00]");
}

}  // namespace
}  // namespace common
