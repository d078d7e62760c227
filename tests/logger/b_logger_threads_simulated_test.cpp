// Two threads at one logger, met where it counts.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <string_view>
#include <thread>

#include "simulator/model/calls.h"
#include "simulator/model/critical_sections.h"
#include "simulator/model/files.h"
#include "simulator/model/server.h"
#include "simulator/model/threads.h"
#include "support/simulated_logger_test.h"

namespace logger {
namespace {

// Orders nothing between threads, so that the thread checker sees what the logger's lock orders.
constexpr auto kUnordered = std::memory_order_relaxed;

using BLoggerThreads = tests::SimulatedLoggerTest;

// The first line is held in the middle of its write until the other thread waits for the lock or,
// where there is none, comes to write as well. When the lock is not held round the text of the line
// or round its flush, the thread checker finds both threads in the stream.
TEST_F(BLoggerThreads, OneWritesWhileTheOtherWaits) {
  logger_->Info("opens the file");

  std::atomic<bool> was_held = false;
  std::atomic<bool> is_writing = false;
  std::atomic<bool> both_write = false;
  server_.calls().Watch([&](std::string_view name, const std::string&) {
    if (name != "_write") return;
    if (is_writing.load(kUnordered)) both_write.store(true, kUnordered);
    if (was_held.exchange(true, kUnordered)) return;
    is_writing.store(true, kUnordered);
    while (server_.threads().critical_sections().Waiting() == 0 && !both_write.load(kUnordered)) {
      std::this_thread::yield();
    }
    is_writing.store(false, kUnordered);
  });
  std::thread other([&] {
    while (!was_held.load(kUnordered)) std::this_thread::yield();
    logger_->Info("the other's");
  });
  logger_->Info("the first's");
  other.join();

  EXPECT_FALSE(both_write.load(kUnordered));
  EXPECT_EQ(Log(), Line("[Info]  opens the file") + Line("[Info]  the first's") +
                       Line("[Info]  the other's"));
}

}  // namespace
}  // namespace logger
