// The program from its entry point to its exit.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/program_simulated.h"

namespace ui {
namespace {

using simulator::ShownMessageBox;
using Lines = std::vector<std::string>;

class ApplicationTest : public tests::ProgramTest {
 protected:
  // Those of the calls that are named, in the order in which they were made.
  Lines CallsAmong(const std::set<std::string>& names) {
    Lines calls;
    for (const simulator::TracedCall& call : server_.calls().Trace()) {
      if (names.contains(call.name)) calls.push_back(call.name);
    }
    return calls;
  }

  Lines LanguageCalls() {
    Lines calls;
    for (const char* const name : {"SetThreadUILanguage", "SetThreadLocale"}) {
      for (const std::string& argument : server_.calls().ArgumentsOf(name)) {
        calls.push_back(std::string(name) + " " + argument);
      }
    }
    return calls;
  }

  void ExpectErrorBox(const std::string& text) {
    const std::vector<ShownMessageBox> boxes = server_.message_boxes().Shown();
    ASSERT_FALSE(boxes.empty());
    EXPECT_EQ(boxes[0].text, text);
    EXPECT_EQ(boxes[0].owner, nullptr);
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_ICONERROR));
    EXPECT_EQ(boxes[0].caption, "Vantoro Restore Tool");
  }
};

TEST_F(ApplicationTest, TakesItsStepsInOrder) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(
      CallsAmong({"GetVersionExW", "SetThreadUILanguage", "CoInitialize", "DefWindowProcW",
                  "InitCommonControlsEx", "CreateDialogParamW", "ShowWindow", "DestroyWindow"}),
      (Lines{"GetVersionExW", "SetThreadUILanguage", "CoInitialize", "DefWindowProcW",
             "InitCommonControlsEx", "CreateDialogParamW", "ShowWindow", "DestroyWindow"}));
}

TEST_F(ApplicationTest, ChoosesTheLanguageBeforeItAsksForTheArchitecture) {
  EXPECT_EQ(Run(), 0);
  const Lines calls = CallsAmong({"SetThreadUILanguage", "GetModuleHandleW", "GetProcAddress"});
  ASSERT_GE(calls.size(), 3U);
  EXPECT_EQ(Lines(calls.begin(), calls.begin() + 3),
            (Lines{"SetThreadUILanguage", "GetModuleHandleW", "GetProcAddress"}));
}

TEST_F(ApplicationTest, AsksForTheVersionWithoutItsExtension) {
  // 276 bytes on Windows, whose units of text have two.
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExW"),
            Lines{std::to_string(20 + 128 * sizeof(wchar_t))});
}

TEST_F(ApplicationTest, AsksForTheBarsAndTheirContainers) {
  // ICC_BAR_CLASSES | ICC_COOL_CLASSES.
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("InitCommonControlsEx"), Lines{"1028"});
}

TEST_F(ApplicationTest, DestroysItsWindowBeforeItLeavesCom) {
  std::vector<int> uses;
  server_.calls().Watch([&](std::string_view name, const std::string&) {
    if (name == "DestroyWindow") uses.push_back(server_.com().Uses());
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(uses, std::vector<int>{1});
}

TEST_F(ApplicationTest, EndsTheProcessBehindCom) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.com().Uses(), 0);
  EXPECT_EQ(server_.com().SurplusUninitializations(), 0);
  EXPECT_TRUE(Dialog().destroyed);
  // It ends where it is: what the window owns is not given back before.
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 1);
}

TEST_F(ApplicationTest, ShowsItsWindowAsItWasStarted) {
  server_.own_process().Run(
      [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_HIDE); });
  EXPECT_FALSE(Dialog().visible);
}

TEST_F(ApplicationTest, EndsWithCode0WhateverBecameOfTheRun) {
  server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE;
  EXPECT_EQ(Run(), 0);
}

