// The progress dialog on a real desktop.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "contract/wine_differences.h"
#include "support/dialog_windows.h"
#include "ui/progress_task_bar_helper.h"
#include "ui/resource.h"
#include "ui/restart.h"

namespace ui {
namespace {

using restore::RestoreState;
using tests::MessageBoxSeen;

constexpr UINT_PTR kClockTimer = 1001;
constexpr UINT_PTR kIconTimer = 1002;

WNDPROC the_bar = nullptr;
WPARAM last_state = 0;

// Notes the states that the progress bar is given: Wine's has one state.
LRESULT CALLBACK NoteState(HWND bar, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == PBM_SETSTATE) last_state = wparam;
  return ::CallWindowProcW(the_bar, bar, message, wparam, lparam);
}

// What the held run has shown, or is about to show.
const std::wstring kBegun = L"Vantoro Restore Begin...\r\nRestore BCD Begin...\r\n";

class RealMainWindow : public tests::WindowsDialogTest {
 protected:
  LRESULT Position() const { return ::SendMessageW(Control(IDC_PROGRESS), PBM_GETPOS, 0, 0); }
};

HICON ProgramIcon(int number) {
  return ::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(number));
}

HICON IconOf(HWND window, WPARAM size) {
  return reinterpret_cast<HICON>(::SendMessageW(window, WM_GETICON, size, 0));
}

