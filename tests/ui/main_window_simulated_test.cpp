// The progress dialog while the run lasts.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/server.h"
#include "support/program_simulated.h"
#include "ui/resource.h"

namespace ui {
namespace {

using restore::RestoreState;
using simulator::ShownControl;
using simulator::ShownDialog;

// What the held run has shown.
constexpr char kBegun[] = "Vantoro Restore Begin...\r\nRestore BCD Begin...\r\n";

// The run is held until somebody cancels.
class MainWindowTest : public tests::ProgramTest {
 protected:
  MainWindowTest() { HoldTheRun(); }

  // Runs the program and cancels it once `look` has looked.
  void While(const std::function<void(HWND dialog)>& look) {
    EXPECT_EQ(RunWith([&](HWND dialog) {
                look(dialog);
                Cancel(dialog);
              }),
              0);
  }

  int Position() const { return Dialog().Control(IDC_PROGRESS).position; }
  std::string LogText() const { return Dialog().Control(IDC_LOG).text; }
};

TEST_F(MainWindowTest, ShowsTheDialogInTheMiddleOfTheScreen) {
  While([&](HWND) {
    const ShownDialog dialog = Dialog();
    EXPECT_EQ(dialog.id, IDD_MAIN);
    EXPECT_TRUE(dialog.visible);
    // The work area is 1024 by 728.
    EXPECT_LE(std::abs(dialog.rectangle.left + dialog.rectangle.right - 1024), 1);
    EXPECT_LE(std::abs(dialog.rectangle.top + dialog.rectangle.bottom - 728), 1);
  });
}

TEST_F(MainWindowTest, StartsWithTheDiskStage) {
  // The run's first message comes behind it, and has no percent.
  While([&](HWND) {
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 0s");
    const ShownControl bar = Dialog().Control(IDC_PROGRESS);
    EXPECT_EQ(bar.minimum, 0);
    EXPECT_EQ(bar.maximum, 100);
    EXPECT_EQ(bar.position, 0);
    EXPECT_EQ(bar.state, PBST_NORMAL);
  });
}

TEST_F(MainWindowTest, HasItsIconInBothSizes) {
  While([&](HWND) {
    EXPECT_EQ(Dialog().big_icon, IDI_TOOL);
    EXPECT_EQ(Dialog().small_icon, IDI_TOOL);
  });
}

TEST_F(MainWindowTest, RunsItsTimersFromTheRunsStart) {
  While([&](HWND) {
    EXPECT_EQ(Dialog().timers, (std::map<UINT_PTR, UINT>{{1001, 1000}, {1002, 200}}));
    EXPECT_EQ(TaskBar().state, TBPF_NORMAL);
  });
}

TEST_F(MainWindowTest, ShowsProgressInThreePlaces) {
  While([&](HWND dialog) {
    PostPercent(dialog, 37.5);
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 37.50%  Time: 0s");
    EXPECT_EQ(Position(), 37);
    EXPECT_EQ(TaskBar().completed, 37U);
    EXPECT_EQ(TaskBar().total, 100U);
  });
}

struct OddPercent {
  const char* name;
  double percent;
  int position;
};

std::ostream& operator<<(std::ostream& out, const OddPercent& test) { return out << test.name; }

class OddPercents : public MainWindowTest, public testing::WithParamInterface<OddPercent> {};

TEST_P(OddPercents, MoveTheBarToAnEnd) {
  While([&](HWND dialog) {
    PostPercent(dialog, 50.0);
    PostPercent(dialog, GetParam().percent);
    EXPECT_EQ(Position(), GetParam().position);
    EXPECT_NE(Dialog().caption.find("%  Time: 0s"), std::string::npos) << Dialog().caption;
  });
}

INSTANTIATE_TEST_SUITE_P(
    All, OddPercents,
    testing::Values(OddPercent{"Infinite", std::numeric_limits<double>::infinity(), 100},
                    OddPercent{"MinusInfinite", -std::numeric_limits<double>::infinity(), 0},
                    OddPercent{"NoNumber", std::nan(""), 0}, OddPercent{"Negative", -5.0, 0},
                    OddPercent{"Huge", 1e300, 100}, OddPercent{"MinusHuge", -1e300, 0},
                    OddPercent{"More", 120.0, 100}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(MainWindowTest, AppendsLogLinesAndScrollsToTheirEnd) {
  While([&](HWND dialog) {
    PostLine(dialog, "one\r\n");
    PostLine(dialog, "zwei: größer %s\r\n");
    EXPECT_EQ(LogText(), std::string(kBegun) + "one\r\nzwei: größer %s\r\n");
    const ShownControl log = Dialog().Control(IDC_LOG);
    const size_t characters = std::string(kBegun).size() + 22;
    EXPECT_EQ(log.selection_start, characters);
    EXPECT_EQ(log.selection_end, characters);
    EXPECT_TRUE(log.scrolled_to);
  });
}

TEST_F(MainWindowTest, TakesPostedLinesOfAnyLength) {
  While([&](HWND dialog) {
    restore::PostLogLine("%s", std::string(3000, 'x').c_str());
    Rest(dialog);
    EXPECT_EQ(LogText(), kBegun + std::string(2047, 'x'));
  });
}

TEST_F(MainWindowTest, IgnoresMessagesWithoutARecordAndOfOtherKinds) {
  While([&](HWND dialog) {
    const std::string caption = Dialog().caption;
    for (const WPARAM kind : {WPARAM{0}, WPARAM{1}, WPARAM{2}, WPARAM{3}, ~WPARAM{0}}) {
      Post(dialog, restore::WM_RESTORE_PROGRESS, kind, 0);
    }
    for (const WPARAM state : {WPARAM{0}, WPARAM{3}, ~WPARAM{0}}) {
      Post(dialog, restore::WM_RESTORE_STATE, state, 1);
    }
    Post(dialog, WM_COMMAND, IDOK, 0);
    Post(dialog, WM_COMMAND, IDC_LOG, 0);
    EXPECT_EQ(Dialog().caption, caption);
    EXPECT_EQ(LogText(), kBegun);
    EXPECT_EQ(Dialog().timers.size(), 2U);
    EXPECT_TRUE(server_.message_boxes().Shown().empty());
  });
}

TEST_F(MainWindowTest, CountsTheSeconds) {
  While([&](HWND dialog) {
    for (int second = 0; second < 65; ++second) {
      server_.clock().Advance(1000);
      Rest(dialog);
    }
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 1m5s");
  });
}

TEST_F(MainWindowTest, TurnsSixIcons) {
  While([&](HWND dialog) {
    std::vector<int> shown;
    for (int i = 0; i < 8; ++i) {
      server_.clock().Advance(200);
      Rest(dialog);
      shown.push_back(Dialog().big_icon);
      EXPECT_EQ(Dialog().small_icon, Dialog().big_icon);
    }
    EXPECT_EQ(shown, (std::vector<int>{108, 109, 110, 105, 106, 107, 108, 109}));
  });
}

TEST_F(MainWindowTest, IsKnownBeforeTheRunStartsAndShowsItsStageBehindThat) {
  While([](HWND) {});
  std::vector<std::string> steps;
  for (const simulator::TracedCall& call : server_.calls().Trace()) {
    const bool is_message = call.name == "SendMessageW" || call.name == "SetWindowTextA";
    if (is_message || call.name == "CreateThread" || call.name == "LoadIconW") {
      if (steps.empty() || steps.back() != call.name) steps.push_back(call.name);
    }
  }
  ASSERT_GT(steps.size(), 6U);
  // The icon, both of its sizes, the other icons, the bar's range, the run, the title.
  EXPECT_EQ(std::vector<std::string>(steps.begin(), steps.begin() + 6),
            (std::vector<std::string>{"LoadIconW", "SendMessageW", "LoadIconW", "SendMessageW",
                                      "CreateThread", "SetWindowTextA"}));
  EXPECT_EQ(server_.calls().ArgumentsOf("LoadIconW").size(), 8U);
}

TEST_F(MainWindowTest, BeginsTheLog) {
  While([](HWND) {});
  const std::string log = server_.files()
                              .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
                              .value_or("none");
  EXPECT_NE(log.find("[Info]  ========= Vantoro Restore Tool 1.1.0.1. =========\r\n"),
            std::string::npos);
  EXPECT_NE(log.find("[Info]  Vantoro Restore Begin\r\n"), std::string::npos);
}

TEST_F(MainWindowTest, HasOneTaskBarHelperHoweverOftenTheRunStarts) {
  While([&](HWND dialog) {
    PostState(dialog, RestoreState::kStarted);
    PostPercent(dialog, 10.0);
    EXPECT_EQ(TaskBar().completed, 10U);
  });
  EXPECT_EQ(server_.calls().ArgumentsOf("CoCreateInstance").size(), 1U);
}

TEST_F(MainWindowTest, HasNoTaskBarProgressOnASystemItCannotTell) {
  server_.calls().FailNext("GetVersionExA", ERROR_NOT_SUPPORTED, 1, simulator::Lasting::kForGood);
  HoldTheRun("diskpart");  // the boot stage ends without its tool
  While([&](HWND dialog) {
    PostPercent(dialog, 10.0);
    EXPECT_EQ(Position(), 10);
  });
  EXPECT_TRUE(server_.calls().ArgumentsOf("CoCreateInstance").empty());
}

TEST_F(MainWindowTest, LoadsTheStageOfReportsOnce) {
  While([&](HWND dialog) {
    for (const double percent : {1.0, 2.0, 3.0}) PostPercent(dialog, percent);
  });
  int loads = 0;
  for (const std::string& arguments : server_.calls().ArgumentsOf("LoadStringA")) {
    if (arguments.ends_with(", 117")) ++loads;
  }
  EXPECT_EQ(loads, 1);
}

TEST_F(MainWindowTest, ColoursAWritableLogBox) {
  // As the log box is not: a read-only one asks as a static control does.
  simulator::DialogTemplate dialog;
  ASSERT_EQ(server_.desktop().FindDialog(1033, IDD_MAIN, &dialog), DWORD{ERROR_SUCCESS});
  for (simulator::ControlTemplate& control : dialog.controls) {
    if (control.id == IDC_LOG) control.style &= ~static_cast<DWORD>(ES_READONLY);
  }
  server_.desktop().SetDialog(1033, IDD_MAIN, dialog);
  While([&](HWND) {
    const auto log = Dialog().Control(IDC_LOG).colors;
    ASSERT_TRUE(log);
    EXPECT_EQ(log->text, COLORREF{0x000000});
    EXPECT_EQ(log->background, COLORREF{0xFFFFFF});
    EXPECT_EQ(log->brush, WHITE_BRUSH);
  });
}

TEST_F(MainWindowTest, ColoursTheNoteAndTheLog) {
  While([&](HWND) {
    const ShownDialog dialog = Dialog();
    const auto note = dialog.Control(IDC_NOTE).colors;
    ASSERT_TRUE(note);
    EXPECT_EQ(note->text, COLORREF{0x00FF0000});
    EXPECT_EQ(note->mode, TRANSPARENT);
    EXPECT_EQ(note->brush, NULL_BRUSH);
    // A read-only edit control asks as a static one does, and keeps its colours.
    const auto log = dialog.Control(IDC_LOG).colors;
    ASSERT_TRUE(log);
    EXPECT_EQ(log->brush, std::nullopt);
  });
}

// Cancelling.

TEST_F(MainWindowTest, AsksBeforeItIsCancelled) {
  While([](HWND) {});
  const std::vector<simulator::ShownMessageBox> boxes = server_.message_boxes().Shown();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].owner, Dialog().window);
  EXPECT_EQ(boxes[0].text, "Vantoro Restore Is Running, Are You Sure To Cancel?");
  EXPECT_EQ(boxes[0].caption, "Vantoro Restore Tool");
  EXPECT_EQ(boxes[0].type, UINT{MB_OKCANCEL});
}

TEST_F(MainWindowTest, GoesOnWhenCancellingIsRefused) {
  int asked = 0;
  server_.message_boxes().Answer(
      [&asked](const simulator::ShownMessageBox&) { return ++asked < 3 ? IDCANCEL : IDOK; });
  While([&](HWND dialog) {
    Cancel(dialog);
    Rest(dialog);
    EXPECT_FALSE(Dialog().destroyed);
    server_.dialogs().Press(dialog, VK_ESCAPE);
    Rest(dialog);
    EXPECT_FALSE(Dialog().destroyed);
    PostPercent(dialog, 5.0);
    EXPECT_EQ(Position(), 5);
  });
  EXPECT_EQ(asked, 3);
  EXPECT_TRUE(Dialog().destroyed);
}

TEST_F(MainWindowTest, EndsTheToolsThatRunWhenItIsCancelled) {
  While([](HWND) {});
  const std::vector<std::string> ended = server_.calls().ArgumentsOf("TerminateProcess");
  ASSERT_FALSE(ended.empty());
  EXPECT_TRUE(ended.back().ends_with(", 1")) << ended.back();
  EXPECT_FALSE(server_.shutdown().Scheduled());
}

TEST_F(MainWindowTest, StopsItsTimersBeforeItEndsTheTools) {
  While([](HWND) {});
  std::vector<std::string> calls;
  for (const simulator::TracedCall& call : server_.calls().Trace()) {
    if (call.name == "KillTimer")
      calls.push_back(call.name + call.arguments.substr(call.arguments.find(',')));
    if (call.name == "TerminateProcess" && calls.back() != call.name) calls.push_back(call.name);
  }
  EXPECT_EQ(calls,
            (std::vector<std::string>{"KillTimer, 1001", "KillTimer, 1002", "TerminateProcess"}));
}

TEST_F(MainWindowTest, ShowsProgressWhileItAsks) {
  server_.message_boxes().Answer([this](const simulator::ShownMessageBox&) {
    auto record = std::make_unique<restore::ProgressRecord>(restore::ProgressRecord{"", 12.0});
    server_.desktop().Post(Dialog().window, {restore::WM_RESTORE_PROGRESS, 2,
                                             reinterpret_cast<LPARAM>(record.release())});
    server_.clock().Advance(1000);
    simulator::DispatchBesideBox(server_.desktop());
    EXPECT_EQ(Dialog().caption, "Vantoro Restore Tool 1.1.0.1 - Progress 12.00%  Time: 1s");
    return IDOK;
  });
  While([](HWND) {});
  EXPECT_EQ(Position(), 12);
}

TEST_F(MainWindowTest, EndsOnceThoughTheRunEndsWhileItAsks) {
  std::vector<std::string> asked;
  server_.message_boxes().Answer([&](const simulator::ShownMessageBox& box) {
    asked.push_back(box.text);
    if (asked.size() == 1) {
      server_.desktop().Post(Dialog().window, {restore::WM_RESTORE_STATE, 2, 1});
      simulator::DispatchBesideBox(server_.desktop());
    }
    return IDOK;
  });
  While([](HWND) {});
  EXPECT_EQ(asked, (std::vector<std::string>{"Vantoro Restore Is Running, Are You Sure To Cancel?",
                                             "Vantoro Restore Not Finished."}));
  EXPECT_TRUE(Dialog().destroyed);
}

TEST_F(MainWindowTest, GoesOnWhenTheQuestionCannotBeShown) {
  server_.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  While([&](HWND dialog) {
    Cancel(dialog);
    Rest(dialog);
    EXPECT_FALSE(Dialog().destroyed);
  });
}

// Other systems.

TEST_F(MainWindowTest, HasNoTaskBarProgressOnWindowsVista) {
  server_.system().major_version = 6;
  server_.system().minor_version = 0;
  While([&](HWND dialog) {
    PostPercent(dialog, 37.5);
    EXPECT_EQ(TaskBar().total, 0U);
  });
  EXPECT_TRUE(server_.calls().ArgumentsOf("CoCreateInstance").empty());
}

TEST_F(MainWindowTest, HasTaskBarProgressFromWindows7On) {
  server_.system().major_version = 6;
  server_.system().minor_version = 1;
  While([&](HWND dialog) {
    PostPercent(dialog, 37.5);
    EXPECT_EQ(TaskBar().completed, 37U);
  });
}

TEST_F(MainWindowTest, DoesWithoutATaskBar) {
  server_.calls().FailNext("CoCreateInstance", static_cast<DWORD>(E_OUTOFMEMORY));
  While([&](HWND dialog) {
    PostPercent(dialog, 37.5);
    EXPECT_EQ(Position(), 37);
    EXPECT_EQ(TaskBar().state, TBPF_NOPROGRESS);
  });
}

TEST_F(MainWindowTest, SpeaksChineseOnAChineseSystem) {
  server_.system().language = 2052;
  While([&](HWND dialog) {
    PostPercent(dialog, 1.0);
    EXPECT_EQ(Dialog().caption, "Vantoro迁云还原检查工具 1.1.0.1 - 进度 1.00%  Time: 0s");
    EXPECT_EQ(Dialog().Control(IDC_NOTE).text,
              "注意：正在进行迁云后系统还原检测工作，请不要关闭此程序。");
    EXPECT_EQ(Dialog().Control(IDCANCEL).text, "取消");
  });
  EXPECT_EQ(server_.message_boxes().Shown().at(0).text,
            "迁云还原检测工作还在进行当中，您确定要退出吗？");
}

}  // namespace
}  // namespace ui
