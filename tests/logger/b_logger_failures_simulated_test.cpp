// The logger when its folder, its file or its disk fails.
#include <windows.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include "simulator/model/files/files.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/simulated_logger_test.h"

namespace logger {
namespace {

using simulator::Lasting;
using tests::kLog;
using tests::kLogs;
using tests::kOddFolder;
using tests::kStamp;
using tests::LogBy;
using tests::Operation;
using tests::Operations;
using Texts = std::vector<std::string>;

using BLoggerFailures = tests::SimulatedLoggerTest;

TEST_F(BLoggerFailures, AFolderThatCannotBeMadeIsReportedByItsName) {
  server_.system().program_path = std::string(kOddFolder) + "\\vantoro_restore.exe";
  server_.files().MakeDirectories(kOddFolder);
  server_.calls().FailNext("_mkdir", EACCES);
  logger_->Info("x");
  EXPECT_EQ(Printed(), "common::CreateDir [" + std::string(kOddFolder) +
                           "\\Logs\\], Error: Permission denied\r\n");
}

TEST_F(BLoggerFailures, AFileInPlaceOfTheFolderIsReported) {
  server_.files().Write(kLogs, "file");
  logger_->Info("x");
  EXPECT_EQ(Printed(), "common::CreateDir [C:\\vantoro_restore\\Logs\\], Error: File exists\r\n");
  EXPECT_EQ(Log(kLogs), "file");
}

TEST_F(BLoggerFailures, AFolderWhoseTestFailsIsMadeAgainAndReported) {
  server_.files().MakeDirectories(kLogs);
  server_.calls().FailNext("_access", EACCES);
  logger_->Info("lost");
  EXPECT_EQ(Printed(), "common::CreateDir [C:\\vantoro_restore\\Logs\\], Error: File exists\r\n");
  logger_->Info("kept");
  EXPECT_EQ(Log(), Line("[Info]  kept"));
}

TEST_F(BLoggerFailures, TheFolderIsTriedAgainWithEveryLine) {
  server_.calls().FailNext("_mkdir", EACCES);
  server_.calls().FailNext("_mkdir", ENOSPC, 2);
  logger_->Info("lost");
  logger_->Info("lost too");
  logger_->Info("kept");
  EXPECT_EQ(Printed(),
            "common::CreateDir [C:\\vantoro_restore\\Logs\\], Error: Permission denied\r\n"
            "common::CreateDir [C:\\vantoro_restore\\Logs\\], Error: No space left on device\r\n");
  EXPECT_EQ(Log(), Line("[Info]  kept"));
}

TEST_F(BLoggerFailures, TheFileIsTriedAgainWithEveryLine) {
  server_.calls().FailNext("_open", EACCES);
  server_.calls().FailNext("_open", EMFILE, 2);
  logger_->Info("lost");
  logger_->Error("lost too");
  logger_->Info("kept");
  EXPECT_EQ(Printed(), "");
  EXPECT_EQ(Log(), Line("[Info]  kept"));
}

TEST_F(BLoggerFailures, AFileThatCannotBeOpenedLosesOnlyTheFilesCopy) {
  server_.files().Write(kLog, "old\r\n");
  server_.files().SetAttributes(kLog, FILE_ATTRIBUTE_READONLY);
  logger_->ErrorOut("x");
  const std::string line = Line("[Error] x");
  EXPECT_EQ(Printed(), line);
  EXPECT_EQ(server_.console().DebuggerTexts(), Texts{line});
  EXPECT_EQ(logger_->GetLastErrorLine() + "\r\n", line);
  EXPECT_EQ(Log(), "old\r\n");
}

TEST_F(BLoggerFailures, OpensTheFileOnceItMayBeOpened) {
  server_.files().MakeDirectories(kLog);
  logger_->Info("lost");
  server_.files().Remove(kLog);
  logger_->Info("kept");
  EXPECT_EQ(Log(), Line("[Info]  kept"));
}

TEST_F(BLoggerFailures, WithoutAProgramFolderNothingIsLoggedToAFile) {
  server_.calls().FailNext("GetModuleFileNameA", ERROR_ACCESS_DENIED, 1, Lasting::kForGood);
  EXPECT_EQ(logger_->GetLogDir(), "");
  const std::string no_folder =
      "common::GetCurrentDir [], LastError: [5] Access is denied.\r\n\r\n";
  EXPECT_EQ(Printed(), no_folder);
  logger_->InfoOut("x");
  EXPECT_EQ(Printed(), no_folder + kStamp + "[Info]  x\r\n" + no_folder +
                           "common::CreateDir [], Error: No such file or directory\r\n");
}

TEST_F(BLoggerFailures, ANameThatNoFileMayHaveIsPassedOverInSilence) {
  for (const std::string name : {"a|b?", "no\\such\\folder"}) {
    BLogger logger(name, "C:\\vantoro_restore");
    logger.Info("x");
    logger.Error("x");
  }
  EXPECT_EQ(Printed(), "");
  EXPECT_EQ(server_.files().List(kLogs), Texts{});
}

TEST_F(BLoggerFailures, AFolderThatIsTooLongIsReported) {
  const std::string folder = "C:\\" + std::string(5000, 'a');
  BLogger logger("x", folder);
  logger.Info("x");
  EXPECT_EQ(Printed(),
            "common::CreateDir [" + folder + "\\Logs\\], Error: No such file or directory\r\n");
}

class BLoggerAfterAFailedWrite : public BLoggerFailures {
 protected:
  BLoggerAfterAFailedWrite() {
    logger_->InfoOut("before");
    server_.calls().FailNext("_write", ENOSPC);
    logger_->InfoOut("failed");
  }

