// The dialog while more is posted to it than it can ever show.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "load/load_size.h"
#include "load/memory_use.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/program_simulated.h"

namespace load {
namespace {

constexpr UINT_PTR kClockTimer = 1001;
constexpr int kBurst = 5000;  // half of what waits in a queue at most

int Posts() { return Size(50'000, 1'000'000, 1'000'000); }

// The run is held until somebody cancels.
class DialogFlood : public tests::ProgramTest {
 protected:
  DialogFlood() {
    HoldTheRun();
    server_.calls().KeepTrace(false);
    server_.calls().Watch([this](std::string_view name, const std::string& arguments) {
      if (name != "SetWindowTextA") return;
      ++titles_shown_;
      if (keeps_titles_) titles_.push_back(arguments);
    });
  }

  // Runs the program and cancels it once `look` has looked.
  void While(const std::function<void(HWND dialog)>& look) {
    EXPECT_EQ(RunWith([&](HWND dialog) {
                look(dialog);
                Cancel(dialog);
              }),
              0);
  }

  // As the run does it: "50.01%" is the 5,001st of a count that starts at 0.
  static void Report(int from, int count) {
    for (int i = from; i < from + count; ++i) restore::ReportProgress(i / 100.0);
  }

  // Bursts that its queue has room for; every one is handled before the next.
  void Flood(HWND dialog, int posts) {
    for (int posted = 0; posted < posts; posted += kBurst) {
      Report(0, kBurst);
      Rest(dialog);
    }
  }

  // Where the text stands among the titles shown.
  std::ptrdiff_t PlaceOf(const std::string& text) const {
    const auto found = std::find_if(titles_.begin(), titles_.end(), [&](const std::string& title) {
      return title.find(text) != std::string::npos;
    });
    return found == titles_.end() ? -1 : found - titles_.begin();
  }

  std::atomic<int> titles_shown_ = 0;
  std::atomic<bool> keeps_titles_ = false;
  std::vector<std::string> titles_;
};

TEST_F(DialogFlood, IsShownToTheLastRecordAndLeavesNone) {
  While([&](HWND dialog) {
    Flood(dialog, kBurst);
    const size_t heap = HeapInUse();
    const int before = titles_shown_;
    Flood(dialog, Posts());
    EXPECT_EQ(titles_shown_ - before, Posts());
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 49.99%  Time: 0s");
    EXPECT_LE(Growth(heap, HeapInUse()), 64 * kKibibyte);
  });
}

TEST_F(DialogFlood, LeavesNothingBehindOfWhatTheQueueDoesNotTake) {
  While([&](HWND dialog) {
    Flood(dialog, kBurst);
    const size_t heap = HeapInUse();
    const int before = titles_shown_;
    Report(0, Posts());
    Rest(dialog);
    EXPECT_LE(titles_shown_ - before, Posts());
    EXPECT_GT(titles_shown_ - before, 0);
    // The queue keeps some of the room that it once had.
    EXPECT_LE(Growth(heap, HeapInUse()), 64 * kKibibyte);
    // The dialog goes on as ever.
    PostPercent(dialog, 12.5);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 12.50%  Time: 0s");
  });
}

TEST_F(DialogFlood, LetsAClickWaitForWhatWasPostedBefore) {
  std::vector<std::string> seen;
  server_.message_boxes().Answer([&](const simulator::ShownMessageBox&) {
    seen.push_back(Dialog().caption);
    return seen.size() == 1 ? IDCANCEL : IDOK;
  });
  While([&](HWND dialog) {
    Report(0, kBurst);
    Cancel(dialog);
    Report(kBurst, kBurst - 1);
    Rest(dialog);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 99.98%  Time: 0s");
  });
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen[0], "Vantoro Restore Tool 1.1.0.1 - Progress 49.99%  Time: 0s");
}

TEST_F(DialogFlood, LetsAPostedTimerWaitForWhatWasPostedBefore) {
  keeps_titles_ = true;
  While([&](HWND dialog) {
    Report(0, kBurst);
    ASSERT_EQ(server_.desktop().Post(dialog, {WM_TIMER, kClockTimer, 0}), DWORD{ERROR_SUCCESS});
    Report(kBurst, kBurst - 1);
    Rest(dialog);
    const std::ptrdiff_t tick = PlaceOf("Progress 49.99%  Time: 1s");
    ASSERT_GT(tick, 0);
    EXPECT_EQ(PlaceOf("Progress 49.99%  Time: 0s"), tick - 1);
    EXPECT_EQ(PlaceOf("Progress 50.00%  Time: 1s"), tick + 1);
  });
}

TEST_F(DialogFlood, LetsTheClockGoOn) {
  While([&](HWND dialog) {
    Report(0, kBurst);
    server_.clock().Advance(1000);
    Report(kBurst, kBurst - 1);
    Rest(dialog);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 99.98%  Time: 1s");
  });
}

}  // namespace
}  // namespace load
