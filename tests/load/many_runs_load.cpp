// One process in which the program runs a thousand times, each time as in a new one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "load/load_size.h"
#include "load/memory_use.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/lost_messages_simulated.h"
#include "support/process.h"

namespace load {
namespace {

int Runs() { return Size(20, 1000, 1000); }

// What a run left open on the server that it ran on.
struct Left {
  std::vector<std::string> handles;  // their kinds, sorted: two threads open them
  int critical_sections;
  int exit_code;
  size_t boxes;
  bool restarts;

  friend bool operator==(const Left&, const Left&) = default;
};

// What this process has beside that.
struct Kept {
  size_t heap_blocks;
  size_t malloc_bytes;
  size_t threads;
  int local_blocks;
};

// The whole program on a server of its own, which goes again.
Left RunProgram(const simulator::Scenario& scenario) {
  const tests::NewProcess process;
  simulator::Server server;
  simulator::Build(scenario, server);
  const int exit_code = server.own_process().Run(
      [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  tests::ReleaseLost(server);
  Left left{server.OpenHandles(), server.threads().LiveCriticalSections(), exit_code,
            server.message_boxes().Shown().size(), server.shutdown().Scheduled().has_value()};
  std::sort(left.handles.begin(), left.handles.end());
  return left;
}

Kept Measure() {
  return {HeapBlocksInUse(), MallocInUse(), ThreadCount(), simulator::LiveLocalBlocks()};
}

class ManyRuns : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const simulator::Scenario scenario =
        simulator::ReadScenario(std::filesystem::path(LOAD_DIR) / "small_server.json");
    for (int run = 0; run < 10; ++run) RunProgram(scenario);
    before_ = Measure();
    for (int run = 0; run < Runs(); ++run) {
      Left left = RunProgram(scenario);
      if (std::find(left_.begin(), left_.end(), left) == left_.end()) left_.push_back(left);
    }
    after_ = Measure();
  }

  static inline std::vector<Left> left_;  // each that is different from the others
  static inline Kept before_{};
  static inline Kept after_{};
};

TEST_F(ManyRuns, AllRestoreTheServer) {
  ASSERT_FALSE(left_.empty());
  EXPECT_EQ(left_[0].exit_code, 0);
  EXPECT_TRUE(left_[0].restarts);
}

TEST_F(ManyRuns, AllLeaveTheSameOpen) { EXPECT_EQ(left_.size(), 1U); }

TEST_F(ManyRuns, KeepNothingInTheProcess) {
  EXPECT_EQ(after_.threads, before_.threads);
  EXPECT_EQ(after_.local_blocks, before_.local_blocks);
  EXPECT_LE(Growth(before_.heap_blocks, after_.heap_blocks), 10U);
  // What a thread keeps for its next blocks may differ.
  if (!kIsSanitized) {
    EXPECT_LE(Growth(before_.malloc_bytes, after_.malloc_bytes), kMebibyte);
  }
}

}  // namespace
}  // namespace load
