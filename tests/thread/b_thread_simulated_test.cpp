#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "simulator/model/processes/console.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/deliberate_leak.h"
#include "thread/b_thread.h"

namespace thread {
namespace {

uint32_t ReturnFive(void*) { return 5; }

TEST(BThread, IsNotStartedWhenTheThreadCannotBeMade) {
  const tests::DeliberateLeak start_block;
  simulator::Server server;
  server.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  BThread thread;
  EXPECT_FALSE(thread.Start(ReturnFive, nullptr));
  uint32_t exit_code = 0;
  EXPECT_FALSE(thread.IsStarted());
  EXPECT_FALSE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 0xFFFFFFFF);
  EXPECT_EQ(server.console().Text(), "");
}

TEST(BThread, ForgetsTheLastRunWhenTheNextCannotBeMade) {
  const tests::DeliberateLeak start_block;
  simulator::Server server;
  BThread thread;
  ASSERT_TRUE(thread.Start(ReturnFive, nullptr));
  server.threads().WaitForAll();
  ASSERT_TRUE(thread.IsFinished(nullptr));

  server.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_FALSE(thread.Start(ReturnFive, nullptr));
  uint32_t exit_code = 0;
  EXPECT_FALSE(thread.IsStarted());
  EXPECT_FALSE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 0xFFFFFFFF);
}

TEST(BThread, StartsAfterAStartThatFailed) {
  const tests::DeliberateLeak start_block;
  simulator::Server server;
  server.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  BThread thread;
  EXPECT_FALSE(thread.Start(ReturnFive, nullptr));
  EXPECT_TRUE(thread.Start(ReturnFive, nullptr));
  server.threads().WaitForAll();
  uint32_t exit_code = 0;
  EXPECT_TRUE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 5u);
}

TEST(BThread, MayGoBeforeItsThreadEnds) {
  simulator::Server server;
  struct Work {
    std::atomic<bool> may_end = false;
    std::atomic<bool> has_ended = false;
  } work;
  {
    BThread thread;
    ASSERT_TRUE(thread.Start(
        [](void* argument) {
          Work& shared = *static_cast<Work*>(argument);
          while (!shared.may_end) ::Sleep(1);
          shared.has_ended = true;
          return 0u;
        },
        &work));
    EXPECT_FALSE(work.has_ended);
  }
  work.may_end = true;
  server.threads().WaitForAll();
  EXPECT_TRUE(work.has_ended);
}

TEST(BThread, LeavesItsHandleOpen) {
  simulator::Server server;
  {
    BThread thread;
    ASSERT_TRUE(thread.Start(ReturnFive, nullptr));
    server.threads().WaitForAll();
  }
  EXPECT_EQ(server.OpenHandles(), std::vector<std::string>{"thread"});
}

TEST(BThread, LeavesTheOldHandleOpenWhenItStartsAgain) {
  simulator::Server server;
  BThread thread;
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(thread.Start(ReturnFive, nullptr));
    server.threads().WaitForAll();
  }
  EXPECT_EQ(server.OpenHandles(), (std::vector<std::string>{"thread", "thread"}));
}

}  // namespace
}  // namespace thread
