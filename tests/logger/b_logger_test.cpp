#include "logger/b_logger.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "common/locations.h"
#include "support/logger_test.h"
#include "support/printed_text.h"

namespace logger {
namespace {

using Lines = std::vector<std::string>;
using tests::LinesWithoutStamp;
using tests::LogBy;
using tests::Operation;
using tests::Operations;
using BLoggerTest = tests::LoggerTest;

static_assert(std::is_abstract_v<Logger>);
static_assert(std::has_virtual_destructor_v<Logger>);
static_assert(std::is_base_of_v<Logger, BLogger>);

TEST(LogLevel, IsABitThatIsSmallerTheMoreSevereItIs) {
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kFatal), 1);
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kError), 2);
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kWarn), 4);
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kInfo), 8);
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kDone), 16);
  EXPECT_EQ(static_cast<int32_t>(LogLevel::kDebug), 32);
}

TEST_F(BLoggerTest, EveryOperationWritesItsTag) {
  const tests::PrintedText unread;
  const auto logger = MakeLogger();
  Lines expected;
  for (const Operation& operation : Operations()) {
    LogBy(operation, *logger, operation.name);
    expected.push_back(operation.tag + operation.name);
  }
  EXPECT_EQ(LinesOf(*logger), expected);
}

TEST_F(BLoggerTest, EveryOperationFormatsItsTemplate) {
  const tests::PrintedText unread;
  const auto logger = MakeLogger();
  Lines expected;
  for (const Operation& operation : Operations()) {
    if (operation.narrow != nullptr) {
      (*logger.*operation.narrow)("Total %d disks of %s, %u%%", 3, "C:", 50u);
    } else {
      (*logger.*operation.wide)(L"Total %d disks of %s, %u%%", 3, L"C:", 50u);
    }
    expected.push_back(operation.tag + "Total 3 disks of C:, 50%");
  }
  EXPECT_EQ(LinesOf(*logger), expected);
}

TEST_F(BLoggerTest, AWideTemplateTakesWideText) {
  const auto logger = MakeLogger();
  logger->InfoW(L"%s", L"wide");
  EXPECT_EQ(LinesOf(*logger), Lines{"[Info]  wide"});
}

TEST_F(BLoggerTest, DoneWLogsAtDebugAndDoneAtDone) {
  const auto logger = MakeLogger();
  logger->DoneW(L"x");
  logger->Done("x");
  EXPECT_EQ(LinesOf(*logger), (Lines{"[Debug] x", "[Done]  x"}));
}

TEST_F(BLoggerTest, TheFileIsTheDaysInTheFolderLogs) {
  const auto logger = MakeLogger();
  EXPECT_EQ(logger->GetLogDir(), Folder() + "\\Logs\\");
  const std::string path = logger->GetLogFilePath();
  const std::string begin = Folder() + "\\Logs\\test_";
  EXPECT_EQ(path.substr(0, begin.size()), begin);
  ASSERT_EQ(path.size(), begin.size() + 12);
  EXPECT_EQ(path.substr(begin.size(), 8).find_first_not_of("0123456789"), std::string::npos);
  EXPECT_EQ(path.substr(begin.size() + 8), ".log");
}

TEST_F(BLoggerTest, AFolderMayEndWithABackslash) {
  const BLogger logger("test", Folder() + "\\");
  EXPECT_EQ(logger.GetLogDir(), Folder() + "\\Logs\\");
}

TEST_F(BLoggerTest, WithoutAFolderItLogsBesideTheProgram) {
  const BLogger logger("vantoro_restore", "");
  EXPECT_EQ(logger.GetLogDir(), common::GetCurrentDir() + "\\Logs\\");
}

TEST_F(BLoggerTest, NothingIsMadeBeforeTheFirstLine) {
  const auto logger = MakeLogger();
  EXPECT_FALSE(Exists(logger->GetLogDir()));
}

TEST_F(BLoggerTest, TheFirstLineMakesTheFolder) {
  const auto logger = MakeLogger();
  tests::PrintedText printed;
  logger->Info("x");
  EXPECT_EQ(printed.Take(), "");
  EXPECT_EQ(LinesOf(*logger), Lines{"[Info]  x"});
}

TEST_F(BLoggerTest, AFolderThatIsThereIsUsed) {
  const auto logger = MakeLogger();
  MakeFolder(logger->GetLogDir());
  logger->Info("x");
  EXPECT_EQ(LinesOf(*logger), Lines{"[Info]  x"});
}

TEST_F(BLoggerTest, AMissingParentIsNotMadeAndEveryLineSaysSo) {
  BLogger logger("test", PathOf("missing"));
  const std::string report =
      "common::CreateDir [" + PathOf("missing") + "\\Logs\\], Error: No such file or directory\r\n";
  tests::PrintedText printed;
  logger.Info("x");
  logger.Error("y");
  EXPECT_EQ(printed.Take(), report + report);
  EXPECT_FALSE(Exists(PathOf("missing")));
}

