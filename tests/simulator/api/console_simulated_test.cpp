#include <windows.h>

#include <gtest/gtest.h>
#include <stdio.h>

#include <string>
#include <thread>

#include "simulator/model/processes/console.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

class SimulatedConsole : public testing::Test {
 protected:
  Server server_;
};

TEST_F(SimulatedConsole, ShowsStandardOutputAtOnce) {
  fprintf(stdout, "%d\r\n", 7);
  EXPECT_EQ(server_.console().Text(), "7\r\n");
}

TEST_F(SimulatedConsole, KeepsTheColoursOfTheText) {
  const HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
  CONSOLE_SCREEN_BUFFER_INFO info;
  ASSERT_TRUE(::GetConsoleScreenBufferInfo(console, &info));
  fputs("grey", stdout);
  ASSERT_TRUE(::SetConsoleTextAttribute(console, FOREGROUND_RED | FOREGROUND_INTENSITY));
  fputs("red ", stdout);
  fputs("too", stdout);
  ASSERT_TRUE(::SetConsoleTextAttribute(console, info.wAttributes));

  const std::vector<ConsoleSpan> spans = server_.console().Spans();
  ASSERT_EQ(spans.size(), 2u);
  EXPECT_EQ(spans[0].attributes, 7);
  EXPECT_EQ(spans[1].attributes, 12);
  EXPECT_EQ(spans[1].text, "red too");
}

TEST_F(SimulatedConsole, HasOneHandleThatIsNoneOfTheTable) {
  const HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
  EXPECT_EQ(console, ::GetStdHandle(STD_OUTPUT_HANDLE));
  EXPECT_EQ(server_.handles().Find<Object>(console), nullptr);
}

TEST_F(SimulatedConsole, RefusesOtherHandles) {
  CONSOLE_SCREEN_BUFFER_INFO info;
  EXPECT_FALSE(::GetConsoleScreenBufferInfo(nullptr, &info));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
  EXPECT_FALSE(::SetConsoleTextAttribute(INVALID_HANDLE_VALUE, 4));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
  EXPECT_EQ(::GetStdHandle(3), INVALID_HANDLE_VALUE);
}

TEST_F(SimulatedConsole, TracesNeitherPrintingNorTheDebugger) {
  fputs("x", stdout);
  ::OutputDebugStringA("y");
  ::OutputDebugStringA(nullptr);
  EXPECT_EQ(server_.calls().Count(), 0);
  EXPECT_EQ(server_.console().DebuggerTexts(), std::vector<std::string>{"y"});
}

TEST_F(SimulatedConsole, KeepsTheLinesOfThreadsWhole) {
  const auto print = [] {
    for (int i = 0; i < 100; ++i) fprintf(stdout, "%s|%s\n", "left", "right");
  };
  std::thread first(print);
  std::thread second(print);
  first.join();
  second.join();
  std::string expected;
  for (int i = 0; i < 200; ++i) expected += "left|right\n";
  EXPECT_EQ(server_.console().Text(), expected);
}

TEST(SimulatedConsoleDeathTest, IsTheOnlyStandardStream) {
  Server server;
  EXPECT_DEATH(__acrt_iob_func(2), "standard stream");
  EXPECT_DEATH(::GetStdHandle(STD_ERROR_HANDLE), "standard handle");
}

}  // namespace
}  // namespace simulator
