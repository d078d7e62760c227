#include <gtest/gtest.h>

#include <vector>

#include "common/times.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/server.h"

namespace common {
namespace {

struct TimeCase {
  int64_t seconds;
  const char* date;
  const char* stamp;
};

TEST(Times, AreWrittenWithLeadingZeros) {
  const std::vector<TimeCase> cases = {
      {0, "19700101", "[1970-01-01 00:00:00]"},
      {1709164799, "20240228", "[2024-02-28 23:59:59]"},
      {1709251199, "20240229", "[2024-02-29 23:59:59]"},
      {1709626026, "20240305", "[2024-03-05 08:07:06]"},
      {1735689599, "20241231", "[2024-12-31 23:59:59]"},
      {1735689600, "20250101", "[2025-01-01 00:00:00]"},
      {4102444800, "21000101", "[2100-01-01 00:00:00]"},
  };
  simulator::Server server;
  for (const TimeCase& test : cases) {
    server.clock().Set(test.seconds * 1000 + 999);
    EXPECT_EQ(GetDateString(), test.date);
    EXPECT_EQ(GetTimeStamp(), test.stamp);
    EXPECT_EQ(GetSeconds(), test.seconds);
  }
}

}  // namespace
}  // namespace common
