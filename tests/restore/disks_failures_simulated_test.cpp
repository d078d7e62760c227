// The drive letter stage with a disk tool that fails.
#include <gtest/gtest.h>

#include <future>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "common/win/child_process_list.h"
#include "restore/disks.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"
#include "support/simulated_diskpart.h"

namespace restore {
namespace {

using tests::DiskLine;
using tests::DiskpartReply;
using tests::VolumeLine;
using Lines = std::vector<std::string>;

std::string Detail(int disk) { return "sel disk " + std::to_string(disk) + "/detail disk"; }

// Disks 1 and 2 hold volumes E and G, recorded as F and H.
class RestoreDisksFailure : public testing::Test {
 protected:
  RestoreDisksFailure() {
    Mount('E', "F");
    Mount('G', "H");
    Reply("list disk ", 0, DiskLine(1, " 100 GB") + DiskLine(2, " 200 GB"));
    Reply(Detail(1), 0, VolumeLine('E', " 99 GB"));
    Reply(Detail(2), 0, VolumeLine('G', "199 GB"));
  }

  void Mount(char letter, const std::string& source) {
    server_.files().MountEmpty(letter);
    const std::string path = std::string(1, letter) + ":\\vantoro_prepare\\backup_info";
    server_.files().Write(path, source + "\r\n");
  }

  // What the tool answers to a script; without a word for all others.
  void Reply(const std::string& commands, DWORD exit_code, const std::string& output = "") {
    replies_[commands] = {exit_code, output};
  }

  bool Restore() { return RestoreDisks(logger_); }
  Lines Logged() const { return logger_.LinesAboveDebug(); }

  simulator::Server server_;
  tests::RecordingLogger logger_;
  std::map<std::string, DiskpartReply> replies_;
  bool fail_after_assign_ = false;  // whatever comes behind "assign" fails
  bool assigned_ = false;
  tests::ScriptedDiskpart diskpart_{server_, [this](const std::string& commands) {
                                      if (fail_after_assign_ && assigned_)
                                        return DiskpartReply{5, ""};
                                      if (commands.ends_with("/assign")) assigned_ = true;
                                      const auto found = replies_.find(commands);
                                      return found == replies_.end() ? DiskpartReply{}
                                                                     : found->second;
                                    }};
};

constexpr char kRemoved1[] = "InfoOut: RestoreDisks Remove Disk 1 Letter Successfully!";
constexpr char kRemoved2[] = "InfoOut: RestoreDisks Remove Disk 2 Letter Successfully!";
constexpr char kAssigned1[] = "InfoOut: RestoreDisks Assign Disk 1 Letter[f] Successfully!";
constexpr char kAssigned2[] = "InfoOut: RestoreDisks Assign Disk 2 Letter[h] Successfully!";
constexpr char kRandomFailed1[] = "Warn: RestoreDisks Assign Disk 1 Random Letter Failed.";

std::string RunFailed(const std::string& operation, int code) {
  return "ErrorOut: WinUtil::RunScript Run " + operation +
         "  Step1 Failed, code=" + std::to_string(code);
}

std::string AssignFailed(int code) {
  return "Error: WinUtil::AssignDiskLetter assign letter Failed. code=" + std::to_string(code);
}

TEST_F(RestoreDisksFailure, DoesNotOccurWhenTheToolObeys) {
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Logged(), (Lines{kRemoved1, kRemoved2, kAssigned1, kAssigned2}));
}

TEST_F(RestoreDisksFailure, OfTheListingEndsTheStage) {
  Reply("list disk ", 5);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{RunFailed("EnumDiskpartInfos", 5),
                             "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=5",
                             "Warn: RestoreDisks Get Diskpart Infos Failed."}));
  EXPECT_EQ(diskpart_.Commands(), Lines{"list disk "});
}

TEST_F(RestoreDisksFailure, OfAMissingToolEndsTheStage) {
  server_.processes().Uninstall("diskpart");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged().back(), "Warn: RestoreDisks Get Diskpart Infos Failed.");
}

TEST_F(RestoreDisksFailure, OfAScriptFolderThatIsNotThereEndsTheStage) {
  server_.system().temp_directory = "C:\\missing";
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{"ErrorOut: WinUtil::RunScript Create EnumDiskpartInfos  Step1 Failed.",
                             "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=1",
                             "Warn: RestoreDisks Get Diskpart Infos Failed."}));
  EXPECT_EQ(diskpart_.Commands(), Lines{});
}

TEST_F(RestoreDisksFailure, OfADetailLeavesTheDiskOut) {
  Reply(Detail(1), 5);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Logged(), (Lines{RunFailed("GetDiskpartVolumeInfo", 5),
                             "Error: WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=5",
                             kRemoved2, kAssigned2}));
}

TEST_F(RestoreDisksFailure, OfATemporaryLetterEndsTheStage) {
  Reply(Detail(1), 0, VolumeLine(' ', " 99 GB"));
  Reply("sel disk 1/sel part 1/assign", 5);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{RunFailed("AssignDiskLetter", 5), AssignFailed(5), kRandomFailed1}));
  EXPECT_EQ(diskpart_.Commands(),
            (Lines{"list disk ", Detail(1), Detail(2), "sel disk 1/sel part 1/assign"}));
}