TEST_F(RealMainWindow, StartsWithTheDiskStage) {
  const HWND dialog = Show();
  EXPECT_EQ(tests::TextOf(dialog), L"Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 0s");
  PBRANGE range{};
  ::SendMessageW(Control(IDC_PROGRESS), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
  EXPECT_EQ(range.iLow, 0);
  EXPECT_EQ(range.iHigh, 100);
  EXPECT_EQ(Position(), 0);
  EXPECT_EQ(IconOf(dialog, ICON_BIG), ProgramIcon(IDI_TOOL));
  EXPECT_EQ(IconOf(dialog, ICON_SMALL), ProgramIcon(IDI_TOOL));
  EXPECT_TRUE(had_timers());
}

TEST_F(RealMainWindow, StandsInTheMiddleOfTheWorkArea) {
  const HWND dialog = Show();
  RECT area{};
  RECT own{};
  ASSERT_TRUE(::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
  ASSERT_TRUE(::GetWindowRect(dialog, &own));
  EXPECT_TRUE(::IsWindowVisible(dialog));
  EXPECT_LE(std::abs(own.left + own.right - area.left - area.right), 1);
  EXPECT_LE(std::abs(own.top + own.bottom - area.top - area.bottom), 1);
}

TEST_F(RealMainWindow, ShowsReportedProgress) {
  const HWND dialog = Show();
  restore::ReportProgress(37.5);
  Pump();
  EXPECT_EQ(tests::TextOf(dialog), L"Vantoro Restore Tool 1.1.0.1 - Progress 37.50%  Time: 0s");
  EXPECT_EQ(Position(), 37);
}

TEST_F(RealMainWindow, AppendsLogLines) {
  Show();
  restore::PostLogLine("%s\r\n", "one");
  restore::PostLogLine("%s\r\n", "two");
  Pump();
  EXPECT_EQ(tests::TextOf(Control(IDC_LOG)), kBegun + L"one\r\ntwo\r\n");
  const size_t end = kBegun.size() + 10;
  EXPECT_EQ(::SendMessageW(Control(IDC_LOG), EM_GETSEL, 0, 0), MAKELONG(end, end));
}

TEST_F(RealMainWindow, ScrollsToTheLastLine) {
  Show();
  for (int line = 0; line < 50; ++line) restore::PostLogLine("%d\r\n", line);
  Pump();
  // The box has room for a few.
  EXPECT_GT(::SendMessageW(Control(IDC_LOG), EM_GETFIRSTVISIBLELINE, 0, 0), 40);
}

TEST_F(RealMainWindow, CutsALongLine) {
  Show();
  restore::PostLogLine("%s", std::string(3000, 'x').c_str());
  Pump();
  EXPECT_EQ(tests::TextOf(Control(IDC_LOG)), kBegun + std::wstring(2047, L'x'));
}

TEST_F(RealMainWindow, CountsTheSeconds) {
  const HWND dialog = Show();
  for (int second = 0; second < 65; ++second) ::PostMessageW(dialog, WM_TIMER, kClockTimer, 0);
  Pump();
  EXPECT_EQ(tests::TextOf(dialog),
            L"Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 1m5s");
}

TEST_F(RealMainWindow, TurnsSixIcons) {
  const HWND dialog = Show();
  for (const int number : {108, 109, 110, 105, 106, 107, 108, 109}) {
    ::PostMessageW(dialog, WM_TIMER, kIconTimer, 0);
    Pump();
    EXPECT_EQ(IconOf(dialog, ICON_BIG), ProgramIcon(number)) << number;
    EXPECT_EQ(IconOf(dialog, ICON_SMALL), ProgramIcon(number)) << number;
  }
}

TEST_F(RealMainWindow, TicksByItself) {
  const HWND dialog = Show(true);
  PumpUntil([&] {
    return tests::TextOf(dialog).ends_with(L"Time: 1s") &&
           IconOf(dialog, ICON_BIG) != ProgramIcon(IDI_TOOL);
  });
}

// Colours.

class ControlColors : public RealMainWindow {
 protected:
  ControlColors() : context_(::CreateCompatibleDC(nullptr)) {}
  ~ControlColors() override { ::DeleteDC(context_); }

  // The brush that the dialog answers with.
  HGDIOBJ Ask(HWND dialog, UINT message, int control) {
    return reinterpret_cast<HGDIOBJ>(::SendMessageW(dialog, message,
                                                    reinterpret_cast<WPARAM>(context_),
                                                    reinterpret_cast<LPARAM>(Control(control))));
  }

  const HDC context_;
};

TEST_F(ControlColors, AreBlueOnNothingForTheNote) {
  const HWND dialog = Show();
  EXPECT_EQ(Ask(dialog, WM_CTLCOLORSTATIC, IDC_NOTE), ::GetStockObject(NULL_BRUSH));
  EXPECT_EQ(::GetTextColor(context_), COLORREF{0x00FF0000});
  EXPECT_EQ(::GetBkMode(context_), TRANSPARENT);
}

TEST_F(ControlColors, AreBlackOnWhiteForTheLogAsAnEditControl) {
  const HWND dialog = Show();
  ::SetTextColor(context_, RGB(1, 2, 3));
  EXPECT_EQ(Ask(dialog, WM_CTLCOLOREDIT, IDC_LOG), ::GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(::GetTextColor(context_), RGB(0, 0, 0));
  EXPECT_EQ(::GetBkColor(context_), RGB(255, 255, 255));
}

TEST_F(ControlColors, AreTheSystemsForOthers) {
  const HWND dialog = Show();
  for (const int control : {IDC_LOG, IDCANCEL}) {
    EXPECT_NE(Ask(dialog, WM_CTLCOLORSTATIC, control), ::GetStockObject(NULL_BRUSH));
    EXPECT_EQ(::GetTextColor(context_), ::GetSysColor(COLOR_WINDOWTEXT)) << control;
  }
}

// Cancelling.

TEST_F(RealMainWindow, GoesOnWhenCancellingIsRefused) {
  const HWND dialog = Show();
  ::PostMessageW(Control(IDCANCEL), BM_CLICK, 0, 0);
  PumpUntil([&] { return Boxes().size() == 1 && ::IsWindowEnabled(dialog); });
  EXPECT_EQ(Boxes()[0].caption, L"Vantoro Restore Tool");
  EXPECT_EQ(Boxes()[0].text, L"Vantoro Restore Is Running, Are You Sure To Cancel?");
  EXPECT_EQ(Boxes()[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
  EXPECT_FALSE(quit_code());
  restore::ReportProgress(5.0);
  Pump();
  EXPECT_EQ(Position(), 5);
}

TEST_F(RealMainWindow, QuitsWhenCancellingIsConfirmed) {
  Show();
  AnswerBoxes([](const MessageBoxSeen&) { return IDOK; });
  ::PostMessageW(Control(IDCANCEL), BM_CLICK, 0, 0);
  PumpUntil([&] { return quit_code().has_value(); });
  EXPECT_EQ(quit_code(), 0);
}

TEST_F(RealMainWindow, AsksOnEscapeToo) {
  const HWND dialog = Show();
  ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
  PumpUntil([&] { return Boxes().size() == 1 && ::IsWindowEnabled(dialog); });
  EXPECT_EQ(Boxes()[0].text, L"Vantoro Restore Is Running, Are You Sure To Cancel?");
}

// The end of the run.

TEST_F(RealMainWindow, TellsOfAFailure) {
  const HWND dialog = Show(true);
  restore::ReportProgress(37.5);
  Pump();
  last_state = 0;
  the_bar = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(Control(IDC_PROGRESS), GWLP_WNDPROC,
                                                          reinterpret_cast<LONG_PTR>(&NoteState)));
  bool ticks = true;
  std::wstring title;
  AnswerBoxes([&](const MessageBoxSeen&) {
    ticks = ::KillTimer(dialog, kClockTimer) || ::KillTimer(dialog, kIconTimer);
    title = tests::TextOf(dialog);
    return IDOK;
  });
  PostState(RestoreState::kEnded, 1);
  PumpUntil([&] { return quit_code().has_value(); });
  EXPECT_EQ(quit_code(), 1);
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(Boxes()[0].caption, L"Vantoro Restore Tool");
  EXPECT_EQ(Boxes()[0].text, L"Vantoro Restore Not Finished.");
  EXPECT_EQ(Boxes()[0].buttons, std::vector<int>{IDOK});
  EXPECT_EQ(last_state, WPARAM{PBST_ERROR});
  EXPECT_FALSE(ticks);
  EXPECT_TRUE(title.starts_with(L"Vantoro Restore Tool 1.1.0.1 - Progress 37.50%  Time: "))
      << title;
}

TEST_F(RealMainWindow, OffersARestartAfterASuccess) {
  const HWND dialog = Show();
  LRESULT position = 0;
  std::wstring title;
  AnswerBoxes([&](const MessageBoxSeen&) {
    position = Position();
    title = tests::TextOf(dialog);
    return IDCANCEL;
  });
  PostState(RestoreState::kEnded, 0);
  PumpUntil([&] { return quit_code().has_value(); });
  EXPECT_EQ(quit_code(), 0);
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(Boxes()[0].text, L"Vantoro Restore Finish, Do you want to restart!");
  EXPECT_EQ(Boxes()[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
  EXPECT_EQ(title, L"Vantoro Restore Tool 1.1.0.1 - Finished 100.00%  Time: 0s");
  EXPECT_EQ(position, 100);
}

TEST_F(RealMainWindow, QuitsOnceARestartIsWanted) {
  if (!tests::IsUnderWine()) GTEST_SKIP() << "Only Wine schedules no restart";
  Show();
  AnswerBoxes([](const MessageBoxSeen&) { return IDOK; });
  PostState(RestoreState::kEnded, 0);
  PumpUntil([&] { return quit_code().has_value(); });
  EXPECT_EQ(quit_code(), 0);
}

TEST(RealRestart, IsScheduled) {
  if (!tests::IsUnderWine()) GTEST_SKIP() << "Only Wine schedules no restart";
  EXPECT_TRUE(Restart(L"Windows System Will Restart In 30 Seconds!"));
}

TEST_F(RealMainWindow, FindsTheTaskBar) {
  ProcessState state;
  ProgressTaskBarHelper task_bar(Show(), state);
  EXPECT_TRUE(task_bar.Initialize());
  task_bar.SetState(TBPF_NORMAL);
  task_bar.SetValue(37, 100);
}

}  // namespace
}  // namespace ui
