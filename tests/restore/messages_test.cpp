#include "restore/messages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <type_traits>

#include "support/host.h"
#include "support/process.h"

namespace restore {
namespace {

class RunMessages : public tests::HostTest {
 protected:
  const tests::NewProcess process_;
};

TEST_F(RunMessages, HaveTheNumbersOfTheDesign) {
  EXPECT_EQ(WM_RESTORE_PROGRESS, 1125U);
  EXPECT_EQ(WM_RESTORE_STATE, 1126U);
  EXPECT_EQ(static_cast<WPARAM>(RestoreState::kStarted), 1U);
  EXPECT_EQ(static_cast<WPARAM>(RestoreState::kEnded), 2U);
  EXPECT_EQ(static_cast<WPARAM>(RestoreProgress::kLogLine), 0U);
  EXPECT_EQ(static_cast<WPARAM>(RestoreProgress::kPercent), 2U);
}

TEST_F(RunMessages, CarryALogLineOf2048Characters) {
  EXPECT_EQ(sizeof(LogLine), 2048U);
  EXPECT_EQ(sizeof(LogLine::text), 2048U);
}

TEST_F(RunMessages, HaveNoDialogAtFirst) { EXPECT_EQ(GetDialog(), nullptr); }

TEST_F(RunMessages, GoToTheDialogThatWasSet) {
  const HWND window = reinterpret_cast<HWND>(uintptr_t{0x1234});
  SetDialog(window);
  EXPECT_EQ(GetDialog(), window);
}

TEST_F(RunMessages, OfOtherKindsAreLeftAlone) {
  const auto untouched = std::make_unique<ProgressRecord>(ProgressRecord{"stage", 2.0});
  for (const WPARAM kind : {WPARAM{1}, WPARAM{3}, WPARAM{4}, static_cast<WPARAM>(-1)}) {
    ReleasePosted(kind, reinterpret_cast<LPARAM>(untouched.get()));
    ReleasePosted(kind, -1);
  }
  EXPECT_EQ(untouched->stage, "stage");
}

}  // namespace
}  // namespace restore
