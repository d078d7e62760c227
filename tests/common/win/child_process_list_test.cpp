#include "common/win/child_process_list.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <thread>
#include <vector>

namespace common::win {
namespace {

HANDLE HandleOf(uintptr_t value) { return reinterpret_cast<HANDLE>(value); }

std::vector<HANDLE> HandlesIn(const ChildProcessList& list) {
  std::vector<HANDLE> handles;
  list.ForEach([&](HANDLE handle) { handles.push_back(handle); });
  return handles;
}

TEST(ChildProcessList, BeginsEmpty) { EXPECT_TRUE(HandlesIn(ChildProcessList()).empty()); }

TEST(ChildProcessList, KeepsTheOrderOfAppending) {
  ChildProcessList list;
  list.Append(HandleOf(8));
  list.Append(HandleOf(4));
  list.Append(HandleOf(12));
  EXPECT_EQ(HandlesIn(list), (std::vector<HANDLE>{HandleOf(8), HandleOf(4), HandleOf(12)}));
}

TEST(ChildProcessList, KeepsEveryEntryOfTheSameValue) {
  ChildProcessList list;
  list.Append(HandleOf(4));
  list.Append(nullptr);
  list.Append(HandleOf(4));
  EXPECT_EQ(HandlesIn(list), (std::vector<HANDLE>{HandleOf(4), nullptr, HandleOf(4)}));
}

TEST(ChildProcessList, IsOneForTheProcess) {
  EXPECT_EQ(&ChildProcessList::Instance(), &ChildProcessList::Instance());
}

TEST(ChildProcessList, TakesVeryManyEntries) {
  ChildProcessList list;
  for (uintptr_t i = 1; i <= 200000; ++i) list.Append(HandleOf(i));
  uintptr_t expected = 0;
  list.ForEach([&](HANDLE handle) { EXPECT_EQ(handle, HandleOf(++expected)); });
  EXPECT_EQ(expected, 200000U);
}

TEST(ChildProcessList, IsReadAsABeginningWhileAnotherThreadAppends) {
  constexpr uintptr_t kLast = 5000;
  ChildProcessList list;
  std::thread appender([&] {
    for (uintptr_t i = 1; i <= kLast; ++i) list.Append(HandleOf(i));
  });
  uintptr_t seen = 0;
  while (seen < kLast) {
    uintptr_t expected = 0;
    list.ForEach([&](HANDLE handle) { ASSERT_EQ(handle, HandleOf(++expected)); });
    ASSERT_GE(expected, seen);
    seen = expected;
  }
  appender.join();
}

}  // namespace
}  // namespace common::win
