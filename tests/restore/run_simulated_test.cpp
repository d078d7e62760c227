// The restore worker.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "restore/run.h"
#include "simulator/model/server.h"
#include "support/simulated_diskpart.h"
#include "support/simulated_events.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

// A server without a disk that the disk tool lists.
class RestoreWorkerTest : public testing::Test {
 protected:
  int32_t Run(const std::string& volume_root = "") {
    return RestoreWorker(logger_, window_, volume_root, "");
  }

  void Mount(char letter, UINT drive_type) {
    const auto volume = server_.files().AddVolume({});
    volume->drive_type = drive_type;
    server_.files().Mount(letter, volume);
  }

  // The totals line; the last in every run that has one.
  std::string LastLine() const { return logger_.Lines().back(); }

  simulator::Server server_;
  const HWND window_ = server_.desktop().CreateWindow();
  tests::EventLogger logger_{server_};
  tests::ScriptedDiskpart diskpart_{server_,
                                    [](const std::string&) { return tests::DiskpartReply{}; }};
};

Lines Together(std::initializer_list<Lines> parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

const Lines kPrivilege = {"OpenProcessToken", "LookupPrivilegeValueA", "AdjustTokenPrivileges",
                          "CloseHandle"};

TEST_F(RestoreWorkerTest, DoesEverythingInThisOrder) {
  server_.calls().FailNext("GetTempPathA", ERROR_ACCESS_DENIED);  // a short disk stage
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(
      logger_.Events(),
      Together({{"Info: Modify Privilege..."},
                kPrivilege,
                kPrivilege,
                {"InfoOut: Restore Disks Begin...", "GetTempPathA", "_open",
                 "ErrorOut: WinUtil::RunScript Create EnumDiskpartInfos  Step1 Failed.",
                 "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=1",
                 "Warn: RestoreDisks Get Diskpart Infos Failed.", "WarnOut: Restore Disks Error."},
                {"_access", "GetDriveTypeA"},
                Lines(24, "_access"),
                {"InfoOut: Vantoro Restore Begin...\n", "SHGetSpecialFolderPathA",
                 "PathFileExistsA", "GetModuleFileNameA", "PathRemoveFileSpecA", "PathFileExistsA",
                 "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!"}}));
}

TEST_F(RestoreWorkerTest, LogsASuccessfulRun) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"Info: Modify Privilege...", "InfoOut: Restore Disks Begin...",
                   "InfoOut: Restore Disks Done!", "InfoOut: Vantoro Restore Begin...\n",
                   "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!"}));
  EXPECT_TRUE(server_.desktop().Boxes().empty());
}

TEST_F(RestoreWorkerTest, LeavesNothingOpen) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.handles().OpenKinds(), Lines{});
}

// Privileges.

TEST_F(RestoreWorkerTest, EnablesBothPrivileges) {
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(server_.security().Enabled("SeBackupPrivilege"));
  EXPECT_TRUE(server_.security().Enabled("SeRestorePrivilege"));
  EXPECT_EQ(server_.calls().ArgumentsOf("LookupPrivilegeValueA"),
            (Lines{"\"SeBackupPrivilege\"", "\"SeRestorePrivilege\""}));
}

TEST_F(RestoreWorkerTest, GoesOnWithPrivilegesThatItDoesNotHold) {
  server_.security().Revoke("SeBackupPrivilege");
  server_.security().Revoke("SeRestorePrivilege");
  EXPECT_EQ(Run(), 0);
}

class PrivilegeFailure : public RestoreWorkerTest, public testing::WithParamInterface<const char*> {
 protected:
  // The box that the run showed: one, and nothing behind it.
  void ExpectBox(const std::string& text) {
    const std::vector<simulator::ShownMessageBox> boxes = server_.desktop().Boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].owner, window_);
    EXPECT_EQ(boxes[0].text, text);
    EXPECT_EQ(boxes[0].caption, "Vantoro Restore Tool");
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_OK));
    EXPECT_EQ(server_.calls().Trace().back().name, "MessageBoxA");
    EXPECT_EQ(logger_.Lines(), Lines{"Info: Modify Privilege..."});
    EXPECT_EQ(diskpart_.Commands(), Lines{});
  }
};

TEST_P(PrivilegeFailure, OfTheFirstEndsTheRun) {
  server_.files().Write("C:\\vantoro_restore\\vantoro_restore.exe.lnk", "");
  server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 1);
  ExpectBox("ModifyPrivilege 1 Failed.");
  EXPECT_FALSE(server_.security().Enabled("SeRestorePrivilege"));
  EXPECT_TRUE(server_.files().Exists("C:\\vantoro_restore\\vantoro_restore.exe.lnk"));
}

