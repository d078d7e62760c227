// What the logger keeps between its lines, and two threads at one logger.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "support/logger_test.h"
#include "support/printed_text.h"

namespace logger {
namespace {

using Lines = std::vector<std::string>;
using tests::LinesWithoutStamp;
using tests::LogBy;
using tests::Operation;
using tests::Operations;
using BLoggerState = tests::LoggerTest;

TEST_F(BLoggerState, BothSwitchesAreOnAtFirst) {
  const auto logger = MakeLogger();
  EXPECT_TRUE(logger->IsOutputEnabled());
  EXPECT_TRUE(logger->IsEnabled());
}

TEST_F(BLoggerState, EachSwitchIsItsOwn) {
  const auto logger = MakeLogger();
  logger->SetOutputEnabled(false);
  EXPECT_FALSE(logger->IsOutputEnabled());
  EXPECT_TRUE(logger->IsEnabled());
  logger->SetEnabled(false);
  logger->SetOutputEnabled(true);
  EXPECT_TRUE(logger->IsOutputEnabled());
  EXPECT_FALSE(logger->IsEnabled());
  logger->SetEnabled(true);
  EXPECT_TRUE(logger->IsEnabled());
}

TEST_F(BLoggerState, WithoutTheOutputSwitchTheOutOperationsWriteOnlyTheFile) {
  const auto logger = MakeLogger();
  logger->SetOutputEnabled(false);
  tests::PrintedText printed;
  Lines expected;
  for (const Operation& operation : Operations()) {
    LogBy(operation, *logger, "x");
    expected.push_back(operation.tag + "x");
  }
  EXPECT_EQ(printed.Take(), "");
  EXPECT_EQ(LinesOf(*logger), expected);
}

TEST_F(BLoggerState, WithoutTheMasterSwitchNothingIsWrittenAnywhere) {
  const auto logger = MakeLogger();
  logger->SetEnabled(false);
  tests::PrintedText printed;
  for (const Operation& operation : Operations()) LogBy(operation, *logger, "x");
  EXPECT_EQ(printed.Take(), "");
  EXPECT_FALSE(Exists(logger->GetLogDir()));
  EXPECT_EQ(logger->GetLastErrorLine(), "");
}

TEST_F(BLoggerState, WithoutTheMasterSwitchTheLastErrorLineStays) {
  const auto logger = MakeLogger();
  logger->Error("before");
  const std::string before = logger->GetLastErrorLine();
  logger->SetEnabled(false);
  for (const Operation& operation : Operations()) LogBy(operation, *logger, "x");
  EXPECT_EQ(logger->GetLastErrorLine(), before);
  EXPECT_EQ(LinesOf(*logger), Lines{"[Error] before"});
}

TEST_F(BLoggerState, LogsAgainOnceTheMasterSwitchIsOn) {
  const auto logger = MakeLogger();
  logger->SetEnabled(false);
  logger->Info("lost");
  logger->SetEnabled(true);
  logger->Info("kept");
  EXPECT_EQ(LinesOf(*logger), Lines{"[Info]  kept"});
}

TEST_F(BLoggerState, TheLastErrorLineIsEmptyAtFirst) {
  EXPECT_EQ(MakeLogger()->GetLastErrorLine(), "");
}

TEST_F(BLoggerState, OnlyTheErrorOperationsSetTheLastErrorLine) {
  const tests::PrintedText unread;
  for (const Operation& operation : Operations()) {
    const auto logger = MakeLogger();
    LogBy(operation, *logger, "text");
    const std::string line = logger->GetLastErrorLine();
    if (operation.tag == "[Error] ") {
      EXPECT_TRUE(tests::BeginsWithStamp(line)) << operation.name;
      EXPECT_EQ(line.substr(tests::kStampSize), "[Error] text") << operation.name;
    } else {
      EXPECT_EQ(line, "") << operation.name;
    }
  }
}

TEST_F(BLoggerState, TheLastErrorLineIsTheFilesLine) {
  const tests::PrintedText unread;
  const auto logger = MakeLogger();
  logger->Error("first");
  logger->ErrorOutW(L"%s", std::wstring(3000, L'a').c_str());
  logger->Fatal("no error");
  logger->Info("no error");
  const std::string line = logger->GetLastErrorLine();
  EXPECT_EQ(line.substr(tests::kStampSize), "[Error] " + std::string(2046, 'a'));
  EXPECT_NE(BytesOf(*logger).find("\r\n" + line + "\r\n"), std::string::npos);
}

TEST_F(BLoggerState, TheLastErrorLineIsKeptWhenTheFileIsNot) {
  BLogger logger("test", PathOf("missing"));
  const tests::PrintedText unread;
  logger.Error("text");
  EXPECT_EQ(logger.GetLastErrorLine().substr(tests::kStampSize), "[Error] text");
}

TEST_F(BLoggerState, TheLastErrorLineIsKeptWithoutTheOutputSwitch) {
  const auto logger = MakeLogger();
  logger->SetOutputEnabled(false);
  logger->ErrorOut("text");
  EXPECT_EQ(logger->GetLastErrorLine().substr(tests::kStampSize), "[Error] text");
}

TEST_F(BLoggerState, KeepsAnExtraText) {
  using namespace std::string_literals;
  const auto logger = MakeLogger();
  EXPECT_EQ(logger->GetExtra(), "");
  logger->SetExtra("a\0%s\xFF"s);
  EXPECT_EQ(logger->GetExtra(), "a\0%s\xFF"s);
  logger->SetExtra(logger->GetExtra());
  EXPECT_EQ(logger->GetExtra(), "a\0%s\xFF"s);
  logger->SetExtra("");
  EXPECT_EQ(logger->GetExtra(), "");
}

TEST_F(BLoggerState, TheExtraTextIsNotLogged) {
  const auto logger = MakeLogger();
  logger->SetExtra("extra");
  logger->Error("x");
  EXPECT_EQ(LinesOf(*logger), Lines{"[Error] x"});
  EXPECT_EQ(logger->GetLastErrorLine().substr(tests::kStampSize), "[Error] x");
}

TEST_F(BLoggerState, LinesOfTwoThreadsNeverMixInTheFile) {
  constexpr int kRounds = 300;
  const auto logger = MakeLogger();
  const tests::PrintedText unread;
  std::thread worker([&logger] {
    for (int i = 0; i < kRounds; ++i) {
      logger->ErrorOutW(L"worker %d %s", i, L"wwwwwwwwwwwwwwwww");
      logger->SetExtra("worker");
    }
  });
  for (int i = 0; i < kRounds; ++i) {
    logger->InfoOut("window %d %s", i, "iiiiiiiiiiiiiiiii");
    logger->SetExtra(logger->GetLastErrorLine() + logger->GetExtra().substr(0, 10));
    logger->GetLogFilePath();
  }
  worker.join();

  Lines worker_lines;
  Lines window_lines;
  for (const std::string& line : LinesOf(*logger)) {
    (line.substr(0, 7) == "[Error]" ? worker_lines : window_lines).push_back(line);
  }
  Lines expected_worker;
  Lines expected_window;
  for (int i = 0; i < kRounds; ++i) {
    expected_worker.push_back("[Error] worker " + std::to_string(i) + " wwwwwwwwwwwwwwwww");
    expected_window.push_back("[Info]  window " + std::to_string(i) + " iiiiiiiiiiiiiiiii");
  }
  EXPECT_EQ(worker_lines, expected_worker);
  EXPECT_EQ(window_lines, expected_window);
}

TEST_F(BLoggerState, TheSwitchesMayBeTurnedWhileAnotherThreadLogs) {
  constexpr int kRounds = 300;
  const auto logger = MakeLogger();
  const tests::PrintedText unread;
  std::thread worker([&logger] {
    for (int i = 0; i < kRounds; ++i) logger->WarnOut("x");
  });
  for (int i = 0; i < kRounds; ++i) {
    logger->SetOutputEnabled(i % 2 == 0);
    logger->SetEnabled(i % 3 != 0);
  }
  worker.join();
  logger->SetEnabled(true);
  logger->Info("last");
  const Lines lines = LinesOf(*logger);
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back(), "[Info]  last");
  EXPECT_EQ(Lines(lines.begin(), lines.end() - 1), Lines(lines.size() - 1, "[Warn]  x"));
}

}  // namespace
}  // namespace logger
