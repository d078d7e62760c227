// Two threads at one logger, met where it counts.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <string_view>
#include <thread>

#include "simulator/model/files/files.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/simulated_logger_test.h"

namespace logger {
namespace {

// Orders nothing between threads, so that the thread checker sees what the logger's lock orders.
constexpr auto kUnordered = std::memory_order_relaxed;

// A thread at the logger is held up, as the system may hold it up anywhere, and another one logs.
class BLoggerThreads : public tests::SimulatedLoggerTest {
 protected:
  // Logs a line from each of two threads. The other one begins once the first is held up by what
  // the test watches, or is done.
  void LogFromBoth() {
    std::thread other([this] {
      while (!is_held_.load(kUnordered) && !is_first_done_.load(kUnordered)) {
        std::this_thread::yield();
      }
      logger_->Info("the other's");
      is_other_done_.store(true, kUnordered);
    });
    logger_->Info("the first's");
    is_first_done_.store(true, kUnordered);
    other.join();
  }

  // Holds the first thread up until something holds of the other one.
  void HoldUntil(const std::atomic<bool>& holds) {
    is_held_.store(true, kUnordered);
    while (!holds.load(kUnordered)) std::this_thread::yield();
  }

  bool IsFirst() const { return std::this_thread::get_id() == first_; }

  const std::thread::id first_ = std::this_thread::get_id();
  std::atomic<bool> is_held_ = false;
  std::atomic<bool> is_first_done_ = false;
  std::atomic<bool> is_other_done_ = false;
};

TEST_F(BLoggerThreads, OneWritesWhileTheOtherWaits) {
  logger_->Info("opens the file");
  std::atomic<bool> other_is_there = false;  // before the lock, or, without one, in its own write
  std::atomic<bool> both_write = false;
  server_.calls().Watch([&](std::string_view name, const std::string&) {
    if (name != "_write") return;
    if (IsFirst()) return HoldUntil(other_is_there);
    if (!is_first_done_.load(kUnordered) && !other_is_there.load(kUnordered)) {
      both_write.store(true, kUnordered);
      other_is_there.store(true, kUnordered);
    }
  });
  server_.threads().critical_sections().WatchEntering([&] {
    if (!IsFirst()) other_is_there.store(true, kUnordered);
  });
  LogFromBoth();
  server_.threads().critical_sections().WatchEntering(nullptr);
  server_.calls().Watch(nullptr);
  EXPECT_FALSE(both_write.load(kUnordered));
  EXPECT_EQ(Log(), Line("[Info]  opens the file") + Line("[Info]  the first's") +
                       Line("[Info]  the other's"));
}

TEST_F(BLoggerThreads, TheTextsAreReadAndSetUnderTheLock) {
  int entered = 0;
  server_.threads().critical_sections().WatchEntering([&] { ++entered; });
  logger_->SetExtra("extra");
  EXPECT_EQ(entered, 1);
  logger_->GetExtra();
  EXPECT_EQ(entered, 2);
  logger_->GetLastErrorLine();
  EXPECT_EQ(entered, 3);
  logger_->Error("a line, and the last one of an error");
  EXPECT_EQ(entered, 5);
  logger_.reset();
  EXPECT_EQ(entered, 6);
}

// The thread checker sees what of a line is done before the lock is taken, or behind it.
TEST_F(BLoggerThreads, NothingOfALineIsWrittenBeforeTheLockIsTaken) {
  for (const int held_at : {1, 2}) {
    is_held_ = is_first_done_ = is_other_done_ = false;
    int entered = 0;
    server_.threads().critical_sections().WatchEntering([&] {
      if (IsFirst() && ++entered == held_at) HoldUntil(is_other_done_);
    });
    LogFromBoth();
    server_.threads().critical_sections().WatchEntering(nullptr);
  }
  // The lock is taken once for a line.
  EXPECT_EQ(Log(), Line("[Info]  the other's") + Line("[Info]  the first's") +
                       Line("[Info]  the first's") + Line("[Info]  the other's"));
}

}  // namespace
}  // namespace logger
