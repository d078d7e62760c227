// The restore worker.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "acl/acl_util.h"
#include "restore/run.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/process.h"
#include "support/progress_simulated.h"
#include "support/simulated_diskpart.h"
#include "support/simulated_events.h"
#include "support/test_names.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

// A server without a disk that the disk tool lists, whose boot configuration is in order.
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

  const tests::NewProcess process_;
  simulator::Server server_;
  const HWND window_ = server_.desktop().CreateWindow();
  tests::EventLogger logger_{server_};
  tests::BootTools boot_tools_{server_};
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
  // Short stages.
  server_.calls().FailNext("GetVersionExA", ERROR_NOT_SUPPORTED);
  server_.calls().FailNext("GetTempPathA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(
      logger_.Events(),
      Together({{"Info: Modify Privilege..."},
                kPrivilege,
                kPrivilege,
                {"InfoOut: Restore BCD Begin...", "GetVersionExA",
                 "ErrorOut: WinUtil::GetOSPlatform GetVersionExA Failed: Last Error: [50] The "
                 "request is not supported.\r\n",
                 "Warn: RestoreBCDBoot Get BCD Boot Info Failed.", "WarnOut: Restore BCD Error."},
                {"InfoOut: Restore Disks Begin...", "GetTempPathA", "_open",
                 "ErrorOut: WinUtil::RunScript Create EnumDiskpartInfos  Step1 Failed.",
                 "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=1",
                 "Warn: RestoreDisks Get Diskpart Infos Failed.", "WarnOut: Restore Disks Error."},
                {"_access", "GetDriveTypeA"},
                Lines(24, "_access"),
                {"InfoOut: Vantoro Restore Begin...\n", "InfoOut: Restore [c:\\]...", "_access",
                 "Info: Prepare Dir [c:\\vantoro_prepare\\] Not Exsit, Skip...",
                 "SHGetSpecialFolderPathA", "PathFileExistsA", "GetModuleFileNameA",
                 "PathRemoveFileSpecA", "PathFileExistsA",
                 "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!"}}));
}

TEST_F(RestoreWorkerTest, LogsASuccessfulRun) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"Info: Modify Privilege...", "InfoOut: Restore BCD Begin...",
                   "InfoOut: Restore BCD Done!", "InfoOut: Restore Disks Begin...",
                   "InfoOut: Restore Disks Done!", "InfoOut: Vantoro Restore Begin...\n",
                   "InfoOut: Restore [c:\\]...",
                   "Info: Prepare Dir [c:\\vantoro_prepare\\] Not Exsit, Skip...",
                   "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!"}));
  EXPECT_TRUE(server_.message_boxes().Shown().empty());
}

TEST_F(RestoreWorkerTest, LeavesNothingOpen) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.OpenHandles(), Lines{});
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

class PrivilegeFailure : public RestoreWorkerTest, public testing::WithParamInterface<std::string> {
 protected:
  // The box that the run showed: one, and nothing behind it.
  void ExpectBox(const std::string& text) {
    const std::vector<simulator::ShownMessageBox> boxes = server_.message_boxes().Shown();
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
  const bool is_adjusting = GetParam() == "AdjustTokenPrivileges";
  EXPECT_EQ(server_.OpenHandles(), is_adjusting ? Lines{"token"} : Lines{});
}

INSTANTIATE_TEST_SUITE_P(Calls, PrivilegeFailure,
                         testing::Values("OpenProcessToken", "LookupPrivilegeValueA",
                                         "AdjustTokenPrivileges"),
                         tests::NamedAsPrinted());

TEST_F(RestoreWorkerTest, TitlesItsBoxesInTheLanguageOfTheSystem) {
  server_.system().language = 2052;
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 1);
  ASSERT_EQ(server_.message_boxes().Shown().size(), 1U);
  EXPECT_EQ(server_.message_boxes().Shown()[0].caption, "Vantoro迁云还原检查工具");
  EXPECT_EQ(server_.message_boxes().Shown()[0].text, "ModifyPrivilege 1 Failed.");
}

TEST_F(RestoreWorkerTest, EndsAlsoWhenTheBoxCannotBeShown) {
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  server_.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Run(), 1);
  EXPECT_TRUE(server_.message_boxes().Shown().empty());
}

// Volumes.

TEST_F(RestoreWorkerTest, VisitsTheLettersFromCToOneBehindZ) {
  EXPECT_EQ(Run(), 0);
  Lines expected;
  for (int letter = 'c'; letter <= '{'; ++letter) {
    expected.push_back("\"" + std::string(1, static_cast<char>(letter)) + ":\\\", 0");
  }
  expected.push_back("\"c:\\vantoro_prepare\\\", 0");
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
  EXPECT_EQ(server_.calls().ArgumentsOf("_access"),
            (Lines{"\"e:\\vantoro_prepare\\\", 0", "\"C:\\vantoro_prepare\\\", 0",
                   "\"no root at allvantoro_prepare\\\", 0", "\"%s%nvantoro_prepare\\\", 0"}));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetDriveTypeA"), Lines{});
}