TEST_F(RestoreDisksFailure, OfReadingTheTemporaryLetterEndsTheStage) {
  Reply(Detail(1), 0, VolumeLine(' ', " 99 GB"));
  fail_after_assign_ = true;
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{RunFailed("GetDiskpartVolumeInfo", 5),
                             "Error: WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=5",
                             kRandomFailed1}));
}

TEST_F(RestoreDisksFailure, OfATemporaryLetterThatDoesNotShowEndsTheStage) {
  Reply(Detail(1), 0, VolumeLine(' ', " 99 GB"));
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{"InfoOut: RestoreDisks Assign Disk 1 Random Letter Successfully!",
                             "Warn: ReadBackupInfoLine Backup Info File doesn't Exist.",
                             "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(RestoreDisksFailure, OfARemovalKeepsTheDiskFromAnotherLetter) {
  Reply("sel disk 1/sel part 1/remove", 5);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(),
            (Lines{RunFailed("RemoveDiskLetter", 5),
                   "Error: WinUtil::RemoveDiskLetter remove letter Failed. code=5",
                   "Warn: RestoreDisks Remove Disk 1 Letter Failed.", kRemoved2, kAssigned2}));
  EXPECT_EQ(
      diskpart_.Commands(),
      (Lines{"list disk ", Detail(1), Detail(2), "sel disk 1/sel part 1/remove",
             "sel disk 2/sel part 1/remove", "sel disk 2/sel part 1/assign letter=h", Detail(2)}));
}

TEST_F(RestoreDisksFailure, OfARecordedLetterGoesOn) {
  Reply("sel disk 1/sel part 1/assign letter=f", 5);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(),
            (Lines{kRemoved1, kRemoved2, RunFailed("AssignDiskLetter", 5), AssignFailed(5),
                   "Warn: RestoreDisks Assign Disk 1 Letter [f] Failed.", kAssigned2}));
}

TEST_F(RestoreDisksFailure, OfAFreeLetterInPlaceOfATakenOneGoesOn) {
  Mount('F', "F");
  Reply("sel disk 1/sel part 1/assign", 5);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(),
            (Lines{kRemoved1, kRemoved2, "Warn: RestoreDisks Disk 1 Src Dir [f:\\] Exist.",
                   RunFailed("AssignDiskLetter", 5), AssignFailed(5), kRandomFailed1, kAssigned2}));
}

TEST_F(RestoreDisksFailure, OfALetterTakenInVainIsStillOne) {
  Mount('F', "F");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{kRemoved1, kRemoved2,
                             "Warn: RestoreDisks Disk 1 Src Dir [f:\\] Exist.", kAssigned2}));
}

TEST_F(RestoreDisksFailure, OfEveryRemovalLeavesEveryLetter) {
  Reply("sel disk 1/sel part 1/remove", 5);
  Reply("sel disk 2/sel part 1/remove", 6);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(diskpart_.Commands().back(), "sel disk 2/sel part 1/remove");
}

TEST_F(RestoreDisksFailure, OfAToolThatClosesItsOutputIsItsStillRunning) {
  server_.processes().Install("diskpart",
                              [](simulator::Server&, simulator::ChildProcess& child) -> DWORD {
                                child.CloseHandles();
                                child.WaitUntilTerminated();
                                return 0;
                              });
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Logged(), (Lines{RunFailed("EnumDiskpartInfos", 259),
                             "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=259",
                             "Warn: RestoreDisks Get Diskpart Infos Failed."}));
  // Else this fixture's end would wait for the tool.
  server_.processes().TerminateAll();
}

// What a user does who cancels while the tool hangs.
TEST_F(RestoreDisksFailure, OfATerminatedToolEndsTheStage) {
  std::promise<void> hangs;
  server_.processes().Install("diskpart",
                              [&](simulator::Server&, simulator::ChildProcess& child) -> DWORD {
                                // More than a pipe holds: behind it the child is listed.
                                child.WriteOutput(std::string(5000, 'x'));
                                hangs.set_value();
                                child.WaitUntilTerminated();
                                return 0;
                              });
  std::thread canceller([&] {
    hangs.get_future().wait();
    HANDLE last = nullptr;
    common::win::ChildProcessList::Instance().ForEach([&](HANDLE child) { last = child; });
    EXPECT_TRUE(::TerminateProcess(last, 1));
  });
  EXPECT_FALSE(Restore());
  canceller.join();
  EXPECT_EQ(Logged(), (Lines{RunFailed("EnumDiskpartInfos", 1),
                             "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=1",
                             "Warn: RestoreDisks Get Diskpart Infos Failed."}));
}

TEST_F(RestoreDisksFailure, OfEachCallOnceNeverStopsTheProgram) {
  for (const char* name :
       {"GetTempPathA", "_open", "_write", "CreatePipe", "CreateProcessA", "ReadFile",
        "GetExitCodeProcess", "PathFileExistsA", "_read", "_access", "GetSystemDirectoryA"}) {
    for (int occurrence = 1; occurrence <= 12; ++occurrence) {
      server_.calls().ClearFaults();
      server_.calls().FailNext(name, ERROR_GEN_FAILURE, occurrence);
      static_cast<void>(Restore());
      // Only a tool that does not start leaves anything open: both ends of its pipe.
      for (const std::string& kind : server_.OpenHandles()) {
        EXPECT_TRUE(kind == "pipe read end" || kind == "pipe write end") << name << " " << kind;
      }
    }
  }
}

}  // namespace
}  // namespace restore
