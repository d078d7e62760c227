// The worker's thread function: messages to the dialog and the closing line.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "restore/messages.h"
#include "restore/run.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/process.h"
#include "support/simulated_events.h"
#include "support/test_names.h"

namespace restore {
namespace {

using simulator::PostedMessage;
using Lines = std::vector<std::string>;

class RestoreThread : public testing::Test {
 protected:
  RestoreThread() { SpendInTheDiskTool(0); }

  // Moves the clock while the disk stage runs.
  void SpendInTheDiskTool(int64_t milliseconds) {
    server_.processes().Install(
        "diskpart", [milliseconds](simulator::Server& server, simulator::ChildProcess&) -> DWORD {
          server.clock().Advance(milliseconds);
          return 0;
        });
  }

  uint32_t Run() {
    return RestoreThreadProc(std::make_unique<RunStart>(RunStart{window_, &logger_}).release());
  }

  // The messages as "message wparam lparam".
  Lines Posted() {
    Lines posted;
    while (const std::optional<PostedMessage> message = server_.desktop().Take(window_)) {
      posted.push_back(std::to_string(message->message) + " " + std::to_string(message->wparam) +
                       " " + std::to_string(message->lparam));
    }
    return posted;
  }

  const tests::NewProcess process_;
  simulator::Server server_;
  const HWND window_ = server_.desktop().CreateWindow();
  tests::BootTools boot_tools_{server_};
  tests::EventLogger logger_{server_};
};

TEST_F(RestoreThread, TellsTheDialogOfASuccess) {
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(Posted(), (Lines{"1126 1 0", "1126 2 0"}));
}

TEST_F(RestoreThread, TellsTheDialogOfAFailure) {
  server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE;
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(Posted(), (Lines{"1126 1 0", "1126 2 1"}));
}

TEST_F(RestoreThread, TellsTheDialogOfAMissingPrivilege) {
  server_.calls().FailNext("OpenProcessToken", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(Posted(), (Lines{"1126 1 0", "1126 2 1"}));
  ASSERT_EQ(server_.message_boxes().Shown().size(), 1U);
  EXPECT_EQ(server_.message_boxes().Shown()[0].owner, window_);
}

TEST_F(RestoreThread, BeginsAndEndsWithAMessage) {
  EXPECT_EQ(Run(), 0U);
  const Lines events = logger_.Events();
  ASSERT_GT(events.size(), 4U);
  EXPECT_EQ(
      Lines(events.begin(), events.begin() + 3),
      (Lines{"PostMessageW", "InfoOut: Vantoro Restore Begin...", "Info: Modify Privilege..."}));
  EXPECT_EQ(Lines(events.end() - 3, events.end()),
            (Lines{"InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!",
                   "DoneOut: Vantoro Restore Finished! time: 0s", "PostMessageW"}));
}

TEST_F(RestoreThread, LogsTheWholeRun) {
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: Vantoro Restore Begin...", "Info: Modify Privilege...",
                   "InfoOut: Restore BCD Begin...", "InfoOut: Restore BCD Done!",
                   "InfoOut: Restore Disks Begin...", "InfoOut: Restore Disks Done!",
                   "InfoOut: Vantoro Restore Begin...\n", "InfoOut: Restore [c:\\]...",
                   "Info: Prepare Dir [c:\\vantoro_prepare\\] Not Exsit, Skip...",
                   "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!",
                   "DoneOut: Vantoro Restore Finished! time: 0s"}));
}

TEST_F(RestoreThread, NamesTheLogFileBehindAFailure) {
  server_.files().VolumeAt('C')->drive_type = DRIVE_REMOVABLE;
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(logger_.Lines().back(),
            "WarnOut: Vantoro Restore Not Finished! See Details Info In Log File "
            "[C:\\log\\file.log].");
}

TEST_F(RestoreThread, GoesOnForADialogThatIsGone) {
  server_.desktop().DestroyWindow(window_);
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(logger_.Lines().back(), "DoneOut: Vantoro Restore Finished! time: 0s");
}

struct DurationCase {
  int64_t begin;    // milliseconds into a second
  int64_t elapsed;  // milliseconds
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const DurationCase& test) {
  return out << "at " << test.begin << " ms for " << test.elapsed << " ms";
}

class RunDuration : public RestoreThread, public testing::WithParamInterface<DurationCase> {};

TEST_P(RunDuration, IsLoggedInWholeSeconds) {
  server_.clock().Set(1709626026000 + GetParam().begin);
  SpendInTheDiskTool(GetParam().elapsed);
  EXPECT_EQ(Run(), 0U);
  EXPECT_EQ(logger_.Lines().back(),
            std::string("DoneOut: Vantoro Restore Finished! time: ") + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, RunDuration,
    testing::Values(DurationCase{0, 0, "0s"}, DurationCase{0, 999, "0s"},
                    DurationCase{999, 1, "1s"}, DurationCase{0, 59'000, "59s"},
                    DurationCase{0, 60'000, "1m0s"}, DurationCase{0, 65'000, "1m5s"},
                    DurationCase{0, 3'599'000, "59m59s"}, DurationCase{0, 3'600'000, "1h0s"},
                    DurationCase{0, 3'665'000, "1h1m5s"}, DurationCase{0, 360'000'000, "100h0s"},
                    DurationCase{0, -5'000, ""}),
    tests::NamedAsPrinted());

}  // namespace
}  // namespace restore
