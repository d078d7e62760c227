#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/common/clock.h"
#include "simulator/model/files/files.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/simulated_logger_test.h"

namespace logger {
namespace {

using tests::kLog;
using tests::kOddFolder;
using tests::kStamp;
using tests::LogBy;
using tests::Operation;
using tests::Operations;
using Texts = std::vector<std::string>;

using BLoggerOnAServer = tests::SimulatedLoggerTest;

TEST_F(BLoggerOnAServer, ALineIsStampTagAndMessage) {
  logger_->Info("Total %d disks", 3);
  logger_->Error("Total %d disks", 3);
  EXPECT_EQ(Log(),
            "[2024-03-05 08:07:06] [Info]  Total 3 disks\r\n"
            "[2024-03-05 08:07:06] [Error] Total 3 disks\r\n");
  EXPECT_EQ(logger_->GetLastErrorLine(), "[2024-03-05 08:07:06] [Error] Total 3 disks");
}

TEST_F(BLoggerOnAServer, WithoutAFolderTheLogLiesBesideTheProgram) {
  EXPECT_EQ(logger_->GetLogDir(), "C:\\vantoro_restore\\Logs\\");
  EXPECT_EQ(logger_->GetLogFilePath(), kLog);
}

TEST_F(BLoggerOnAServer, ALogWithoutANameIsNamedByTheDay) {
  BLogger logger("", "C:\\vantoro_restore");
  logger.Info("x");
  EXPECT_EQ(Log("C:\\vantoro_restore\\Logs\\_20240305.log"), Line("[Info]  x"));
}

TEST(BLoggerColours, TheOutOperationsPrintInTheColourOfTheirLevel) {
  for (const Operation& operation : Operations()) {
    simulator::Server server;
    BLogger logger("vantoro_restore", "");
    LogBy(operation, logger, "text");
    EXPECT_EQ(server.console().Attributes(), 7) << operation.name;

    const std::vector<simulator::ConsoleSpan> spans = server.console().Spans();
    ASSERT_EQ(spans.size(), operation.is_out ? 1u : 0u) << operation.name;
    if (!operation.is_out) continue;
    EXPECT_EQ(spans[0].attributes, operation.attributes) << operation.name;
    EXPECT_EQ(spans[0].text, kStamp + operation.tag + "text\r\n") << operation.name;
  }
}

TEST_F(BLoggerOnAServer, TheConsoleGetsALineBeforeTheDebugger) {
  // The console's colours are set before a line and reset behind it.
  std::vector<size_t> debugger_lines;
  server_.calls().Watch([&](std::string_view name, const std::string&) {
    if (name != "SetConsoleTextAttribute") return;
    debugger_lines.push_back(server_.console().DebuggerTexts().size());
  });
  logger_->ErrorOut("first");
  logger_->ErrorOut("second");
  EXPECT_EQ(debugger_lines, (std::vector<size_t>{0, 0, 1, 1}));
}

TEST_F(BLoggerOnAServer, TheDebuggerGetsTheLinesOfTheOutOperationsVerbatim) {
  Texts expected;
  for (const Operation& operation : Operations()) {
    LogBy(operation, *logger_, "100%% %s %n%");
    if (operation.is_out) expected.push_back(kStamp + operation.tag + "100%% %s %n%\r\n");
  }
  EXPECT_EQ(server_.console().DebuggerTexts(), expected);
}

TEST_F(BLoggerOnAServer, TheDebuggersCopyOfALongColouredLineIsNotCut) {
  logger_->ErrorOut("%s", std::string(3000, 'a').c_str());
  EXPECT_EQ(server_.console().DebuggerTexts(),
            Texts{kStamp + std::string("[Error] ") + std::string(2046, 'a') + "\r\n"});
}

TEST_F(BLoggerOnAServer, TheDebuggerGetsNothingWhileASwitchIsOff) {
  logger_->SetOutputEnabled(false);
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, "x");
  logger_->SetOutputEnabled(true);
  logger_->SetEnabled(false);
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, "x");
  EXPECT_EQ(server_.console().DebuggerTexts(), Texts{});
}

TEST_F(BLoggerOnAServer, AWideMessageIsWrittenInTheAnsiCodePage) {
  logger_->ErrorOutW(L"\u8FC1\u79FB \u00E4 %s", L"\u20AC");
  const std::string line =
      kStamp + std::string("[Error] \xE8\xBF\x81\xE7\xA7\xBB \xC3\xA4 \xE2\x82\xAC");
  EXPECT_EQ(Log(), line + "\r\n");
  EXPECT_EQ(Printed(), line + "\r\n");
  EXPECT_EQ(logger_->GetLastErrorLine(), line);
}

