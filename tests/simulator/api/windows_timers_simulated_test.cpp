#include <windows.h>

#include <map>
#include <thread>
#include <vector>

#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

constexpr UINT_PTR kSecond = 1001;
constexpr UINT_PTR kAnimation = 1002;

class WindowsTimers : public DialogTest {
 protected:
  // The ids of the timers that have told the dialog since the last time.
  std::vector<WPARAM> TakeTold() {
    simulator::DispatchBesideBox(server_.desktop());
    std::vector<WPARAM> ids;
    for (const Told& told : ToldOf(WM_TIMER)) ids.push_back(told.wparam);
    told_.clear();
    return ids;
  }

  const HWND dialog_ = Make();
};

using Ids = std::vector<WPARAM>;

TEST_F(WindowsTimers, TellWhenTheirTimeHasPassed) {
  EXPECT_NE(::SetTimer(dialog_, kSecond, 1000, nullptr), 0u);
  server_.clock().Advance(999);
  EXPECT_EQ(TakeTold(), Ids{});
  server_.clock().Advance(1);
  EXPECT_EQ(TakeTold(), Ids{kSecond});
}

TEST_F(WindowsTimers, TellAgainAndAgain) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  for (int i = 0; i < 3; ++i) {
    server_.clock().Advance(1000);
    EXPECT_EQ(TakeTold(), Ids{kSecond});
  }
}

TEST_F(WindowsTimers, NeverWaitTwice) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  server_.clock().Advance(3500);
  EXPECT_EQ(TakeTold(), Ids{kSecond});
  server_.clock().Advance(499);
  EXPECT_EQ(TakeTold(), Ids{});
  server_.clock().Advance(1);
  EXPECT_EQ(TakeTold(), Ids{kSecond});
}

TEST_F(WindowsTimers, TellInTheOrderOfTheirTimes) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  ::SetTimer(dialog_, kAnimation, 200, nullptr);
  server_.clock().Advance(1000);
  EXPECT_EQ(TakeTold(), (Ids{kAnimation, kSecond}));
}

TEST_F(WindowsTimers, TellBehindWhatIsPosted) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  server_.clock().Advance(1000);
  ::PostMessageW(dialog_, WM_USER, 0, 0);
  told_.clear();
  simulator::DispatchBesideBox(server_.desktop());
  EXPECT_EQ(ToldMessages(), (std::vector<UINT>{WM_USER, WM_TIMER}));
}

TEST_F(WindowsTimers, AreReplacedByAnotherOfTheirId) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  server_.clock().Advance(900);
  ::SetTimer(dialog_, kSecond, 500, nullptr);
  server_.clock().Advance(499);
  EXPECT_EQ(TakeTold(), Ids{});
  server_.clock().Advance(1);
  EXPECT_EQ(TakeTold(), Ids{kSecond});
}

TEST_F(WindowsTimers, LastTenMillisecondsAtLeast) {
  ::SetTimer(dialog_, kSecond, 0, nullptr);
  server_.clock().Advance(9);
  EXPECT_EQ(TakeTold(), Ids{});
  server_.clock().Advance(1);
  EXPECT_EQ(TakeTold(), Ids{kSecond});
}

TEST_F(WindowsTimers, StopWhenKilled) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  server_.clock().Advance(1000);
  EXPECT_TRUE(::KillTimer(dialog_, kSecond));
  EXPECT_EQ(TakeTold(), Ids{});
  EXPECT_FALSE(::KillTimer(dialog_, kSecond));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(WindowsTimers, AreThereToSee) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  ::SetTimer(dialog_, kAnimation, 200, nullptr);
  EXPECT_EQ(Shown().timers, (std::map<UINT_PTR, UINT>{{kSecond, 1000}, {kAnimation, 200}}));
  ::KillTimer(dialog_, kSecond);
  EXPECT_EQ(Shown().timers, (std::map<UINT_PTR, UINT>{{kAnimation, 200}}));
}

TEST_F(WindowsTimers, EndWithTheirWindow) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  ::DestroyWindow(dialog_);
  EXPECT_TRUE(Shown().timers.empty());
  server_.clock().Advance(1000);
  EXPECT_EQ(TakeTold(), Ids{});
  EXPECT_EQ(::SetTimer(dialog_, kSecond, 1000, nullptr), 0u);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(WindowsTimers, WakeWhoWaitsWhenTheClockIsMoved) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  std::thread mover([this] {
    dialogs().WaitUntilIdle(dialog_);
    ::Sleep(1000);
  });
  MSG message{};
  EXPECT_TRUE(::GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(message.message, UINT{WM_TIMER});
  EXPECT_EQ(message.hwnd, dialog_);
  EXPECT_EQ(message.wParam, kSecond);
  EXPECT_EQ(message.lParam, 0);
  mover.join();
}

TEST_F(WindowsTimers, WakeWhoWaitsWhenTheTicksAreRead) {
  ::SetTimer(dialog_, kSecond, 1000, nullptr);
  server_.clock().SetTickStep(1000);
  std::thread mover([this] {
    dialogs().WaitUntilIdle(dialog_);
    ::GetTickCount();
  });
  MSG message{};
  EXPECT_TRUE(::GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(message.message, UINT{WM_TIMER});
  mover.join();
}

TEST_F(WindowsTimers, AbortForWhatIsNotHonoured) {
  const TIMERPROC procedure = [](HWND, UINT, UINT_PTR, DWORD) {};
  EXPECT_DEATH(::SetTimer(dialog_, 1, 1000, procedure), "with a procedure");
  EXPECT_DEATH(::SetTimer(nullptr, 1, 1000, nullptr), "without a window or an id");
  EXPECT_DEATH(::SetTimer(Item(dialog_, kEditId), 1, 1000, nullptr), "SetTimer of a control");
  EXPECT_DEATH(::KillTimer(nullptr, 1), "without a window");
}

TEST_F(WindowsTimers, FailWhenAFaultIsDue) {
  server_.calls().FailNext("SetTimer", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(::SetTimer(dialog_, kSecond, 1000, nullptr), 0u);
  EXPECT_TRUE(Shown().timers.empty());
}

}  // namespace
}  // namespace tests
