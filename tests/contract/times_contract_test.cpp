// Time of the C runtime, whatever the time zone.
#include <time.h>

#include <cerrno>
#include <cstdint>

#include "contract/wine_differences.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr __time64_t kDay = 24 * 60 * 60;

class TimeContract : public HostTest {
 protected:
  static struct tm Local(__time64_t time) {
    struct tm local {};
    EXPECT_EQ(::_localtime64_s(&local, &time), 0) << time;
    return local;
  }

  static void ExpectRefused(const __time64_t* time) {
    struct tm local {};
    errno = 0;
    EXPECT_EQ(::_localtime64_s(&local, time), EINVAL);
    EXPECT_EQ(errno, EINVAL);
    for (const int field : {local.tm_sec, local.tm_min, local.tm_hour, local.tm_mday, local.tm_mon,
                            local.tm_year, local.tm_wday, local.tm_yday, local.tm_isdst}) {
      EXPECT_EQ(field, -1);
    }
  }
};

TEST_F(TimeContract, TheTimeIsGivenTwice) {
  __time64_t time = 0;
  const __time64_t now = ::_time64(&time);
  EXPECT_EQ(time, now);
  EXPECT_GT(now, __time64_t{1'600'000'000});
  EXPECT_GE(::_time64(nullptr), now);
}

TEST_F(TimeContract, NoonOfALeapDay) {
  // Noon in the zone of the tests, found from noon in UTC.
  __time64_t time = 951'825'600;  // 2000-02-29 12:00:00 UTC
  time += (12 - Local(time).tm_hour) * 3600 - Local(time).tm_min * 60;
  const struct tm local = Local(time);
  EXPECT_EQ(local.tm_year, 100);
  EXPECT_EQ(local.tm_mon, 1);
  EXPECT_EQ(local.tm_mday, 29);
  EXPECT_EQ(local.tm_hour, 12);
  EXPECT_EQ(local.tm_min, 0);
  EXPECT_EQ(local.tm_sec, 0);
  EXPECT_EQ(local.tm_wday, 2);
  EXPECT_EQ(local.tm_yday, 59);
}

TEST_F(TimeContract, ADayLaterIsTheNextDay) {
  const struct tm today = Local(1'709'626'026);
  const struct tm tomorrow = Local(1'709'626'026 + kDay);
  EXPECT_EQ(tomorrow.tm_yday, today.tm_yday + 1);
  EXPECT_EQ(tomorrow.tm_wday, (today.tm_wday + 1) % 7);
  EXPECT_EQ(tomorrow.tm_min, today.tm_min);
  EXPECT_EQ(tomorrow.tm_sec, today.tm_sec);
}

TEST_F(TimeContract, TimesFarAheadAreConverted) {
  EXPECT_EQ(Local(INT64_C(4'102'444'800) + 30 * kDay).tm_year, 200);    // January 2100
  EXPECT_EQ(Local(INT64_C(32'503'680'000) + 30 * kDay).tm_year, 1100);  // January 3000
}

TEST_F(TimeContract, ATimeBefore1970IsRefused) {
  for (const __time64_t time : {__time64_t{-100'000}, INT64_MIN}) ExpectRefused(&time);
}

TEST_F(TimeContract, ATimeBeyondTheYear3000IsRefused) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLastYear;
  const __time64_t time = INT64_C(32'535'216'000) + kDay;  // 3001-01-02
  ExpectRefused(&time);
}

TEST_F(TimeContract, NoTimeIsRefused) { ExpectRefused(nullptr); }

TEST_F(TimeContract, NowhereToPutItIsRefused) {
  const __time64_t time = 0;
  errno = 0;
  EXPECT_EQ(::_localtime64_s(nullptr, &time), EINVAL);
  EXPECT_EQ(errno, EINVAL);
}

}  // namespace
}  // namespace tests