// What each volume comes to.

class Volumes : public RestoreWorkerTest {
 protected:
  // With empty backup files, which restore nothing and fail in no way.
  void Prepare(char letter) {
    const std::string root = std::string(1, letter) + ":\\";
    for (const char* const name : {"juncbackup_", "aclbackup_"}) {
      server_.files().Write(root + "vantoro_prepare\\" + name + letter + ".dat", "");
    }
  }

  tests::ProgressDialog dialog_{server_};
};

TEST_F(Volumes, AreRestoredInTheOrderOfLetters) {
  Mount('E', DRIVE_FIXED);
  Mount('D', DRIVE_FIXED);
  EXPECT_EQ(Run(), 0);
  Lines told;
  for (const std::string& line : logger_.Lines()) {
    if (line.starts_with("InfoOut: Restore [")) told.push_back(line);
  }
  EXPECT_EQ(told, (Lines{"InfoOut: Restore [c:\\]...", "InfoOut: Restore [d:\\]...",
                         "InfoOut: Restore [e:\\]..."}));
}

TEST_F(Volumes, ThatFailAreCountedAndStopNothing) {
  Mount('D', DRIVE_FIXED);
  Mount('E', DRIVE_FIXED);
  Prepare('C');
  server_.files().MakeDirectories("D:\\vantoro_prepare");
  Prepare('E');
  EXPECT_EQ(Run(), 1);
  const Lines lines = logger_.Lines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "Info: acl restore done!\n"), 2);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "Error: junction restore failed, code=-1"), 1);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 3 disks, Finish 2, Error 1!");
}

TEST_F(Volumes, MakeAFailedRunWhenTheOnlyOneFails) {
  server_.files().MakeDirectories("C:\\vantoro_prepare");
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 0, Error 1!");
}

TEST_F(Volumes, ShareTheProgressAlike) {
  for (const char letter : {'D', 'E', 'F'}) Mount(letter, DRIVE_FIXED);
  for (const char letter : {'C', 'D', 'F'}) Prepare(letter);
  EXPECT_EQ(Run(), 0);
  // A share of 25: three steps for each volume but E, which has no prepare folder; the next
  // volume starts where the one before ended.
  EXPECT_EQ(dialog_.Take(), (std::vector<double>{5, 25, 30, 35, 55, 60, 65, 85, 90}));
}

TEST_F(Volumes, TakeTheirBackupFilesFromTheFolderThatIsPassedThrough) {
  server_.files().Write("C:\\other\\juncbackup_c.dat", "");
  server_.files().Write("C:\\other\\aclbackup_c.dat", "");
  EXPECT_EQ(RestoreWorker(logger_, window_, "", "C:\\other\\"), 0);
  EXPECT_EQ(dialog_.Take(), (std::vector<double>{20, 100, 120}));
}

TEST_F(Volumes, LoseTheirPrivilegesBehindTheFirst) {
  Prepare('C');
  EXPECT_EQ(Run(), 0);
  EXPECT_FALSE(server_.security().Enabled("SeBackupPrivilege"));
  EXPECT_FALSE(server_.security().Enabled("SeRestorePrivilege"));
}

// The boot and the disk stage.

TEST_F(RestoreWorkerTest, OnlyLogsThatTheBootStageFailed) {
  boot_tools_.Fail("bcdedit", 1);
  EXPECT_EQ(Run(), 0);
  const Lines lines = logger_.LinesAboveDebug();
  ASSERT_GE(lines.size(), 6U);
  EXPECT_EQ(Lines(lines.begin() + 1, lines.begin() + 6),
            (Lines{"InfoOut: Restore BCD Begin...",
                   "Error: WinUtil::GetBCDBootInfo getbcdinfo Failed, code=1",
                   "Warn: RestoreBCDBoot Get BCD Boot Info Failed.", "WarnOut: Restore BCD Error.",
                   "InfoOut: Restore Disks Begin..."}));
  EXPECT_EQ(LastLine(), "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!");
}

TEST_F(RestoreWorkerTest, OnlyLogsThatTheDiskStageFailed) {
  server_.processes().Uninstall("diskpart");
  EXPECT_EQ(Run(), 0);
  const Lines lines = logger_.LinesAboveDebug();
  ASSERT_GE(lines.size(), 5U);
  EXPECT_EQ(lines[lines.size() - 5], "WarnOut: Restore Disks Error.");
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
