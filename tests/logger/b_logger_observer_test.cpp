// The observer of a logger.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "logger/b_logger.h"
#include "support/logger_test.h"
#include "support/printed_text.h"

namespace logger {
namespace {

using Lines = std::vector<std::string>;
using tests::LogBy;
using tests::Operation;
using tests::Operations;

// Records what it is given, with the lines that the file has by then.
class BLoggerObserver : public tests::LoggerTest {
 protected:
  BLoggerObserver() : logger_(MakeLogger()) {
    observed_.clear();
    current_ = this;
    logger_->SetObserver([](std::string_view message) {
      observed_.emplace_back(message);
      lines_then_ = current_->LinesOf(*current_->logger_);
    });
  }

  static inline BLoggerObserver* current_ = nullptr;
  static inline Lines observed_;
  static inline Lines lines_then_;
  const tests::PrintedText unread_;
  const std::unique_ptr<BLogger> logger_;
};

Lines NamesOfPrinted() {
  Lines names;
  for (const Operation& operation : Operations()) {
    if (operation.is_out) names.push_back(operation.name);
  }
  return names;
}

TEST_F(BLoggerObserver, GetsTheMessageOfEveryOperationThatPrints) {
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, operation.name);
  EXPECT_EQ(observed_, NamesOfPrinted());
}

TEST_F(BLoggerObserver, GetsItWhenTheLineIsInTheFile) {
  logger_->Info("first");
  logger_->WarnOut("%s of %d", "second", 2);
  EXPECT_EQ(observed_, Lines{"second of 2"});
  EXPECT_EQ(lines_then_, (Lines{"[Info]  first", "[Warn]  second of 2"}));
}

TEST_F(BLoggerObserver, GetsTheMessageWithItsOwnLineEnds) {
  logger_->InfoOut("a\nb\n");
  EXPECT_EQ(observed_, Lines{"a\nb\n"});
}

TEST_F(BLoggerObserver, GetsTheMessageAsTheFileDoes) {
  logger_->DoneOut("%s", "100%% %s%n");
  logger_->InfoOut("%s", std::string(3000, 'a').c_str());
  logger_->InfoOutW(L"%s", L"wide");
  logger_->ErrorOut("%s", "");
  EXPECT_EQ(observed_, (Lines{"100%% %s%n", std::string(2046, 'a'), "wide", ""}));
}

TEST_F(BLoggerObserver, GetsTheMessageThoughNothingIsPrinted) {
  logger_->SetOutputEnabled(false);
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, operation.name);
  EXPECT_EQ(observed_, NamesOfPrinted());
}

TEST_F(BLoggerObserver, GetsNothingWhenLoggingIsDisabled) {
  logger_->SetEnabled(false);
  for (const Operation& operation : Operations()) LogBy(operation, *logger_, operation.name);
  EXPECT_EQ(observed_, Lines{});
}

TEST_F(BLoggerObserver, GetsTheMessageThoughTheFileCannotBeOpened) {
  MakeFolder(logger_->GetLogFilePath());
  logger_->InfoOut("x");
  EXPECT_EQ(observed_, Lines{"x"});
}

TEST_F(BLoggerObserver, CanBeTakenAway) {
  logger_->SetObserver(nullptr);
  logger_->InfoOut("x");
  EXPECT_EQ(observed_, Lines{});
  EXPECT_EQ(LinesOf(*logger_), Lines{"[Info]  x"});
}

}  // namespace
}  // namespace logger
