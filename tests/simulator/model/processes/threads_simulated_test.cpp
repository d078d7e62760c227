#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "simulator/model/common/clock.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;

DWORD Increment(LPVOID number) {
  ++*static_cast<std::atomic<int>*>(number);
  return 0;
}

TEST(CreateThread, RunsTheFunctionWithItsParameter) {
  std::atomic<int> number = 0;  // outlives the thread, for which the server waits
  Server server;
  EXPECT_NE(::CreateThread(nullptr, 0, Increment, &number, 0, nullptr), nullptr);
  server.threads().WaitForAll();
  EXPECT_EQ(number, 1);
}

TEST(CreateThread, GivesAHandleThatIsLeftOpenUntilItIsClosed) {
  std::atomic<int> number = 0;
  Server server;
  const HANDLE thread = ::CreateThread(nullptr, 0, Increment, &number, 0, nullptr);
  EXPECT_EQ(server.OpenHandles(), std::vector<std::string>{"thread"});
  EXPECT_TRUE(::CloseHandle(thread));
  EXPECT_TRUE(server.OpenHandles().empty());
}

TEST(CreateThread, FailsWhenAFaultIsDue) {
  Server server;
  server.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  std::atomic<int> number = 0;
  EXPECT_EQ(::CreateThread(nullptr, 0, Increment, &number, 0, nullptr), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  server.threads().WaitForAll();
  EXPECT_EQ(number, 0);
}

TEST(CreateThread, AbortsForWhatIsNotHonoured) {
  std::atomic<int> number = 0;
  Server server;
  DWORD id = 0;
  EXPECT_DEATH(::CreateThread(nullptr, 4096, Increment, &number, 0, nullptr), "a stack size");
  EXPECT_DEATH(::CreateThread(nullptr, 0, Increment, &number, 4, nullptr), "creation flags");
  EXPECT_DEATH(::CreateThread(nullptr, 0, Increment, &number, 0, &id), "a thread id");
}

TEST(Threads, AreWaitedForAtTheServersEnd) {
  std::atomic<int> number = 0;
  {
    Server server;
    for (int i = 0; i < 100; ++i) ::CreateThread(nullptr, 0, Increment, &number, 0, nullptr);
  }
  EXPECT_EQ(number, 100);
}

TEST(Threads, AreWaitedForWhenAThreadStartedThem) {
  std::atomic<int> number = 0;
  {
    Server server;
    const auto start_another = [](LPVOID parameter) -> DWORD {
      ::CreateThread(nullptr, 0, Increment, parameter, 0, nullptr);
      return 0;
    };
    ::CreateThread(nullptr, 0, start_another, &number, 0, nullptr);
  }
  EXPECT_EQ(number, 1);
}

TEST(Sleep, MovesTheSteeredClock) {
  Server server;
  const int64_t before = server.clock().Milliseconds();
  ::Sleep(1500);
  EXPECT_EQ(server.clock().Milliseconds(), before + 1500);
  EXPECT_EQ(server.calls().Count(), 0);
}

TEST(Sleep, LetsAnotherThreadRun) {
  std::atomic<int> number = 0;
  Server server;
  ::CreateThread(nullptr, 0, Increment, &number, 0, nullptr);
  while (number == 0) ::Sleep(1);
  SUCCEED();
}

class CriticalSectionTest : public testing::Test {
 protected:
  Server server_;
  CRITICAL_SECTION section_;
};

TEST_F(CriticalSectionTest, IsCountedFromInitialisingToDeleting) {
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 0);
  ::InitializeCriticalSection(&section_);
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 1);
  ::DeleteCriticalSection(&section_);
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 0);
}

TEST_F(CriticalSectionTest, IsEnteredAgainByTheSameThread) {
  ::InitializeCriticalSection(&section_);
  ::EnterCriticalSection(&section_);
  EXPECT_TRUE(::TryEnterCriticalSection(&section_));
  ::LeaveCriticalSection(&section_);
  ::LeaveCriticalSection(&section_);
  ::DeleteCriticalSection(&section_);
}

TEST_F(CriticalSectionTest, IsNotEnteredWhileAnotherThreadHoldsIt) {
  ::InitializeCriticalSection(&section_);
  ::EnterCriticalSection(&section_);
  ::EnterCriticalSection(&section_);
  ::LeaveCriticalSection(&section_);
  std::thread([this] { EXPECT_FALSE(::TryEnterCriticalSection(&section_)); }).join();
  ::LeaveCriticalSection(&section_);
  std::thread([this] {
    EXPECT_TRUE(::TryEnterCriticalSection(&section_));
    ::LeaveCriticalSection(&section_);
  }).join();
  ::DeleteCriticalSection(&section_);
}

TEST_F(CriticalSectionTest, KeepsThreadsApart) {
  ::InitializeCriticalSection(&section_);
  int number = 0;  // guarded by the section alone
  const auto count = [this, &number] {
    for (int i = 0; i < 10'000; ++i) {
      ::EnterCriticalSection(&section_);
      ++number;
      ::LeaveCriticalSection(&section_);
    }
  };
  std::thread first(count);
  std::thread second(count);
  first.join();
  second.join();
  EXPECT_EQ(number, 20'000);
  ::DeleteCriticalSection(&section_);
}

TEST_F(CriticalSectionTest, AbortsWhenUsedBeforeInitialising) {
  EXPECT_DEATH(::EnterCriticalSection(&section_), "EnterCriticalSection of one that is not");
  EXPECT_DEATH(::TryEnterCriticalSection(&section_), "TryEnterCriticalSection of one that is not");
  EXPECT_DEATH(::LeaveCriticalSection(&section_), "LeaveCriticalSection of one that is not");
  EXPECT_DEATH(::DeleteCriticalSection(&section_), "DeleteCriticalSection of one that is not");
}

TEST_F(CriticalSectionTest, AbortsWhenUsedAfterDeleting) {
  ::InitializeCriticalSection(&section_);
  ::DeleteCriticalSection(&section_);
  EXPECT_DEATH(::EnterCriticalSection(&section_), "EnterCriticalSection of one that is not");
}

TEST_F(CriticalSectionTest, AbortsWhenInitialisedTwice) {
  ::InitializeCriticalSection(&section_);
  EXPECT_DEATH(::InitializeCriticalSection(&section_), "InitializeCriticalSection of one that is");
}

TEST_F(CriticalSectionTest, AbortsWhenLeftByAThreadThatDoesNotHoldIt) {
  ::InitializeCriticalSection(&section_);
  EXPECT_DEATH(::LeaveCriticalSection(&section_), "does not hold");
}

TEST_F(CriticalSectionTest, AbortsWhenDeletedWhileItIsHeld) {
  ::InitializeCriticalSection(&section_);
  ::EnterCriticalSection(&section_);
  EXPECT_DEATH(::DeleteCriticalSection(&section_), "one that is held");
  ::LeaveCriticalSection(&section_);
}

}  // namespace
