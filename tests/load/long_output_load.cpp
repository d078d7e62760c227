// A tool that writes and writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "load/load_size.h"
#include "load/memory_use.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_command.h"

namespace load {
namespace {

constexpr size_t kRead = 1023;   // bytes that the program asks for at once
constexpr size_t kBlock = 4096;  // bytes that the tool writes at once, and that the pipe holds

size_t Length() { return Size(16 * kMebibyte, 1024 * kMebibyte, 1024 * kMebibyte); }

// The text has its room in one block, each of at least twice the size of the one before it and the
// last of less than twice the text. One block more is the pipe's.
size_t MostLargeBlocks() {
  size_t blocks = 1;
  for (size_t room = kLargeBlock; room < 2 * Length(); room *= 2) ++blocks;
  return blocks;
}

// What capturing took.
struct Captured {
  size_t size;
  std::ptrdiff_t lines;
  size_t highest_heap;  // beyond what was in use before
  size_t reads;
  LargeBlocks large_blocks;
};

class Tool : public tests::SimulatedCommandTest {
 public:
  Tool() {
    server_.calls().KeepTrace(false);
    server_.calls().Watch([this](std::string_view name, const std::string&) {
      if (name == "ReadFile") ++reads_;
    });
    while (block_.size() < kBlock) block_ += std::string(62, 'x') + "\r\n";
  }
  void TestBody() override {}

  // Runs a tool that writes lines of 64 characters. It ends early when capturing has taken more
  // blocks than it may: a text that is copied for every read takes hours.
  Captured Capture() {
    server_.processes().Install("tool", [this](simulator::Server&, simulator::ChildProcess& child) {
      for (size_t left = Length(); left > 0; left -= std::min(left, kBlock)) {
        if (LargeBlocksHandedOut().count > before_.count + MostLargeBlocks()) break;
        child.WriteOutput(std::string_view(block_).substr(0, left));
      }
      return DWORD{0};
    });
    const size_t heap = HeapInUse();
    TakeHighestHeapUse();
    before_ = LargeBlocksHandedOut();
    EXPECT_EQ(Run("tool"), 0U);
    const LargeBlocks after = LargeBlocksHandedOut();
    return {output_.size(),
            std::count(output_.begin(), output_.end(), '\n'),
            TakeHighestHeapUse() - heap,
            reads_,
            {after.count - before_.count, after.bytes - before_.bytes}};
  }

 private:
  std::string block_;
  size_t reads_ = 0;
  LargeBlocks before_{};
};

class LongOutput : public testing::Test {
 protected:
  static void SetUpTestSuite() { captured_ = Tool().Capture(); }

  static inline Captured captured_{};
};

TEST_F(LongOutput, IsCapturedToItsEnd) {
  EXPECT_EQ(captured_.size, Length());
  EXPECT_EQ(captured_.lines, static_cast<std::ptrdiff_t>(Length() / 64));
}

// A text that grows is copied into a place of twice its size: for that moment there is room for
// three times what it holds.
TEST_F(LongOutput, NeedsThreeTimesItsTextAtMost) {
  EXPECT_LE(captured_.highest_heap, 3 * Length() + kMebibyte);
}

// A read that brings less than it asks for has emptied the pipe. Before the next one of these the
// tool has come to the end of a block or filled the pipe.
TEST_F(LongOutput, TakesReadsAsItsLengthDoes) {
  EXPECT_GE(captured_.reads, Length() / kRead);
  EXPECT_LE(captured_.reads, Length() / kRead + 2 * (Length() / kBlock) + 2);
}

// All blocks together are less than twice the last.
TEST_F(LongOutput, IsCopiedAsItsLengthDoes) {
  EXPECT_LE(captured_.large_blocks.count, MostLargeBlocks());
  EXPECT_LE(captured_.large_blocks.bytes, 4 * Length() + 2 * kBlock);
}

}  // namespace
}  // namespace load