  static std::string InfoLine(const std::string& text) { return Line("[Info]  " + text); }
};

TEST_F(BLoggerAfterAFailedWrite, TheFileTakesNoFurtherLine) {
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, "after");
  EXPECT_EQ(Log(), InfoLine("before"));
}

TEST_F(BLoggerAfterAFailedWrite, TheFileTakesNoFurtherLineWhenTheLoggerEnds) {
  logger_->InfoOut("after");
  logger_.reset();
  EXPECT_EQ(Log().find("after"), std::string::npos);
  EXPECT_EQ(Log().substr(0, InfoLine("before").size()), InfoLine("before"));
}

TEST_F(BLoggerAfterAFailedWrite, NeitherOpensNorWritesAnythingMore) {
  const size_t writes = CountOf("_write");
  logger_->InfoOut("after");
  logger_->InfoOut("after");
  EXPECT_EQ(CountOf("_write"), writes);
  EXPECT_EQ(CountOf("_open"), 1u);
}

TEST_F(BLoggerAfterAFailedWrite, TheCopiesContinue) {
  logger_->InfoOut("after");
  EXPECT_EQ(Printed(), InfoLine("before") + InfoLine("failed") + InfoLine("after"));
  EXPECT_EQ(server_.console().DebuggerTexts(),
            (Texts{InfoLine("before"), InfoLine("failed"), InfoLine("after")}));
}

TEST_F(BLoggerAfterAFailedWrite, TheLastErrorLineIsStillKept) {
  logger_->Error("after");
  EXPECT_EQ(logger_->GetLastErrorLine(), kStamp + std::string("[Error] after"));
}

TEST_F(BLoggerAfterAFailedWrite, AMissingFolderIsMadeOnceMore) {
  server_.files().Remove(kLogs);
  logger_->InfoOut("after");
  EXPECT_TRUE(server_.files().Exists(kLogs));
  EXPECT_FALSE(server_.files().Exists(kLog));
}

TEST_F(BLoggerFailures, ADiskThatFillsUpEndsTheFileForGood) {
  server_.files().SetFreeSpace('C', 50);
  logger_->InfoOut("before");
  logger_->InfoOut("this line does not fit on the disk any more");
  server_.files().SetFreeSpace('C', 1'000'000);
  logger_->InfoOut("after");
  EXPECT_EQ(Log().size(), 50u);
  EXPECT_EQ(Log().substr(0, 38), Line("[Info]  before"));
  EXPECT_EQ(Printed(), Line("[Info]  before") +
                           Line("[Info]  this line does not fit on the disk any more") +
                           Line("[Info]  after"));
}

TEST_F(BLoggerAfterAFailedWrite, ClosesTheFileAtItsEnd) {
  logger_.reset();
  EXPECT_EQ(CountOf("_close"), 1u);
  EXPECT_EQ(server_.file_system().Delete(kLog), DWORD{ERROR_SUCCESS});
}

TEST_F(BLoggerFailures, EndsWithoutAWordWhenTheFileDoesNotClose) {
  logger_->Info("x");
  server_.calls().FailNext("_close", EIO);
  logger_.reset();
  EXPECT_EQ(Printed(), "");
  EXPECT_EQ(Log(), Line("[Info]  x"));
}

TEST_F(BLoggerFailures, IsFreeOfItsLockAfterEveryFailure) {
  // A lock that is held cannot be deleted.
  for (const std::string call : {"_access", "_mkdir", "_open", "_write", "_close"}) {
    server_.calls().FailNext(call, EACCES, 1, Lasting::kForGood);
    BLogger logger("other", "C:\\other" + call);
    server_.files().MakeDirectories("C:\\other" + call);
    logger.Info("x");
    logger.ErrorOut("x");
    server_.calls().ClearFaults();
  }
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 1);
}

// What a small run logs; the console's part of it.
std::string LogSomething(simulator::Server& server) {
  BLogger logger("vantoro_restore", "");
  logger.InfoOut("one");
  logger.ErrorOut("two");
  logger.Warn("three");
  logger.DoneOutW(L"four");
  return logger.GetLastErrorLine() + "|" + std::to_string(server.console().DebuggerTexts().size());
}

TEST(BLoggerFaults, NoSingleFailingCallEndsTheLogging) {
  int count = 0;
  {
    simulator::Server server;
    LogSomething(server);
    count = server.calls().Count();
  }
  ASSERT_GT(count, 10);
  for (const Lasting lasting : {Lasting::kOnce, Lasting::kForGood}) {
    for (int number = 1; number <= count; ++number) {
      simulator::Server server;
      server.calls().FailNumber(number, EACCES, lasting);
      EXPECT_EQ(LogSomething(server), "[2024-03-05 08:07:06] [Error] two|3") << number;
      const std::string printed = server.console().Text();
      EXPECT_NE(printed.find("[Info]  one\r\n"), std::string::npos) << number;
      EXPECT_NE(printed.find("[Error] two\r\n"), std::string::npos) << number;
      EXPECT_EQ(server.threads().LiveCriticalSections(), 0) << number;
    }
  }
}

}  // namespace
}  // namespace logger
