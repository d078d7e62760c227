// The log box of the dialog, and the messages that fill it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/paths.h"
#include "restore/messages.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"
#include "support/deliberate_leak.h"
#include "support/log_box.h"
#include "support/program_simulated.h"
#include "ui/resource.h"

namespace ui {
namespace {

using Lines = std::vector<std::string>;

class LogBoxTest : public tests::ProgramTest {
 protected:
  std::string Box() const { return Dialog().Control(IDC_LOG).text; }
  std::string Log(const std::string& folder = "C:\\vantoro_restore") {
    return server_.files().Read(folder + "\\Logs\\vantoro_restore_20240305.log").value_or("");
  }

  // Returns "state 1", "line", "percent" for each message posted to the dialog, in order.
  Lines Posts() {
    Lines posts;
    for (const simulator::TracedCall& call : server_.calls().Trace()) {
      if (call.name == "PostMessageW") posts.push_back("state" + Field(call.arguments, 2));
      if (call.name == "PostMessageA") {
        posts.emplace_back(Field(call.arguments, 2) == " 0" ? "line" : "percent");
      }
    }
    return posts;
  }

 private:
  static std::string Field(std::string arguments, int number) {
    for (; number > 0; --number) arguments.erase(0, arguments.find(',') + 1);
    return arguments.substr(0, arguments.find(','));
  }
};

TEST_F(LogBoxTest, ShowsEveryPrintedMessageAlone) {
  EXPECT_EQ(Run(), 0);
  // Nothing is prepared on C, the only volume.
  EXPECT_EQ(Box(),
            "Vantoro Restore Begin...\r\n"
            "Restore BCD Begin...\r\n"
            "Restore BCD Done!\r\n"
            "Restore Disks Begin...\r\n"
            "Restore Disks Done!\r\n"
            "Vantoro Restore Begin...\r\n"
            "Restore [c:\\]...\r\n"
            "Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!\r\n"
            "Vantoro Restore Finished! time: 0s\r\n");
  EXPECT_EQ(Box(), tests::LogBoxText(Log()));
}

TEST_F(LogBoxTest, HasTheLastLineBeforeTheEndIsAnnounced) {
  std::string then;
  server_.message_boxes().Answer([&](const simulator::ShownMessageBox&) {
    then = Box();
    return IDCANCEL;
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(then.ends_with("Vantoro Restore Finished! time: 0s\r\n")) << then;
}

TEST_F(LogBoxTest, ShowsEachMessageWhenItIsInTheFile) {
  Lines logged;
  server_.calls().Watch([&](std::string_view name, const std::string& arguments) {
    if (name == "PostMessageA" && arguments.find(", 1125, 0, ") != std::string::npos) {
      logged.push_back(tests::LogBoxText(Log()));
    }
  });
  EXPECT_EQ(Run(), 0);
  server_.calls().Watch(nullptr);
  ASSERT_EQ(logged.size(), 9U);
  for (size_t i = 0; i < logged.size(); ++i) {
    EXPECT_EQ(std::count(logged[i].begin(), logged[i].end(), '\n'), static_cast<ptrdiff_t>(i + 1));
  }
}

TEST_F(LogBoxTest, AddsItsMessagesToTheOthersAndChangesNoneOfThem) {
  server_.files().Write("C:\\vantoro_prepare\\backup_info", "C\r\n\r\n\r\n1\r\n");
  server_.files().Write("C:\\vantoro_prepare\\juncbackup_c.dat", "");
  server_.files().Write("C:\\vantoro_prepare\\aclbackup_c.dat", "");
  EXPECT_EQ(Run(), 0);
  // The percentages come from the junctions, the descriptors and the volume.
  EXPECT_EQ(Posts(), (Lines{"state 1", "line", "line", "line", "line", "line", "line", "line",
                            "percent", "percent", "percent", "line", "line", "state 2"}));
}

TEST_F(LogBoxTest, ShowsTextThatLooksLikeAFormatUnchanged) {
  const std::string folder = "C:\\100%% %s%n \xE8\xBF\x98\xE5\x8E\x9F";
  server_.system().program_path = folder + "\\vantoro_restore.exe";
  server_.files().MakeDirectories(folder);
  server_.files().Write("C:\\vantoro_prepare\\backup_info", "C\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(Box().ends_with("Vantoro Restore Not Finished! See Details Info In Log File [" +
                              folder + "\\Logs\\vantoro_restore_20240305.log].\r\n"))
      << Box();
  EXPECT_EQ(Box(), tests::LogBoxText(Log(folder)));
}

TEST_F(LogBoxTest, ShowsTheRunThoughThereIsNoLog) {
  server_.files().Write("C:\\vantoro_restore\\Logs", "a file");
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(Box().starts_with("Vantoro Restore Begin...\r\nRestore BCD Begin...\r\n"));
  EXPECT_TRUE(Box().ends_with("Vantoro Restore Finished! time: 0s\r\n"));
}

TEST_F(LogBoxTest, LacksALineThatCannotBePosted) {
  server_.calls().FailNext("PostMessageA", ERROR_NOT_ENOUGH_QUOTA, 2);
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(Box().starts_with("Vantoro Restore Begin...\r\nRestore BCD Done!\r\n")) << Box();
  EXPECT_NE(Log().find("Restore BCD Begin..."), std::string::npos);
}

TEST_F(LogBoxTest, StaysEmptyWhenTheRunCannotBeStarted) {
  server_.calls().FailNext("CreateThread", ERROR_NOT_ENOUGH_MEMORY);
  const tests::DeliberateLeak start_block;
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(Box(), "");
  EXPECT_NE(Log().find("Vantoro Restore Thread Start Failed."), std::string::npos);
}

}  // namespace
}  // namespace ui
