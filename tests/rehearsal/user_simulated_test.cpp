#include <gtest/gtest.h>

#include "rehearsal/user.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_shown_dialog.h"

namespace simulator {
namespace {

const ShownMessageBox kRestartQuestion{nullptr, "t", "c", MB_OKCANCEL | MB_ICONQUESTION, 0};
const ShownMessageBox kCancelQuestion{nullptr, "t", "c", MB_OKCANCEL, 0};
const ShownMessageBox kFailure{nullptr, "t", "c", MB_ICONWARNING, 0};

ShownDialog RunningAt(int percent) {
  ShownDialog dialog = tests::VisibleDialog("t");
  dialog.timers = {{1001, 1000}};
  tests::Bar(dialog).position = percent;
  return dialog;
}

TEST(User, LetsTheServerRestartAtWill) {
  EXPECT_EQ(User({Wish::kRestart, 0}).Answer(kRestartQuestion), IDOK);
  EXPECT_EQ(User({Wish::kLater, 0}).Answer(kRestartQuestion), IDCANCEL);
  EXPECT_EQ(User({Wish::kCancel, 40}).Answer(kRestartQuestion), IDCANCEL);
}

TEST(User, AcknowledgesAFailure) {
  for (const Wish wish : {Wish::kRestart, Wish::kLater, Wish::kCancel}) {
    EXPECT_EQ(User({wish, 0}).Answer(kFailure), IDOK);
  }
}

TEST(User, ClicksOnceTheBarHasComeSoFar) {
  User user({Wish::kCancel, 40});
  EXPECT_FALSE(user.WantsToCancel(RunningAt(39)));
  EXPECT_TRUE(user.WantsToCancel(RunningAt(41)));
  EXPECT_FALSE(user.WantsToCancel(RunningAt(42)));
}

TEST(User, ClicksOnlyWhatIsThereWhileTheRunLasts) {
  User user({Wish::kCancel, 0});
  ShownDialog hidden = RunningAt(0);
  hidden.visible = false;
  EXPECT_FALSE(user.WantsToCancel(hidden));
  ShownDialog at_rest = RunningAt(100);
  at_rest.timers.clear();
  EXPECT_FALSE(user.WantsToCancel(at_rest));
  EXPECT_TRUE(user.WantsToCancel(RunningAt(0)));
}

TEST(User, HasCancelledOnceTheBoxIsAnswered) {
  User user({Wish::kCancel, 40});
  ASSERT_TRUE(user.WantsToCancel(RunningAt(41)));
  EXPECT_FALSE(user.cancelled_at());
  EXPECT_EQ(user.Answer(kCancelQuestion), IDOK);
  EXPECT_EQ(user.cancelled_at(), 41);
}

TEST(User, DoesNotCancelUnlessAskedTo) {
  User user({Wish::kLater, 0});
  EXPECT_FALSE(user.WantsToCancel(RunningAt(100)));
  EXPECT_EQ(user.Answer(kCancelQuestion), IDCANCEL);
  EXPECT_FALSE(user.cancelled_at());
}

}  // namespace
}  // namespace simulator
