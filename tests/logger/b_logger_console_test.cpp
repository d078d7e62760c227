// The copies that the logger prints.
#include <gtest/gtest.h>

#include <string>
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
using BLoggerConsole = tests::LoggerTest;

TEST_F(BLoggerConsole, TheOutOperationsPrintTheirLine) {
  for (const Operation& operation : Operations()) {
    const auto logger = MakeLogger();
    tests::PrintedText printed;
    LogBy(operation, *logger, "text");
    const std::string text = printed.Take();
    const Lines expected = operation.is_out ? Lines{operation.tag + "text"} : Lines{};
    EXPECT_EQ(LinesWithoutStamp(text), expected) << operation.name;
  }
}

TEST_F(BLoggerConsole, TheConsoleGetsItsCopyBeforeTheReportOfTheFolder) {
  BLogger logger("test", PathOf("missing"));
  tests::PrintedText printed;
  logger.InfoOut("x");
  const std::string text = printed.Take();
  ASSERT_TRUE(tests::BeginsWithStamp(text));
  EXPECT_EQ(text.substr(tests::kStampSize), "[Info]  x\r\ncommon::CreateDir [" + PathOf("missing") +
                                                "\\Logs\\], Error: No such file or directory\r\n");
}

struct ConsoleCase {
  std::string message;
  std::string plain;
  std::string coloured;
};

const std::vector<ConsoleCase>& ConsoleCases() {
  static const std::vector<ConsoleCase> cases = {
      {"50%", "50%", "50%"},
      {"50% of %s, %n, %1$s and %5$n %*.*f %", "50% of %s, %n, %1$s and %5$n %*.*f %",
       "50% of %s, %n, %1$s and %5$n %*.*f %"},
      {"%%", "%", "%"},
      {"100%% sure", "100% sure", "100% sure"},
      {"%%%", "%%", "%"},
      {"%%%%", "%%", "%"},
      {"%%%%%%%%", "%%%%", "%%"},
      {"%%d %%%d", "%d %%d", "%d %d"},
  };
  return cases;
}

// The console copy of `message` without stamp, tag and line end.
std::string ConsoleCopy(const Operation& operation, Logger& logger, const std::string& message) {
  tests::PrintedText printed;
  LogBy(operation, logger, message);
  const std::string text = printed.Take();
  const size_t begin = tests::kStampSize + operation.tag.size();
  if (text.size() < begin + 2 || text.substr(text.size() - 2) != "\r\n") return "?" + text;
  return text.substr(begin, text.size() - begin - 2);
}

TEST_F(BLoggerConsole, TheConsoleReadsPlainLinesAsATemplateOnceAndColouredOnesTwice) {
  const auto logger = MakeLogger();
  for (const Operation& operation : Operations()) {
    if (!operation.is_out) continue;
    for (const ConsoleCase& test : ConsoleCases()) {
      const std::string& expected = operation.attributes == 7 ? test.plain : test.coloured;
      EXPECT_EQ(ConsoleCopy(operation, *logger, test.message), expected)
          << operation.name << ' ' << test.message;
    }
  }
}

TEST_F(BLoggerConsole, TheFileKeepsPercentSignsAsTheyAre) {
  const tests::PrintedText unread;
  const auto logger = MakeLogger();
  Lines expected;
  for (const Operation& operation : Operations()) {
    for (const ConsoleCase& test : ConsoleCases()) {
      LogBy(operation, *logger, test.message);
      expected.push_back(operation.tag + test.message);
    }
  }
  EXPECT_EQ(LinesOf(*logger), expected);
}

TEST_F(BLoggerConsole, AColouredConsoleCopyIsCutBehind2046Characters) {
  const auto logger = MakeLogger();
  for (const Operation& operation : Operations()) {
    if (!operation.is_out) continue;
    tests::PrintedText printed;
    LogBy(operation, *logger, std::string(3000, 'a'));
    const std::string line = operation.tag + std::string(2046, 'a') + "\r\n";
    const std::string text = printed.Take();
    ASSERT_TRUE(tests::BeginsWithStamp(text)) << operation.name;
    EXPECT_EQ(text.substr(tests::kStampSize),
              operation.attributes == 7 ? line : line.substr(0, 2046 - tests::kStampSize))
        << operation.name;
  }
}

}  // namespace
}  // namespace logger