TEST_F(ApplicationTest, SetsTheLanguageOfItsThread) {
  for (const LANGID language : {LANGID{2052}, LANGID{1028}, LANGID{1041}, LANGID{1033}}) {
    server_.system().language = language;
    tests::ForgetProcess();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LanguageCalls().back(),
              language == 2052 ? "SetThreadUILanguage 2052" : "SetThreadUILanguage 1033");
  }
}

TEST_F(ApplicationTest, SetsTheLocaleOfItsThreadBeforeWindowsVista) {
  server_.system().major_version = 5;
  server_.system().minor_version = 2;
  server_.system().language = 2052;
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LanguageCalls(), Lines{"SetThreadLocale 2052"});
}

TEST_F(ApplicationTest, GoesOnWithoutTheVersion) {
  server_.calls().FailNext("GetVersionExW", ERROR_NOT_SUPPORTED);
  EXPECT_EQ(Run(), 0);
  ExpectErrorBox("Get OS Version Failed, Can't Load Language Resources.");
  EXPECT_EQ(LanguageCalls(), Lines{});
  EXPECT_EQ(server_.message_boxes().Shown().size(), 2U);
}

TEST_F(ApplicationTest, EndsWithCode1WithoutTheArchitecture) {
  server_.system().has_native_system_info = false;
  EXPECT_EQ(Run(), 1);
  ExpectErrorBox("Get Architecture Failed.");
  EXPECT_TRUE(server_.dialogs().All().empty());
  EXPECT_TRUE(server_.calls().ArgumentsOf("CoInitialize").empty());
  EXPECT_TRUE(server_.processes().Started().empty());
}

TEST_F(ApplicationTest, WaitsOnWithoutAWindow) {
  server_.calls().FailNext("CreateDialogParamW", ERROR_NOT_ENOUGH_MEMORY);
  server_.message_boxes().Answer([](const ShownMessageBox&) {
    ::PostQuitMessage(0);  // for nobody else would end it
    return IDOK;
  });
  EXPECT_EQ(Run(), 0);
  ExpectErrorBox("Create Main Window Failed.");
  EXPECT_TRUE(server_.processes().Started().empty());
}

TEST_F(ApplicationTest, DoesWithoutCom) {
  server_.calls().FailNext("CoInitialize", static_cast<DWORD>(E_OUTOFMEMORY));
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(Dialog().destroyed);
}

TEST_F(ApplicationTest, LeavesTheRunWhereItIsWhenItIsCancelled) {
  HoldTheRun();
  // The tool outlives the window: a run whose tool is ended may still go on a little before the
  // end of the process.
  server_.calls().FailNext("TerminateProcess", ERROR_ACCESS_DENIED, 1,
                           simulator::Lasting::kForGood);
  server_.files().Write("C:\\vantoro_restore\\vantoro_restore.exe.lnk", "");
  EXPECT_EQ(RunWith([this](HWND dialog) { Cancel(dialog); }), 0);
  // The links that the run deletes at its end are there.
  EXPECT_TRUE(server_.files().Exists("C:\\vantoro_restore\\vantoro_restore.exe.lnk"));
}

TEST_F(ApplicationTest, TakesAMessageThatCannotBeTakenForNone) {
  server_.calls().FailNext("GetMessageW", ERROR_INVALID_PARAMETER, 2);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.message_boxes().Shown().size(), 1U);
}

// What the thread checker looks at most: the user cancels while the first tool runs, or behind
// it.
TEST_F(ApplicationTest, EndsWellHoweverItsThreadsMeet) {
  for (int round = 0; round < 100; ++round) {
    tests::ForgetProcess();
    server_.processes().Install(
        "bcdedit", [round](simulator::Server& server, simulator::ChildProcess&) -> DWORD {
          const HWND dialog = server.dialogs().WaitForDialog();
          for (int i = 0; i < round * 7 % 50; ++i) std::this_thread::yield();
          server.desktop().Post(dialog, {WM_COMMAND, IDCANCEL, 0});
          for (int i = 0; i < round * 3 % 50; ++i) std::this_thread::yield();
          return 1;
        });
    EXPECT_EQ(Run(), 0);
  }
}

}  // namespace
}  // namespace ui
