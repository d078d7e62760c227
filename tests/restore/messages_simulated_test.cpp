#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "restore/messages.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/server.h"
#include "support/process.h"

namespace restore {
namespace {

using simulator::PostedMessage;

class PostedToTheDialog : public testing::Test {
 protected:
  PostedToTheDialog() { SetDialog(window_); }
  ~PostedToTheDialog() override {
    while (const auto message = server_.desktop().Take(window_)) {
      ReleasePosted(message->wparam, message->lparam);
    }
  }

  std::unique_ptr<ProgressRecord> TakeProgress() {
    const std::optional<PostedMessage> posted = server_.desktop().Take(window_);
    if (!posted || posted->message != WM_RESTORE_PROGRESS || posted->wparam != 2) return nullptr;
    return std::unique_ptr<ProgressRecord>(reinterpret_cast<ProgressRecord*>(posted->lparam));
  }

  std::unique_ptr<LogLine> TakeLine() {
    const std::optional<PostedMessage> posted = server_.desktop().Take(window_);
    if (!posted || posted->message != WM_RESTORE_PROGRESS || posted->wparam != 0) return nullptr;
    return std::unique_ptr<LogLine>(reinterpret_cast<LogLine*>(posted->lparam));
  }

  const tests::NewProcess process_;
  simulator::Server server_;
  const HWND window_ = server_.desktop().CreateWindow();
};

using ReportProgressTest = PostedToTheDialog;
using PostLogLineTest = PostedToTheDialog;

TEST_F(ReportProgressTest, PostsTheNumberWithoutAStage) {
  ReportProgress(37.5);
  const auto record = TakeProgress();
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->percent, 37.5);
  EXPECT_EQ(record->stage, "");
  EXPECT_FALSE(server_.desktop().Take(window_));
}

TEST_F(ReportProgressTest, UsesPostMessageAOnTheDialog) {
  ReportProgress(1.0);
  const auto record = TakeProgress();
  const std::vector<simulator::TracedCall> trace = server_.calls().Trace();
  ASSERT_EQ(trace.size(), 1U);
  EXPECT_EQ(trace[0].name, "PostMessageA");
  EXPECT_EQ(trace[0].arguments,
            "0x10010, 1125, 2, " + std::to_string(reinterpret_cast<LPARAM>(record.get())));
}

TEST_F(ReportProgressTest, PostsAnyNumber) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double percent : {0.0, -1.0, 100.0, 250.5, infinity, -infinity}) {
    ReportProgress(percent);
    const auto record = TakeProgress();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->percent, percent);
  }
  ReportProgress(std::nan(""));
  const auto record = TakeProgress();
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(std::isnan(record->percent));
}

TEST_F(ReportProgressTest, DoesNothingWithoutADialog) {
  SetDialog(nullptr);
  ReportProgress(1.0);
  EXPECT_EQ(server_.calls().Count(), 0);
}

// What could not be posted is nobody's: AddressSanitizer would show its leak.
TEST_F(ReportProgressTest, FreesWhatCannotBePosted) {
  server_.calls().FailNext("PostMessageA", ERROR_NOT_ENOUGH_QUOTA);
  ReportProgress(1.0);
  EXPECT_FALSE(server_.desktop().Take(window_));
}

TEST_F(ReportProgressTest, SurvivesTheEndOfTheWindow) {
  const HWND gone = server_.desktop().CreateWindow();
  server_.desktop().DestroyWindow(gone);
  SetDialog(gone);
  ReportProgress(1.0);
  PostLogLine("%d", 1);
  EXPECT_EQ(server_.calls().Count(), 2);
}

TEST_F(ReportProgressTest, SurvivesADialogThatTakesNothing) {
  for (int i = 0; i < 10001; ++i) ReportProgress(i);
  int taken = 0;
  while (const auto record = TakeProgress()) EXPECT_EQ(record->percent, taken++);
  EXPECT_EQ(taken, 10000);
}

TEST_F(PostLogLineTest, PostsTheFormattedText) {
  PostLogLine("%s of %d: %c %5.1f%%", "disk", 12, 'e', 2.25);
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_STREQ(line->text, "disk of 12: e   2.2%");
  EXPECT_FALSE(server_.desktop().Take(window_));
}

TEST_F(PostLogLineTest, UsesPostMessageAOnTheDialog) {
  PostLogLine("%s", "a");
  const auto line = TakeLine();
  const std::vector<simulator::TracedCall> trace = server_.calls().Trace();
  ASSERT_EQ(trace.size(), 1U);
  EXPECT_EQ(trace[0].name, "PostMessageA");
  EXPECT_EQ(trace[0].arguments,
            "0x10010, 1125, 0, " + std::to_string(reinterpret_cast<LPARAM>(line.get())));
}

TEST_F(PostLogLineTest, FillsTheRestWithZeros) {
  PostLogLine("%s", "abc");
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(std::string(line->text, sizeof(line->text)), "abc" + std::string(2045, '\0'));
}

TEST_F(PostLogLineTest, PostsAnEmptyText) {
  PostLogLine("%s", "");
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_STREQ(line->text, "");
}

TEST_F(PostLogLineTest, CutsBehind2047Characters) {
  const std::string text = std::string(2047, 'a') + std::string(953, 'b');
  PostLogLine("%s", text.c_str());
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text, std::string(2047, 'a'));
}

TEST_F(PostLogLineTest, KeepsATextOf2047Characters) {
  const std::string text(2047, 'a');
  PostLogLine("%s", text.c_str());
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text, text);
}

TEST_F(PostLogLineTest, TakesATextOfMegabytes) {
  const std::string text(5000000, 'a');
  PostLogLine("%s", text.c_str());
  const auto line = TakeLine();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text, std::string(2047, 'a'));
}

TEST_F(PostLogLineTest, DoesNothingWithoutADialog) {
  SetDialog(nullptr);
  PostLogLine("%d", 1);
  EXPECT_EQ(server_.calls().Count(), 0);
}

TEST_F(PostLogLineTest, FreesWhatCannotBePosted) {
  server_.calls().FailNext("PostMessageA", ERROR_NOT_ENOUGH_QUOTA);
  PostLogLine("%d", 1);
  EXPECT_FALSE(server_.desktop().Take(window_));
}

TEST_F(PostLogLineTest, MayBeCalledByAnyThread) {
  constexpr int kThreads = 4;
  constexpr int kLines = 200;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([thread] {
      for (int i = 0; i < kLines; ++i) {
        PostLogLine("%d/%d", thread, i);
        ReportProgress(i);
      }
    });
  }
  std::set<std::string> lines;
  int records = 0;
  for (int i = 0; i < 2 * kThreads * kLines; ++i) {
    const PostedMessage posted = server_.desktop().WaitAndTake(window_);
    ASSERT_EQ(posted.message, WM_RESTORE_PROGRESS);
    if (posted.wparam == 0) lines.insert(reinterpret_cast<LogLine*>(posted.lparam)->text);
    if (posted.wparam == 2) ++records;
    ReleasePosted(posted.wparam, posted.lparam);
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(lines.size(), static_cast<size_t>(kThreads * kLines));
  EXPECT_EQ(records, kThreads * kLines);
}

}  // namespace
}  // namespace restore
