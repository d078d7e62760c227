#include <gtest/gtest.h>
#include <time.h>

#include <cerrno>

#include "simulator/model/common/clock.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

TEST(CrtTime, StandsStillUntilTheClockIsMoved) {
  Server server;
  __time64_t stored = 0;
  EXPECT_EQ(_time64(&stored), 1709626026);
  EXPECT_EQ(stored, 1709626026);
  server.clock().Advance(1999);
  EXPECT_EQ(_time64(nullptr), 1709626027);
}

TEST(CrtTime, IsLocalInUtc) {
  const __time64_t time = 1709626026;
  struct tm local {};
  ASSERT_EQ(_localtime64_s(&local, &time), 0);
  EXPECT_EQ(local.tm_year, 124);
  EXPECT_EQ(local.tm_mon, 2);
  EXPECT_EQ(local.tm_mday, 5);
  EXPECT_EQ(local.tm_hour, 8);
  EXPECT_EQ(local.tm_min, 7);
  EXPECT_EQ(local.tm_sec, 6);
}

TEST(CrtTime, HasNoLocalTimeBefore1970) {
  const __time64_t time = -1;
  struct tm local {};
  EXPECT_EQ(_localtime64_s(&local, &time), EINVAL);
  EXPECT_EQ(local.tm_year, -1);
}

}  // namespace
}  // namespace simulator
