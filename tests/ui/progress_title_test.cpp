#include "ui/progress_title.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace ui {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();

TEST(PercentText, HasTwoDecimals) {
  EXPECT_EQ(PercentText(37.5), "37.50%");
  EXPECT_EQ(PercentText(0.0), "0.00%");
  EXPECT_EQ(PercentText(100.0), "100.00%");
  EXPECT_EQ(PercentText(120.0), "120.00%");
  EXPECT_EQ(PercentText(100.0 / 3.0), "33.33%");
  EXPECT_EQ(PercentText(-1.0), "-1.00%");
}

TEST(PercentText, EndsAlsoForWhatIsNoPercent) {
  for (const double percent : {kInfinity, -kInfinity, std::nan(""), kHuge, -kHuge}) {
    const std::string text = PercentText(percent);
    EXPECT_EQ(text.back(), '%');
    EXPECT_LE(text.size(), 64U);
  }
}

TEST(ProgressTitle, NamesToolVersionStageAndPercent) {
  EXPECT_EQ(ProgressTitle("Vantoro Restore Tool", "Progress", 37.5),
            "Vantoro Restore Tool 1.1.0.1 - Progress 37.50%");
  EXPECT_EQ(ProgressTitle("", "", 0.0), " 1.1.0.1 -  0.00%");
  EXPECT_EQ(ProgressTitle("%s", "%n", 1.0), "%s 1.1.0.1 - %n 1.00%");
}

TEST(TitleWithTime, HasTheDurationBehindTwoBlanks) {
  EXPECT_EQ(TitleWithTime("Title", 65), "Title  Time: 1m5s");
  EXPECT_EQ(TitleWithTime("Title", 0), "Title  Time: 0s");
  EXPECT_EQ(TitleWithTime("Title", 3600), "Title  Time: 1h0s");
  EXPECT_EQ(TitleWithTime("Title", 3665), "Title  Time: 1h1m5s");
}

TEST(BarPosition, IsThePercentTruncatedTowardZero) {
  EXPECT_EQ(BarPosition(37.5), 37);
  EXPECT_EQ(BarPosition(99.999), 99);
  EXPECT_EQ(BarPosition(100.0), 100);
  EXPECT_EQ(BarPosition(120.4), 120);
  EXPECT_EQ(BarPosition(-0.9), 0);
  EXPECT_EQ(BarPosition(-1.5), -1);
}

TEST(BarPosition, IsTheNearestIntegerOfWhatNoIntegerHolds) {
  constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
  constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();
  for (const double percent : {kInfinity, kHuge, 2147483648.0}) {
    EXPECT_EQ(BarPosition(percent), kMost);
  }
  for (const double percent : {-kInfinity, -kHuge, -2147483649.0}) {
    EXPECT_EQ(BarPosition(percent), kLeast);
  }
  EXPECT_EQ(BarPosition(2147483646.5), 2147483646);
  EXPECT_EQ(BarPosition(std::nan("")), 0);
}

TEST(TaskBarValue, HasNoSign) {
  EXPECT_EQ(TaskBarValue(37.5), 37U);
  EXPECT_EQ(TaskBarValue(120.0), 120U);
  for (const double percent : {-0.5, -1.0, -kInfinity, -kHuge})
    EXPECT_EQ(TaskBarValue(percent), 0U);
  EXPECT_EQ(TaskBarValue(std::nan("")), 0U);
}

TEST(TaskBarValue, IsTheGreatestOfWhatNoIntegerHolds) {
  for (const double percent : {kInfinity, kHuge, 18446744073709551616.0}) {
    EXPECT_EQ(TaskBarValue(percent), std::numeric_limits<uint64_t>::max());
  }
}

TEST(NextIcon, GoesRoundSixOfThemFromTheFourthOn) {
  int32_t index = kFirstIcon;
  std::vector<int32_t> shown;
  for (int i = 0; i < 9; ++i) shown.push_back(NextIcon(index));
  EXPECT_EQ(shown, (std::vector<int32_t>{3, 4, 5, 0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(index, 0);
}

}  // namespace
}  // namespace ui
