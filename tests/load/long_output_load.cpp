// A tool that writes and writes.
#include <gtest/gtest.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "load/load_size.h"
#include "load/memory_use.h"
#include "simulator/model/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_command.h"

namespace load {
namespace {

size_t Long() { return Size(16 * kMebibyte, 1024 * kMebibyte, 1024 * kMebibyte); }
size_t Short() { return Long() / 16; }

// The processor's time, which others disturb less than the clock's.
double Seconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// What capturing took.
struct Captured {
  size_t size;
  std::ptrdiff_t lines;
  size_t highest_heap;  // beyond what was in use before
  double seconds;
};

class Tools : public tests::SimulatedCommandTest {
 public:
  Tools() { server_.calls().KeepTrace(false); }
  void TestBody() override {}

  // Runs a tool that writes so much, lines of 64 characters.
  Captured Capture(size_t size) {
    server_.processes().Install("tool", [size](simulator::Server&, simulator::ChildProcess& child) {
      std::string block;
      while (block.size() < 4096) block += std::string(62, 'x') + "\r\n";
      for (size_t left = size; left > 0; left -= std::min(left, block.size())) {
        child.WriteOutput(std::string_view(block).substr(0, left));
      }
      return DWORD{0};
    });
    const size_t heap = HeapInUse();
    TakeHighestHeapUse();
    const double begin = Seconds();
    EXPECT_EQ(Run("tool"), 0U);
    const double seconds = Seconds() - begin;
    return {output_.size(), std::count(output_.begin(), output_.end(), '\n'),
            TakeHighestHeapUse() - heap, seconds};
  }
};

class LongOutput : public testing::Test {
 protected:
  static void SetUpTestSuite() { captured_ = Tools().Capture(Long()); }

  static inline Captured captured_{};
};

TEST_F(LongOutput, IsCapturedToItsEnd) {
  EXPECT_EQ(captured_.size, Long());
  EXPECT_EQ(captured_.lines, static_cast<std::ptrdiff_t>(Long() / 64));
}

// A text that grows is copied into a place of twice its size: for that moment there is room for
// three times what it holds.
TEST_F(LongOutput, NeedsThreeTimesItsTextAtMost) {
  EXPECT_LE(captured_.highest_heap, 3 * Long() + kMebibyte);
}

TEST_F(LongOutput, TakesTimeAsItsLengthDoes) {
  std::array<double, 3> seconds{};
  for (double& each : seconds) each = Tools().Capture(Short()).seconds;
  std::sort(seconds.begin(), seconds.end());
  EXPECT_LE(captured_.seconds, 1.5 * 16 * seconds[1]);
}

}  // namespace
}  // namespace load
