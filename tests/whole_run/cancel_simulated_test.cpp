// Runs that the user cancels.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_descriptors.h"
#include "rehearsal/user.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/security/security.h"
#include "support/program_simulated.h"

namespace restore {
namespace {

using simulator::ShownDialog;
using simulator::ShownMessageBox;

class CancelledRun : public tests::ProgramTest {
 protected:
  CancelledRun()
      : sources_(simulator::Build(
            simulator::ReadScenario(std::filesystem::path(VANTORO_SCENARIO_DIR) / "default.json"),
            server_)) {}

  // Whether the user cancelled the run once the bar had come so far.
  bool RunAndCancelAt(int percent) {
    simulator::User user({simulator::Wish::kCancel, percent});
    simulator::Dialogs& dialogs = server_.dialogs();
    dialogs.HandlePostsAtOnce();
    dialogs.Watch([&](const ShownDialog& dialog) {
      if (user.WantsToCancel(dialog)) dialogs.Click(dialog.window, IDCANCEL);
    });
    server_.message_boxes().Answer(
        [&user](const ShownMessageBox& box) { return user.Answer(box); });
    EXPECT_EQ(Run(), 0);
    dialogs.Watch(nullptr);
    return user.cancelled_at() == percent;
  }

  // Whether the root of the volume is as on the source.
  bool IsRestored(char letter) {
    const std::string root = std::string(1, letter) + ":\\";
    const auto outcome = simulator::GatherDescriptors(sources_, server_);
    for (const auto& difference : outcome.differences) {
      if (difference.path == root) return false;
    }
    return true;
  }

  const std::vector<simulator::SourceVolume> sources_;
};

// At 40 % two of the volumes, C and D, are done, and E has not been begun.
TEST_F(CancelledRun, LeavesTheRestUndone) {
  ASSERT_TRUE(RunAndCancelAt(40));
  EXPECT_TRUE(IsRestored('D'));
  EXPECT_FALSE(IsRestored('E'));
}

TEST_F(CancelledRun, AsksOnceAndRestartsNothing) {
  ASSERT_TRUE(RunAndCancelAt(40));
  ASSERT_EQ(server_.message_boxes().Shown().size(), 1U);
  EXPECT_EQ(server_.message_boxes().Shown()[0].text,
            "Vantoro Restore Is Running, Are You Sure To Cancel?");
  EXPECT_FALSE(server_.shutdown().Scheduled());
}

TEST_F(CancelledRun, StartsAgainWithTheNextBoot) {
  ASSERT_TRUE(RunAndCancelAt(40));
  EXPECT_TRUE(server_.files().Exists(server_.system().common_startup_directory +
                                     "\\vantoro_restore.exe.lnk"));
}

}  // namespace
}  // namespace restore