TEST_F(BLoggerTest, LogsOnceTheParentHasAppeared) {
  BLogger logger("test", PathOf("missing"));
  tests::PrintedText printed;
  logger.Info("lost");
  MakeFolder(PathOf("missing"));
  logger.Info("kept");
  printed.Take();
  EXPECT_EQ(LinesOf(logger), Lines{"[Info]  kept"});
}

TEST_F(BLoggerTest, AFileThatCannotBeOpenedIsPassedOverInSilence) {
  const auto logger = MakeLogger();
  MakeFolder(logger->GetLogFilePath());
  tests::PrintedText printed;
  logger->Info("x");
  logger->Error("y");
  EXPECT_EQ(printed.Take(), "");
  EXPECT_EQ(BytesOf(*logger), "");
}

TEST_F(BLoggerTest, LinesEndWithCrLfOnTheDisk) {
  const auto logger = MakeLogger();
  logger->Info("one");
  logger->Info("two");
  const std::string bytes = BytesOf(*logger);
  const size_t line = tests::kStampSize + 8 + 3;
  ASSERT_EQ(bytes.size(), 2 * (line + 2));
  EXPECT_EQ(bytes.substr(line, 2), "\r\n");
  EXPECT_EQ(bytes.substr(2 * line + 2), "\r\n");
}

TEST_F(BLoggerTest, LineEndsWithinAMessageAreTranslatedToo) {
  const auto logger = MakeLogger();
  logger->Info("a\nb\r\nc");
  EXPECT_EQ(BytesOf(*logger).substr(tests::kStampSize), "[Info]  a\r\nb\r\r\nc\r\n");
}

TEST_F(BLoggerTest, EachLineIsOnTheDiskAtOnce) {
  const auto logger = MakeLogger();
  for (size_t count = 1; count <= 5; ++count) {
    logger->Info("line");
    EXPECT_EQ(LinesOf(*logger), Lines(count, "[Info]  line"));
  }
}

TEST_F(BLoggerTest, AppendsToAFileThatIsThere) {
  const auto logger = MakeLogger();
  MakeFolder(logger->GetLogDir());
  WriteBytes(logger->GetLogFilePath(), "old\r\n");
  logger->Info("new");
  EXPECT_EQ(BytesOf(*logger).substr(0, 5), "old\r\n");
  EXPECT_EQ(LinesOf(*logger), (Lines{"?old", "[Info]  new"}));
}

TEST_F(BLoggerTest, ASecondRunContinuesTheFile) {
  MakeLogger()->Info("first");
  const auto logger = MakeLogger();
  logger->Info("second");
  EXPECT_EQ(LinesOf(*logger), (Lines{"[Info]  first", "[Info]  second"}));
}

TEST_F(BLoggerTest, AMessageOf2046CharactersIsWhole) {
  const tests::PrintedText unread;
  const auto logger = MakeLogger();
  const std::string text(2046, 'a');
  for (const Operation& operation : Operations()) LogBy(operation, *logger, text);
  Lines expected;
  for (const Operation& operation : Operations()) expected.push_back(operation.tag + text);
  EXPECT_EQ(LinesOf(*logger), expected);
}

TEST_F(BLoggerTest, ALongerMessageIsCutBehind2046Characters) {
  const tests::PrintedText unread;
  for (const size_t size : {2047, 2048, 3000, 100'000}) {
    MakeFolder(PathOf(std::to_string(size)));
    BLogger logger("test", PathOf(std::to_string(size)));
    Lines expected;
    for (const Operation& operation : Operations()) {
      LogBy(operation, logger, std::string(size, 'a'));
      expected.push_back(operation.tag + std::string(2046, 'a'));
    }
    EXPECT_EQ(LinesOf(logger), expected) << size;
  }
}

TEST_F(BLoggerTest, AnEmptyMessageIsALineToo) {
  const auto logger = MakeLogger();
  logger->Info("%s", "");
  logger->ErrorW(L"");
  EXPECT_EQ(LinesOf(*logger), (Lines{"[Info]  ", "[Error] "}));
}

TEST_F(BLoggerTest, TheFileTakesAnyBytesAsTheyAre) {
  const auto logger = MakeLogger();
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '\n') bytes += static_cast<char>(byte);
  }
  bytes += "%s%n%1$s%%";
  logger->Info("%s", bytes.c_str());
  EXPECT_EQ(BytesOf(*logger).substr(tests::kStampSize), "[Info]  " + bytes + "\r\n");
}

TEST_F(BLoggerTest, APathIsNotReadAsATemplate) {
  const std::string folder = PathOf("100%% %s%n%1$s");
  BLogger missing("test %d%n", folder);
  tests::PrintedText printed;
  missing.Info("x");
  EXPECT_EQ(printed.Take(),
            "common::CreateDir [" + folder + "\\Logs\\], Error: No such file or directory\r\n");
  MakeFolder(folder);
  missing.Info("x");
  EXPECT_EQ(LinesOf(missing), Lines{"[Info]  x"});
}

}  // namespace
}  // namespace logger
