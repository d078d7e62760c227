// A whole run over volumes whose lists are too long for memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "load/large_server.h"
#include "load/load_size.h"
#include "load/memory_use.h"

namespace load {
namespace {

constexpr int kVolumes = 24;  // all that there are letters for, from C on

// 20 million lines in all, or a tenth of that.
uint64_t ManyRounds() { return Size<uint64_t>(20, 834, 8'334); }
constexpr uint64_t kFewRounds = 10;

// A server on which the worker has run.
struct Finished {
  std::unique_ptr<LargeServer> server;
  int32_t result;
  size_t highest_heap;  // beyond what was in use before
  size_t kept;          // by malloc, beyond what was in use before
};

Finished RunServer(int volumes, uint64_t rounds) {
  auto server = std::make_unique<LargeServer>(volumes, rounds);
  const size_t malloc_before = MallocInUse();
  const size_t heap = HeapInUse();
  TakeHighestHeapUse();
  const int32_t result = server->Run();
  return {std::move(server), result, TakeHighestHeapUse() - heap,
          Growth(malloc_before, MallocInUse())};
}

class ManyLines : public testing::Test {
 protected:
  // One server stands at a time, that of the many lines last.
  static void SetUpTestSuite() {
    RunServer(1, kFewRounds);  // what only the first run of a process takes
    for (const int volumes : {1, 2, kVolumes}) {
      const Finished few = RunServer(volumes, kFewRounds);
      logs_of_few_.push_back(few.server->Log());
      heap_of_few_ = few.highest_heap;
    }
    many_ = RunServer(kVolumes, ManyRounds());
  }
  static void TearDownTestSuite() { many_.server.reset(); }

  static std::ptrdiff_t LinesOf(const std::string& log) {
    return std::count(log.begin(), log.end(), '\n');
  }

  static inline std::vector<std::string> logs_of_few_;  // of one, two and all volumes
  static inline size_t heap_of_few_ = 0;                // of all volumes
  static inline Finished many_{};
};

TEST_F(ManyLines, AreAllRestored) {
  EXPECT_EQ(many_.result, 0);
  EXPECT_EQ(many_.server->DescriptorsSet(), kVolumes * many_.server->LinesOfVolume());
  for (int volume = 0; volume < kVolumes; ++volume) {
    EXPECT_TRUE(many_.server->HasLastDescriptor(volume)) << "volume " << volume;
  }
}

TEST_F(ManyLines, NeedNoMoreMemoryThanFew) {
  EXPECT_LE(Growth(heap_of_few_, many_.highest_heap), 64 * kKibibyte)
      << heap_of_few_ << " and " << many_.highest_heap;
  // The server's own: descriptors and the log; and what threads keep for their next blocks.
  if (!kIsSanitized) {
    EXPECT_LE(many_.kept, 4 * kMebibyte);
  }
}

TEST_F(ManyLines, NeverTurnTheProgressBack) {
  const std::vector<double>& percents = many_.server->Percents();
  // Of each volume one for its junctions, one for every thousandth line, one at the end of its list
  // and one for all of it.
  const size_t of_volume = 1 + many_.server->LinesOfVolume() / 1000 + 1 + 1;
  ASSERT_EQ(percents.size(), kVolumes * of_volume);
  EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));

  constexpr double kShare = 100.0 / kVolumes;
  constexpr double kRounding = 1e-9;
  for (size_t volume = 0; volume < kVolumes; ++volume) {
    const double* const own = &percents[volume * of_volume];
    // A volume moves it by its share for the list, and by a fifth of that for the junctions.
    const double begin = static_cast<double>(volume) * 1.2 * kShare;
    EXPECT_NEAR(own[0], begin + 0.2 * kShare, kRounding);
    EXPECT_NEAR(own[of_volume - 2], begin + 1.0 * kShare, kRounding);
    EXPECT_NEAR(own[of_volume - 1], begin + 1.2 * kShare, kRounding);
  }
}

TEST_F(ManyLines, LeaveTheLogAsItIsWithFew) {
  EXPECT_NE(logs_of_few_.back(), "");
  EXPECT_EQ(many_.server->Log(), logs_of_few_.back());
}

TEST_F(ManyLines, LeaveALogThatGrowsByTheSameWithEachVolume) {
  const std::ptrdiff_t one = LinesOf(logs_of_few_[0]);
  const std::ptrdiff_t of_volume = LinesOf(logs_of_few_[1]) - one;
  EXPECT_GT(of_volume, 0);
  EXPECT_EQ(LinesOf(logs_of_few_[2]), one + (kVolumes - 1) * of_volume);
}

}  // namespace
}  // namespace load
