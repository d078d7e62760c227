// A whole run, started by the window on a thread of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "acl/acl_util.h"
#include "common/strings.h"
#include "common/win/child_process_list.h"
#include "restore/messages.h"
#include "simulator/model/local_heap.h"
#include "simulator/model/server.h"
#include "simulator/tools/diskpart.h"
#include "support/simulated_boot_tools.h"
#include "support/deliberate_leak.h"
#include "ui/main_window.h"

namespace ui {
namespace {

using simulator::PostedMessage;
using Lines = std::vector<std::string>;

constexpr char kLogFile[] = "C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log";
constexpr uint64_t kGB = uint64_t{1} << 30;

class StartRestore : public testing::Test {
 protected:
  StartRestore() {
    server_.processes().Install("diskpart", simulator::DiskpartProgram());
    AddDisk(server_.files().VolumeAt('C'), "Boot", "C");
    AddVolume('D', "E");
    AddVolume('E', "D");
  }
  ~StartRestore() override {
    restore::SetDialog(nullptr);
    acl::ACLUtil::privileges_enabled = false;
  }

  void AddVolume(char letter, const std::string& source) {
    const auto volume = server_.files().AddVolume({});
    server_.files().Mount(letter, volume);
    AddDisk(volume, "", source);
  }

  void AddDisk(std::shared_ptr<simulator::Volume> volume, const std::string& info,
               const std::string& source) {
    const std::string letter = common::ToLowerAscii(source);
    const std::string folder = "vantoro_prepare\\";
    server_.files().WriteOn(*volume, folder + "backup_info", source + "\r\n\r\n\r\n1\r\n");
    server_.files().WriteOn(*volume, folder + "juncbackup_" + letter + ".dat", "");
    server_.files().WriteOn(*volume, folder + "aclbackup_" + letter + ".dat", "");
    simulator::Disk disk;
    disk.number = static_cast<int>(server_.disks().size());
    disk.size = 100 * kGB;
    disk.partitions.push_back({1, 99 * kGB, info, std::move(volume)});
    server_.disks().push_back(std::move(disk));
  }

  // Takes messages until the run has ended, as the dialog's thread does. The run's result.
  LPARAM WaitForTheEnd() {
    for (;;) {
      const PostedMessage message = server_.desktop().WaitAndTake(window_);
      restore::ReleasePosted(message.message == restore::WM_RESTORE_PROGRESS ? message.wparam : 1,
                             message.lparam);
      if (message.message == restore::WM_RESTORE_STATE && message.wparam == 2) {
        // The thread still has its own end before it.
        server_.threads().WaitForAll();
        return message.lparam;
      }
    }
  }

  // The lines of the log without their time stamps.
  Lines Logged() const {
    Lines lines;
    std::string text = server_.files().Read(kLogFile).value_or("no file");
    for (size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
      constexpr size_t kStamp = 22;  // "[2024-03-05 08:07:06] "
      const bool stamped = text.starts_with("[2024-03-05 ");
      lines.push_back(stamped ? text.substr(kStamp, end - kStamp) : text.substr(0, end));
      text.erase(0, end + 2);
    }
    EXPECT_EQ(text, "");
    return lines;
  }

  static Lines WithoutDebug(Lines lines) {
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("[Debug]"); });
    return lines;
  }

  mutable simulator::Server server_;
  tests::BootTools boot_tools_{server_};
  const HWND window_ = server_.desktop().CreateWindow();
  std::unique_ptr<MainWindow> main_window_ = std::make_unique<MainWindow>(window_);
};

// What the log tells of a volume of which nothing is to be restored.
Lines RestoredVolume(const std::string& root) {
  return {"[Info]  Restore [" + root + "]...",
          "[Info]  junction restore begin...",
          "[Info]  junction restore cost 0s",
          "[Info]  junction restore done!",
          "[Info]  acl restore begin...",
          "[Info]  ACLRestore (Stage 0/1)...",
          "[Info]  ACLRestore (Stage 1/1) Done.",
          "[Info]  ACLRestore Done.",
          "[Info]  acl restore cost 0s",
          "[Info]  acl restore done!",
          ""};
}

TEST_F(StartRestore, RunsTheWholeRestoreIntoItsLog) {
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  Lines expected = {"[Info]  ========= Vantoro Restore Tool 1.1.0.1. =========",
                    "[Info]  Vantoro Restore Begin",
                    "[Info]  Vantoro Restore Begin...",
                    "[Info]  Modify Privilege...",
                    "[Info]  Restore BCD Begin...",
                    "[Info]  Restore BCD Done!",
                    "[Info]  Restore Disks Begin...",
                    "[Info]  RestoreDisks Remove Disk 1 Letter Successfully!",
                    "[Info]  RestoreDisks Remove Disk 2 Letter Successfully!",
                    "[Info]  RestoreDisks Assign Disk 1 Letter[e] Successfully!",
                    "[Info]  RestoreDisks Assign Disk 2 Letter[d] Successfully!",
                    "[Info]  Restore Disks Done!",
                    "[Info]  Vantoro Restore Begin...",
                    ""};
  for (const char* const root : {"c:\\", "d:\\", "e:\\"}) {
    const Lines volume = RestoredVolume(root);
    expected.insert(expected.end(), volume.begin(), volume.end());
  }
  expected.push_back("[Info]  Vantoro Restore Finish, Total 3 disks, Finish 3, Error 0!");
  expected.push_back("[Done]  Vantoro Restore Finished! time: 0s");
  EXPECT_EQ(WithoutDebug(Logged()), expected);
}

