#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "simulator/api/call.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

// The numbers of the first ten calls named "A" that fail with 5.
std::vector<int> Failing(Calls& calls) {
  std::vector<int> numbers;
  for (int i = 1; i <= 10; ++i) {
    if (calls.Enter("A", "") == 5u) numbers.push_back(i);
  }
  return numbers;
}

TEST(Calls, KeepEveryCallInOrder) {
  Calls calls;
  calls.Enter("A", "1");
  calls.Enter("B", "2");
  calls.Enter("A", "3");
  EXPECT_EQ(calls.Count(), 3);
  EXPECT_EQ(calls.Trace()[1].number, 2);
  EXPECT_EQ(calls.Trace()[1].name, "B");
  EXPECT_EQ(calls.ArgumentsOf("A"), (std::vector<std::string>{"1", "3"}));
}

TEST(Calls, AreNumberedAndFailAlsoWhenTheyAreNotKept) {
  Calls calls;
  calls.KeepTrace(false);
  calls.FailNumber(2, 5);
  EXPECT_EQ(calls.Enter("A", "1"), std::nullopt);
  EXPECT_EQ(calls.Enter("A", "2"), 5u);
  calls.KeepTrace(true);
  calls.Enter("A", "3");
  EXPECT_EQ(calls.Count(), 3);
  EXPECT_EQ(calls.ArgumentsOf("A"), std::vector<std::string>{"3"});
  EXPECT_EQ(calls.Trace()[0].number, 3);
}

TEST(Calls, FailTheNumberedOne) {
  Calls calls;
  calls.FailNumber(4, 5);
  EXPECT_EQ(Failing(calls), std::vector<int>{4});
}

TEST(Calls, FailFromANumberOnForGood) {
  Calls calls;
  calls.FailNumber(8, 5, Lasting::kForGood);
  EXPECT_EQ(Failing(calls), (std::vector<int>{8, 9, 10}));
}

TEST(Calls, FailTheNextOfAName) {
  Calls calls;
  calls.FailNext("A", 5);
  EXPECT_EQ(calls.Enter("B", ""), std::nullopt);
  EXPECT_EQ(Failing(calls), std::vector<int>{1});
}

TEST(Calls, FailALaterOneOfANameCountedFromNow) {
  Calls calls;
  calls.Enter("A", "");
  calls.FailNext("A", 5, 3);
  EXPECT_EQ(Failing(calls), std::vector<int>{3});
}

TEST(Calls, FailANameForGood) {
  Calls calls;
  calls.FailNext("A", 5, 9, Lasting::kForGood);
  EXPECT_EQ(Failing(calls), (std::vector<int>{9, 10}));
}

TEST(Calls, FailNoneAnyMoreOnceCleared) {
  Calls calls;
  calls.FailNumber(1, 5, Lasting::kForGood);
  calls.ClearFaults();
  EXPECT_EQ(Failing(calls), std::vector<int>{});
}

TEST(TraceText, ShowsEachKindOfArgument) {
  const wchar_t* const missing = nullptr;
  EXPECT_EQ(TraceList("a b", L"\u00E4", missing, 7, DWORD{0xFFFFFFFF}, INVALID_HANDLE_VALUE),
            "\"a b\", \"\xC3\xA4\", null, 7, 4294967295, 0xffffffffffffffff");
}

TEST(Call, SpoilsTheLastErrorOfASuccess) {
  Server server;
  ::SetLastError(ERROR_ACCESS_DENIED);
  Call call("A");
  EXPECT_TRUE(call.Done(ERROR_SUCCESS));
  EXPECT_EQ(::GetLastError(), kSpoiltLastError);
}

TEST(Call, LeavesTheLastErrorOfAFault) {
  Server server;
  server.calls().FailNext("A", ERROR_NOT_READY);
  Call call("A");
  EXPECT_TRUE(call.fails());
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_READY});
}

TEST(LastError, IsEachThreadsOwn) {
  ::SetLastError(1);
  std::thread([] {
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_SUCCESS});
    ::SetLastError(2);
  }).join();
  EXPECT_EQ(::GetLastError(), 1u);
}

TEST(CallDeathTest, NeedsAServer) { EXPECT_DEATH(Call("A"), "no server"); }

TEST(Calls, TellWhoWatchesThemBeforeTheyAreNumbered) {
  Server server;
  std::vector<std::string> told;
  server.calls().Watch([&](std::string_view name, const std::string& arguments) {
    told.push_back(std::string(name) + " " + arguments + " " +
                   std::to_string(server.calls().Count()));
  });
  ::DeleteFileA("C:\\a.txt");
  ::CoInitialize(nullptr);
  server.calls().Watch(nullptr);
  ::DeleteFileA("C:\\b.txt");
  EXPECT_EQ(told, (std::vector<std::string>{"DeleteFileA \"C:\\a.txt\" 0", "CoInitialize  1"}));
}

TEST(Calls, AreKnownToBePlatformCallsWhileTheyLast) {
  Server server;
  bool was_within = false;
  server.calls().Watch(
      [&](std::string_view, const std::string&) { was_within = IsInPlatformCall(); });
  EXPECT_FALSE(IsInPlatformCall());
  ::DeleteFileA("C:\\a.txt");
  EXPECT_TRUE(was_within);
  EXPECT_FALSE(IsInPlatformCall());
}

}  // namespace
}  // namespace simulator