TEST_P(PrivilegeFailure, OfTheSecondEndsTheRun) {
  server_.files().Write("C:\\vantoro_restore\\vantoro_restore.exe.lnk", "");
  server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED, 2);
  EXPECT_EQ(Run(), 1);
  ExpectBox("ModifyPrivilege 2 Failed.");
  EXPECT_TRUE(server_.security().Enabled("SeBackupPrivilege"));
  EXPECT_TRUE(server_.files().Exists("C:\\vantoro_restore\\vantoro_restore.exe.lnk"));
}

// A token that cannot be adjusted stays open.
TEST_P(PrivilegeFailure, LeavesTheTokenOpenWhenItCannotBeAdjusted) {
  server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 1);
  const bool is_adjusting = std::string(GetParam()) == "AdjustTokenPrivileges";
  EXPECT_EQ(server_.handles().OpenKinds(), is_adjusting ? Lines{"token"} : Lines{});
}

INSTANTIATE_TEST_SUITE_P(Calls, PrivilegeFailure,
                         testing::Values("OpenProcessToken", "LookupPrivilegeValueA",
                                         "AdjustTokenPrivileges"));

TEST_F(RestoreWorkerTest, TitlesItsBoxesInTheLanguageOfTheSystem) {
  server_.system().language = 2052;
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 1);
  ASSERT_EQ(server_.desktop().Boxes().size(), 1U);
  EXPECT_EQ(server_.desktop().Boxes()[0].caption, "Vantoro迁云还原检查工具");
  EXPECT_EQ(server_.desktop().Boxes()[0].text, "ModifyPrivilege 1 Failed.");
}

TEST_F(RestoreWorkerTest, EndsAlsoWhenTheBoxCannotBeShown) {
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  server_.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Run(), 1);
  EXPECT_TRUE(server_.desktop().Boxes().empty());
}

// Volumes.

TEST_F(RestoreWorkerTest, VisitsTheLettersFromCToOneBehindZ) {
  EXPECT_EQ(Run(), 0);
  Lines expected;
  for (int letter = 'c'; letter <= '{'; ++letter) {
    expected.push_back("\"" + std::string(1, static_cast<char>(letter)) + ":\\\", 0");
  }
  EXPECT_EQ(server_.calls().ArgumentsOf("_access"), expected);
}

TEST_F(RestoreWorkerTest, AsksForTheTypeOfWhatExistsInTheOrderOfLetters) {
  Mount('Z', DRIVE_FIXED);
  Mount('E', DRIVE_FIXED);
  Mount('D', DRIVE_REMOVABLE);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("GetDriveTypeA"),
            (Lines{"\"c:\\\"", "\"d:\\\"", "\"e:\\\"", "\"z:\\\""}));
}

TEST_F(RestoreWorkerTest, CountsFixedVolumesAlone) {
  Mount('D', DRIVE_REMOVABLE);
  Mount('E', DRIVE_FIXED);
  Mount('F', DRIVE_CDROM);
  Mount('G', DRIVE_REMOTE);
  Mount('H', DRIVE_RAMDISK);
  Mount('I', DRIVE_UNKNOWN);
  Mount('Z', DRIVE_FIXED);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 3 disks, Finish 3, Error 0!");
}

TEST_F(RestoreWorkerTest, NeverVisitsAAndB) {
  Mount('A', DRIVE_FIXED);
  Mount('B', DRIVE_FIXED);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!");
}

TEST_F(RestoreWorkerTest, CountsEveryLetterThereIs) {
  for (char letter = 'D'; letter <= 'Z'; ++letter) Mount(letter, DRIVE_FIXED);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 24 disks, Finish 24, Error 0!");
}

TEST_F(RestoreWorkerTest, SkipsARootThatCannotBeReached) {
  Mount('D', DRIVE_FIXED);
  server_.calls().FailNext("_access", EACCES, 2);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!");
}

TEST_F(RestoreWorkerTest, FailsWithoutAFixedVolume) {
  server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE;
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 0 disks, Finish 0, Error 0!");
}

TEST_F(RestoreWorkerTest, TakesAnOverrideUnasked) {
  for (const std::string root : {"e:\\", "C:\\", "no root at all", "%s%n"}) {
    EXPECT_EQ(Run(root), 0);
    EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!");
  }
  EXPECT_EQ(server_.calls().ArgumentsOf("_access"), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("GetDriveTypeA"), Lines{});
}

// The disk stage.

TEST_F(RestoreWorkerTest, OnlyLogsThatTheDiskStageFailed) {
  server_.processes().Uninstall("diskpart");
  EXPECT_EQ(Run(), 0);
  const Lines lines = logger_.LinesAboveDebug();
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(lines[lines.size() - 3], "WarnOut: Restore Disks Error.");
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!");
}

TEST_F(RestoreWorkerTest, CountsTheVolumesBehindTheDiskStage) {
  // A letter that the disk tool gives meanwhile counts.
  server_.processes().Install("diskpart",
                              [this](simulator::Server&, simulator::ChildProcess&) -> DWORD {
                                Mount('X', DRIVE_FIXED);
                                return 0;
                              });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 2 disks, Finish 2, Error 0!");
}

}  // namespace
}  // namespace restore
