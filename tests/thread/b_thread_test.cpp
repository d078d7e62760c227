#include "thread/b_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <type_traits>

#include "support/host.h"

namespace thread {
namespace {

static_assert(std::is_abstract_v<Thread>);
static_assert(std::has_virtual_destructor_v<Thread>);
static_assert(std::is_base_of_v<Thread, BThread>);

using BThreadTest = tests::HostTest;

uint32_t WaitForExitCode(const Thread& thread) {
  uint32_t exit_code = 0;
  while (!thread.IsFinished(&exit_code)) std::this_thread::yield();
  return exit_code;
}

// What a thread of these tests is given.
struct Gate {
  std::atomic<bool> is_open = false;
  std::atomic<bool> is_entered = false;
  std::thread::id thread_id;
};

uint32_t PassGate(void* argument) {
  Gate& gate = *static_cast<Gate*>(argument);
  gate.thread_id = std::this_thread::get_id();
  gate.is_entered = true;
  while (!gate.is_open) std::this_thread::yield();
  return 42;
}

uint32_t ReturnArgument(void* argument) { return *static_cast<const uint32_t*>(argument); }

uint32_t ReturnWhetherNull(void* argument) { return argument == nullptr ? 1 : 0; }

TEST_F(BThreadTest, IsNeitherStartedNorFinishedAtFirst) {
  const BThread thread;
  uint32_t exit_code = 0;
  EXPECT_FALSE(thread.IsStarted());
  EXPECT_FALSE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 0xFFFFFFFF);
}

TEST_F(BThreadTest, StartReturnsOnceTheThreadHasBegun) {
  BThread thread;
  Gate gate;
  EXPECT_TRUE(thread.Start(PassGate, &gate));
  EXPECT_TRUE(thread.IsStarted());
  gate.is_open = true;
  WaitForExitCode(thread);
}

TEST_F(BThreadTest, RunsTheFunctionOnAThreadOfItsOwn) {
  BThread thread;
  Gate gate;
  gate.is_open = true;
  ASSERT_TRUE(thread.Start(PassGate, &gate));
  WaitForExitCode(thread);
  EXPECT_TRUE(gate.is_entered);
  EXPECT_NE(gate.thread_id, std::this_thread::get_id());
}

TEST_F(BThreadTest, IsNotFinishedWhileTheFunctionRuns) {
  BThread thread;
  Gate gate;
  ASSERT_TRUE(thread.Start(PassGate, &gate));
  while (!gate.is_entered) std::this_thread::yield();
  uint32_t exit_code = 0;
  EXPECT_FALSE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 0xFFFFFFFF);
  EXPECT_FALSE(thread.IsFinished(nullptr));
  gate.is_open = true;
  EXPECT_EQ(WaitForExitCode(thread), 42u);
}

TEST_F(BThreadTest, IsFinishedWithTheFunctionsResult) {
  for (uint32_t result : {0u, 1u, 42u, 0x80000000u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
    BThread thread;
    ASSERT_TRUE(thread.Start(ReturnArgument, &result));
    EXPECT_EQ(WaitForExitCode(thread), result);
    EXPECT_TRUE(thread.IsStarted());
  }
}

TEST_F(BThreadTest, IsFinishedNeedsNoPlaceForTheExitCode) {
  BThread thread;
  uint32_t result = 7;
  ASSERT_TRUE(thread.Start(ReturnArgument, &result));
  while (!thread.IsFinished(nullptr)) std::this_thread::yield();
  EXPECT_EQ(WaitForExitCode(thread), 7u);
}

TEST_F(BThreadTest, TakesANullArgument) {
  BThread thread;
  ASSERT_TRUE(thread.Start(ReturnWhetherNull, nullptr));
  EXPECT_EQ(WaitForExitCode(thread), 1u);
}

TEST_F(BThreadTest, MayStartAgainAfterItHasFinished) {
  BThread thread;
  uint32_t result = 7;
  ASSERT_TRUE(thread.Start(ReturnArgument, &result));
  WaitForExitCode(thread);

  Gate gate;
  ASSERT_TRUE(thread.Start(PassGate, &gate));
  uint32_t exit_code = 0;
  EXPECT_TRUE(thread.IsStarted());
  EXPECT_FALSE(thread.IsFinished(&exit_code));
  EXPECT_EQ(exit_code, 0xFFFFFFFF);
  gate.is_open = true;
  EXPECT_EQ(WaitForExitCode(thread), 42u);
}

uint32_t Count(void* argument) { return ++*static_cast<std::atomic<uint32_t>*>(argument); }

TEST_F(BThreadTest, EveryStartRunsTheFunctionOnce) {
  std::atomic<uint32_t> count = 0;
  for (uint32_t i = 1; i <= 50; ++i) {
    BThread thread;
    ASSERT_TRUE(thread.Start(Count, &count));
    EXPECT_EQ(WaitForExitCode(thread), i);
  }
}

TEST_F(BThreadTest, WhatTheFunctionWroteIsSeenOnceItHasFinished) {
  int plain = 0;
  BThread thread;
  const Thread::Function write = [](void* argument) {
    *static_cast<int*>(argument) = 5;
    return uint32_t{0};
  };
  ASSERT_TRUE(thread.Start(write, &plain));
  WaitForExitCode(thread);
  EXPECT_EQ(plain, 5);
}

}  // namespace
}  // namespace thread
