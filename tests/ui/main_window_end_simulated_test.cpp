// The end of the run in the progress dialog.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/security.h"
#include "support/deliberate_leak.h"
#include "support/program_simulated.h"
#include "ui/resource.h"

namespace ui {
namespace {

using restore::RestoreState;
using simulator::ShownMessageBox;

class RunEnd : public tests::ProgramTest {
 protected:
  // A run that fails: there is no fixed volume.
  void FailTheRun() { server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE; }

  ShownMessageBox OnlyBox() {
    const std::vector<ShownMessageBox> boxes = server_.message_boxes().Shown();
    EXPECT_EQ(boxes.size(), 1U);
    return boxes.empty() ? ShownMessageBox() : boxes[0];
  }
};

TEST_F(RunEnd, OffersARestartAfterASuccess) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(OnlyBox().text, "Vantoro Restore Finish, Do you want to restart!");
  EXPECT_EQ(OnlyBox().caption, "Vantoro Restore Tool");
  EXPECT_EQ(OnlyBox().type, static_cast<UINT>(MB_OKCANCEL | MB_ICONQUESTION));
  EXPECT_EQ(OnlyBox().owner, Dialog().window);
}

TEST_F(RunEnd, ShowsTheFinishBeforeTheQuestion) {
  std::string caption;
  int position = 0;
  server_.message_boxes().Answer([&](const ShownMessageBox&) {
    caption = Dialog().caption;
    position = Dialog().Control(IDC_PROGRESS).position;
    return IDCANCEL;
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(caption, "Vantoro Restore Tool 1.1.0.1 - Finished 100.00%  Time: 0s");
  EXPECT_EQ(position, 100);
  EXPECT_EQ(TaskBar().completed, 100U);
}

TEST_F(RunEnd, RestartsOnConsent) {
  EXPECT_EQ(Run(), 0);
  const std::optional<simulator::ShutdownRequest> request = server_.shutdown().Scheduled();
  ASSERT_TRUE(request);
  EXPECT_EQ(request->message, "Windows System Will Restart In 30 Seconds!");
  EXPECT_EQ(request->seconds, 30U);
  EXPECT_FALSE(request->force_apps_closed);
  EXPECT_TRUE(request->reboot);
}

TEST_F(RunEnd, RestartsInTheLanguageOfTheSystem) {
  server_.system().language = 2052;
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(OnlyBox().text, "迁云还原检测已完成，需要重启系统，您要重启系统吗？");
  ASSERT_TRUE(server_.shutdown().Scheduled());
  EXPECT_EQ(server_.shutdown().Scheduled()->message, "Windows系统将在30秒后重启！");
}

TEST_F(RunEnd, RestartsNothingWithoutConsent) {
  server_.message_boxes().Answer([](const ShownMessageBox&) { return IDCANCEL; });
  EXPECT_EQ(Run(), 0);
  EXPECT_FALSE(server_.shutdown().Scheduled());
  EXPECT_FALSE(server_.security().Enabled("SeShutdownPrivilege"));
}

TEST_F(RunEnd, TellsOfAFailureAndOffersNothing) {
  FailTheRun();
  int state = 0;
  std::string caption;
  server_.message_boxes().Answer([&](const ShownMessageBox&) {
    state = Dialog().Control(IDC_PROGRESS).state;
    caption = Dialog().caption;
    return IDOK;
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(OnlyBox().text, "Vantoro Restore Not Finished.");
  EXPECT_EQ(OnlyBox().type, static_cast<UINT>(MB_ICONWARNING));
  EXPECT_EQ(OnlyBox().owner, Dialog().window);
  EXPECT_EQ(state, PBST_ERROR);
  EXPECT_EQ(caption, "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: 0s");
  EXPECT_EQ(TaskBar().state, TBPF_ERROR);
  EXPECT_FALSE(server_.shutdown().Scheduled());
}

// A message box does not stay once WM_QUIT waits for its thread.
class QuitAfterTheBox : public RunEnd {
 protected:
  void ExpectNoQuitBesideTheBox() {
    bool has_quit = true;
    server_.message_boxes().Answer([&](const ShownMessageBox&) {
      has_quit = server_.dialogs().HasQuit();
      return IDOK;
    });
    EXPECT_EQ(Run(), 0);
    EXPECT_FALSE(has_quit);
  }
};

TEST_F(QuitAfterTheBox, OfASuccess) { ExpectNoQuitBesideTheBox(); }

TEST_F(QuitAfterTheBox, OfAFailure) {
  FailTheRun();
  ExpectNoQuitBesideTheBox();
}

TEST_F(RunEnd, StopsTheTimers) {
  std::map<UINT_PTR, UINT> timers = {{0, 0}};
  server_.message_boxes().Answer([&](const ShownMessageBox&) {
    timers = Dialog().timers;
    return IDOK;
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(timers.empty());
}

TEST_F(RunEnd, StillShowsProgressThatComesLater) {
  std::string caption;
  server_.message_boxes().Answer([&](const ShownMessageBox&) {
    auto record = std::make_unique<restore::ProgressRecord>(restore::ProgressRecord{"", 42.0});
    server_.desktop().Post(Dialog().window, {restore::WM_RESTORE_PROGRESS, 2,
                                             reinterpret_cast<LPARAM>(record.release())});
    simulator::DispatchBesideBox(server_.desktop());
    caption = Dialog().caption;
    return IDCANCEL;
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(caption, "Vantoro Restore Tool 1.1.0.1 - Progress 42.00%  Time: 0s");
  EXPECT_EQ(Dialog().Control(IDC_PROGRESS).position, 42);
}

TEST_F(RunEnd, RestartsNothingWhenTheQuestionCannotBeShown) {
  server_.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(server_.message_boxes().Shown().empty());
  EXPECT_FALSE(server_.shutdown().Scheduled());
}

TEST_F(RunEnd, RestartsWithTheBeginningOfALongNotice) {
  server_.desktop().SetString(1033, 116, std::string(600, 'n'));
  EXPECT_EQ(Run(), 0);
  ASSERT_TRUE(server_.shutdown().Scheduled());
  EXPECT_EQ(server_.shutdown().Scheduled()->message, std::string(255, 'n'));
}

TEST_F(RunEnd, RestartsWithoutANoticeThatCannotBeLoaded) {
  server_.calls().FailNext("LoadStringW", ERROR_RESOURCE_NAME_NOT_FOUND);
  EXPECT_EQ(Run(), 0);
  ASSERT_TRUE(server_.shutdown().Scheduled());
  EXPECT_EQ(server_.shutdown().Scheduled()->message, "");
}

TEST_F(RunEnd, IsAFailureWhenTheThreadCannotBeMade) {
  server_.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  {
    const tests::DeliberateLeak start_block;
    EXPECT_EQ(Run(), 0);
  }
  EXPECT_EQ(OnlyBox().text, "Vantoro Restore Not Finished.");
  EXPECT_NE(server_.files()
                .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
                .value_or("")
                .find("[Error] Vantoro Restore Thread Start Failed."),
            std::string::npos);
}

}  // namespace
}  // namespace ui