TEST_F(BLoggerOnAServer, AWideMessageIsEmptyWhenItCannotBeConverted) {
  server_.calls().FailNext("WideCharToMultiByte", ERROR_INVALID_PARAMETER);
  logger_->InfoW(L"text");
  EXPECT_EQ(Log(), Line("[Info]  "));
}

TEST_F(BLoggerOnAServer, EachLineIsOneWriteToTheDisk) {
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, "text");
  EXPECT_EQ(CountOf("_write"), Operations().size());
  EXPECT_EQ(CountOf("_open"), 1u);
  EXPECT_EQ(CountOf("_mkdir"), 1u);
}

TEST_F(BLoggerOnAServer, TheFileIsOpenedToAppend) {
  logger_->Info("x");
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"), Texts{"\"" + std::string(kLog) + "\", \"a\""});
}

TEST_F(BLoggerOnAServer, WhatLiesInTheFileStays) {
  server_.files().Write(kLog, "old\r\n\x1A");
  logger_->Info("new");
  EXPECT_EQ(Log(), "old\r\n\x1A" + std::string(kStamp) + "[Info]  new\r\n");
}

TEST_F(BLoggerOnAServer, TheFileKeepsItsNamePastMidnight) {
  constexpr int64_t kLastSecondOfMarch5 = 1709683199;
  server_.clock().Set(kLastSecondOfMarch5 * 1000);
  logger_->Info("before");
  server_.clock().Advance(1000);
  logger_->Info("after");
  EXPECT_EQ(Log(),
            "[2024-03-05 23:59:59] [Info]  before\r\n"
            "[2024-03-06 00:00:00] [Info]  after\r\n");
}

TEST_F(BLoggerOnAServer, TheNextRunOpensTheFileOfTheNewDay) {
  logger_->Info("yesterday");
  server_.clock().Advance(24 * 60 * 60 * 1000);
  const std::string today = "C:\\vantoro_restore\\Logs\\vantoro_restore_20240306.log";
  EXPECT_EQ(logger_->GetLogFilePath(), today);
  EXPECT_FALSE(server_.files().Exists(today));

  logger_ = std::make_unique<BLogger>("vantoro_restore", "");
  logger_->Info("today");
  EXPECT_EQ(Log(today), "[2024-03-06 08:07:06] [Info]  today\r\n");
  EXPECT_EQ(Log(), "[2024-03-05 08:07:06] [Info]  yesterday\r\n");
}

TEST_F(BLoggerOnAServer, TheDateIsThatOfTheFirstLine) {
  server_.clock().Advance(24 * 60 * 60 * 1000);
  logger_->Info("x");
  EXPECT_EQ(Log("C:\\vantoro_restore\\Logs\\vantoro_restore_20240306.log"),
            "[2024-03-06 08:07:06] [Info]  x\r\n");
}

TEST_F(BLoggerOnAServer, TheProgramsFolderMayHaveAnyName) {
  server_.files().MakeDirectories(kOddFolder);
  server_.system().program_path = std::string(kOddFolder) + "\\vantoro_restore.exe";
  logger_->ErrorOut("x");
  EXPECT_EQ(logger_->GetLogDir(), std::string(kOddFolder) + "\\Logs\\");
  EXPECT_EQ(Log(std::string(kOddFolder) + "\\Logs\\vantoro_restore_20240305.log"),
            Line("[Error] x"));
}

TEST_F(BLoggerOnAServer, ClosesTheFileAtItsEnd) {
  logger_->Info("x");
  EXPECT_EQ(server_.file_system().Delete(kLog), DWORD{ERROR_SHARING_VIOLATION});
  logger_.reset();
  EXPECT_EQ(CountOf("_close"), 1u);
  EXPECT_EQ(server_.file_system().Delete(kLog), DWORD{ERROR_SUCCESS});
}

TEST_F(BLoggerOnAServer, TouchesNoFileWithoutALine) {
  logger_.reset();
  EXPECT_EQ(server_.calls().Count(), 0);
}

TEST_F(BLoggerOnAServer, HasOneLockUntilItsEnd) {
  logger_->Info("x");
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 1);
  logger_.reset();
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 0);
}

}  // namespace
}  // namespace logger