TEST_F(StartRestore, KeepsItsThreadHandleAlone) {
  const int blocks = simulator::LiveLocalBlocks();
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  EXPECT_EQ(server_.handles().OpenKinds(), Lines{"thread"});
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks);
  main_window_.reset();
  EXPECT_EQ(server_.threads().LiveCriticalSections(), 0);
}

TEST_F(StartRestore, PostsTheStartBeforeTheEnd) {
  main_window_->StartRestore();
  const PostedMessage started = server_.desktop().WaitAndTake(window_);
  EXPECT_EQ(started.message, restore::WM_RESTORE_STATE);
  EXPECT_EQ(started.wparam, 1U);
  EXPECT_EQ(started.lparam, 0);
  EXPECT_EQ(WaitForTheEnd(), 0);
  EXPECT_FALSE(server_.desktop().Take(window_));
}

TEST_F(StartRestore, EchoesOnlyWhatIsEchoed) {
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  const std::string text = server_.console().Text();
  EXPECT_EQ(text.find("========="), std::string::npos);
  EXPECT_EQ(text.find("Modify Privilege"), std::string::npos);
  EXPECT_NE(text.find("[Info]  Restore Disks Begin...\r\n"), std::string::npos);
  EXPECT_NE(text.find("[Done]  Vantoro Restore Finished! time: 0s\r\n"), std::string::npos);
}

TEST_F(StartRestore, NamesTheLogFileBehindAFailure) {
  server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE;
  server_.files().VolumeAt('D')->drive_type = DRIVE_REMOVABLE;
  server_.files().VolumeAt('E')->drive_type = DRIVE_REMOVABLE;
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 1);
  EXPECT_EQ(Logged().back(),
            std::string("[Warn]  Vantoro Restore Not Finished! See Details Info In Log File [") +
                kLogFile + "].");
}

TEST_F(StartRestore, RunsWithoutALogFile) {
  server_.calls().FailNext("_mkdir", EACCES, 1, simulator::Lasting::kForGood);
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  EXPECT_FALSE(server_.files().Exists(kLogFile));
  EXPECT_EQ(server_.files().LetterOf(*server_.disks()[1].partitions[0].volume), 'E');
}

TEST_F(StartRestore, StandsUpToADialogThatReadsMeanwhile) {
  restore::SetDialog(window_);
  main_window_->StartRestore();
  size_t listed = 0;
  bool ended = false;
  while (!ended) {
    size_t now = 0;
    common::win::ChildProcessList::Instance().ForEach([&](HANDLE) { ++now; });
    EXPECT_GE(now, listed);
    listed = now;
    restore::ReportProgress(static_cast<double>(now));
    while (const std::optional<PostedMessage> message = server_.desktop().Take(window_)) {
      if (message->message == restore::WM_RESTORE_STATE && message->wparam == 2) ended = true;
      if (message->message == restore::WM_RESTORE_PROGRESS) {
        restore::ReleasePosted(message->wparam, message->lparam);
      }
    }
    std::this_thread::yield();
  }
  server_.threads().WaitForAll();
}

// What the user's cancelling does to a tool that hangs.
TEST_F(StartRestore, EndsBehindAToolThatIsTerminated) {
  server_.processes().Install(
      "diskpart", [](simulator::Server&, simulator::ChildProcess& child) -> DWORD {
        // More than a pipe holds: behind it the child is listed.
        child.WriteOutput(std::string(5000, 'x'));
        HANDLE last = nullptr;
        common::win::ChildProcessList::Instance().ForEach([&](HANDLE handle) { last = handle; });
        EXPECT_TRUE(::TerminateProcess(last, 1));
        child.WaitUntilTerminated();
        return 0;
      });
  main_window_->StartRestore();
  // Volumes that keep their wrong letters have no backup files of that letter.
  EXPECT_EQ(WaitForTheEnd(), 1);
  const Lines lines = WithoutDebug(Logged());
  EXPECT_NE(std::find(lines.begin(), lines.end(), "[Warn]  Restore Disks Error."), lines.end());
}

TEST_F(StartRestore, MayBeCalledAgainBehindTheEnd) {
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  main_window_->StartRestore();
  EXPECT_EQ(WaitForTheEnd(), 0);
  EXPECT_EQ(Logged().front(), "[Info]  ========= Vantoro Restore Tool 1.1.0.1. =========");
  EXPECT_EQ(server_.handles().OpenKinds(), (Lines{"thread", "thread"}));
}

// The start block of a thread that cannot be made stays allocated.
TEST_F(StartRestore, ShowsAThreadThatCannotBeMadeAsAFailedRun) {
  const tests::DeliberateLeak leak;
  server_.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  main_window_->StartRestore();
  const std::optional<PostedMessage> message = server_.desktop().Take(window_);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->message, restore::WM_RESTORE_STATE);
  EXPECT_EQ(message->wparam, 2U);
  EXPECT_EQ(message->lparam, 1);
  EXPECT_FALSE(server_.desktop().Take(window_));
  EXPECT_EQ(Logged(), (Lines{"[Info]  ========= Vantoro Restore Tool 1.1.0.1. =========",
                             "[Info]  Vantoro Restore Begin",
                             "[Error] Vantoro Restore Thread Start Failed."}));
}

}  // namespace
}  // namespace ui
