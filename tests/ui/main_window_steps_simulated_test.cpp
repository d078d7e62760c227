// The steps of the progress dialog that leave no other trace than the calls it makes.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "restore/messages.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"
#include "support/program_simulated.h"

namespace ui {
namespace {

// A message and its first parameter.
using Step = std::pair<UINT, WPARAM>;
using Steps = std::vector<Step>;

// The run is held until somebody cancels.
class MainWindowSteps : public tests::ProgramTest {
 protected:
  MainWindowSteps() { HoldTheRun(); }

  // Runs the program and cancels it once `look` has looked.
  void While(const std::function<void(HWND dialog)>& look) {
    EXPECT_EQ(RunWith([&](HWND dialog) {
                look(dialog);
                Cancel(dialog);
              }),
              0);
  }

  // What the program sent of those messages, in order.
  Steps Sent(const std::set<UINT>& messages) const {
    Steps steps;
    for (const std::string& arguments : server_.calls().ArgumentsOf("SendMessageW")) {
      std::istringstream stream(arguments.substr(arguments.find(',') + 1));
      Step step;
      char comma = 0;
      stream >> step.first >> comma >> step.second;
      if (messages.contains(step.first)) steps.push_back(step);
    }
    return steps;
  }
};

TEST_F(MainWindowSteps, CountsSecondsByOneTimerAndTurnsTheIconByTheOther) {
  constexpr WPARAM kClock = 1001;
  constexpr WPARAM kIcon = 1002;
  While([this](HWND dialog) {
    Post(dialog, WM_TIMER, kIcon, 0);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 0s");
    EXPECT_EQ(Dialog().small_icon, 108);
    Post(dialog, WM_TIMER, kClock, 0);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 1s");
    EXPECT_EQ(Dialog().small_icon, 108);
  });
}

TEST_F(MainWindowSteps, MovesItselfWithoutBecomingActive) {
  While([](HWND) {});
  const std::vector<std::string> moves = server_.calls().ArgumentsOf("SetWindowPos");
  ASSERT_EQ(moves.size(), 1U);
  // SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE.
  EXPECT_TRUE(moves[0].ends_with(", 0, 0, 21")) << moves[0];
}

TEST_F(MainWindowSteps, SetsTheLargeIconBeforeTheSmallOne) {
  While([&](HWND dialog) {
    server_.clock().Advance(200);
    Rest(dialog);
  });
  const Steps both = {{WM_SETICON, ICON_BIG}, {WM_SETICON, ICON_SMALL}};
  EXPECT_EQ(Sent({WM_SETICON}), (Steps{both[0], both[1], both[0], both[1]}));
}

TEST_F(MainWindowSteps, IsWhereReportsGoBeforeTheRunHasItsThread) {
  HWND told = nullptr;
  server_.calls().Watch([&](std::string_view name, const std::string&) {
    if (name == "CreateThread") told = restore::GetDialog();
  });
  While([](HWND) {});
  EXPECT_NE(told, nullptr);
  EXPECT_EQ(told, Dialog().window);
}

TEST_F(MainWindowSteps, BeginsTheLogInTheFileAlone) {
  While([](HWND) {});
  std::string shown = server_.console().Text();
  for (const std::string& text : server_.console().DebuggerTexts()) shown += text;
  // The run's own beginning is shown.
  EXPECT_NE(shown.find("Vantoro Restore Begin...\r\n"), std::string::npos);
  EXPECT_EQ(shown.find("Vantoro Restore Begin\r\n"), std::string::npos);
  EXPECT_EQ(shown.find("========="), std::string::npos);
}

TEST_F(MainWindowSteps, GivesTheBarItsNormalStateWhenTheRunStarts) {
  While([](HWND) {});
  EXPECT_EQ(Sent({PBM_SETSTATE}), (Steps{{PBM_SETSTATE, PBST_NORMAL}}));
}

TEST_F(MainWindowSteps, ScrollsToTheEndOfTheLogBeforeItAppendsWithoutUndo) {
  While([&](HWND dialog) {
    PostLine(dialog, "four");
    PostLine(dialog, "more");
  });
  // Behind "Vantoro Restore Begin..." and "Restore BCD Begin...", each with its line end.
  EXPECT_EQ(Sent({EM_SETSEL, EM_SCROLLCARET, EM_REPLACESEL}), (Steps{{EM_SETSEL, 0},
                                                                     {EM_SCROLLCARET, 0},
                                                                     {EM_REPLACESEL, FALSE},
                                                                     {EM_SETSEL, 26},
                                                                     {EM_SCROLLCARET, 0},
                                                                     {EM_REPLACESEL, FALSE},
                                                                     {EM_SETSEL, 48},
                                                                     {EM_SCROLLCARET, 0},
                                                                     {EM_REPLACESEL, FALSE},
                                                                     {EM_SETSEL, 52},
                                                                     {EM_SCROLLCARET, 0},
                                                                     {EM_REPLACESEL, FALSE}}));
}

}  // namespace
}  // namespace ui
