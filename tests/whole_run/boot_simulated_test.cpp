// The boot configuration in whole runs: what becomes of the store, and when its tools run.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/whole_run_simulated.h"

namespace restore {
namespace {

using simulator::BootStore;
using tests::WholeRun;
using Lines = std::vector<std::string>;

std::string LogOf(WholeRun& run) {
  return run.server()
      .files()
      .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
      .value_or("");
}

// The command lines of the tools that ran; of diskpart, whose script says what it does, the name.
Lines ToolsOf(WholeRun& run) {
  Lines tools;
  for (const std::string& line : run.server().processes().Started()) {
    tools.push_back(line.starts_with("diskpart") ? "diskpart" : line);
  }
  return tools;
}

TEST(BootRun, RepairsTheBootConfigurationBeforeTheDisksAndTheVolumes) {
  WholeRun run("default");
  run.server().calls().KeepTrace(true);
  const BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  const Lines tools = ToolsOf(run);
  ASSERT_GT(tools.size(), 5U);
  EXPECT_EQ(Lines(tools.begin(), tools.begin() + 5),
            (Lines{"bcdedit", "bcdedit /export \"C:\\vantoro_restore\\BCD_BAK\"",
                   "bcdedit /delete " + before.entries[2].identifier,
                   "bcdedit /delete " + before.entries[3].identifier,
                   "bcdboot c:\\Windows /s c: /l zh-CN"}));
  EXPECT_EQ(Lines(tools.begin() + 5, tools.end()), Lines(tools.size() - 5, "diskpart"));

  // Volumes come last: no tool is started behind the first descriptor that is written.
  bool restoring = false;
  for (const simulator::TracedCall& call : run.server().calls().Trace()) {
    restoring = restoring || call.name == "SetNamedSecurityInfoA";
    EXPECT_FALSE(restoring && call.name == "CreateProcessA");
  }
  EXPECT_TRUE(restoring);
}

TEST(BootRun, LeavesTheDefaultLoaderAloneInItsOwnLocale) {
  WholeRun run("default");
  const std::string kept = run.server().boot().store.entries[1].identifier;
  ASSERT_EQ(run.Run(), 0);
  const BootStore& after = run.server().boot().store;
  ASSERT_EQ(after.entries.size(), 2U);
  EXPECT_EQ(after.entries[0].Value("locale"), "zh-CN");
  EXPECT_EQ(after.entries[0].Value("default"), kept);
  EXPECT_EQ(after.entries[0].Values("displayorder"), Lines{kept});
  EXPECT_EQ(after.entries[1].identifier, kept);
  EXPECT_EQ(after.entries[1].Value("locale"), "zh-CN");
}

TEST(BootRun, LeavesTheBackupBesideTheProgram) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.server().files().Exists("C:\\vantoro_restore\\BCD_BAK"));
}

TEST(BootRun, MakesNoBackupWithNothingToDo) {
  WholeRun run("boot_nothing_to_do");
  const BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  EXPECT_FALSE(run.server().files().Exists("C:\\vantoro_restore\\BCD_BAK"));
  EXPECT_EQ(run.server().boot().store, before);
  EXPECT_EQ(ToolsOf(run)[0], "bcdedit");
  EXPECT_EQ(ToolsOf(run)[1], "diskpart");
}

TEST(BootRun, BringsBackEveryEntryWhenADeletionFails) {
  WholeRun run("boot_deletion_fails");
  const BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  const BootStore& after = run.server().boot().store;
  ASSERT_EQ(after.entries.size(), before.entries.size());
  for (size_t i = 0; i < before.entries.size(); ++i) {
    EXPECT_EQ(after.entries[i], before.entries[i]) << before.entries[i].identifier;
  }
  const Lines tools = ToolsOf(run);
  ASSERT_GT(tools.size(), 5U);
  EXPECT_EQ(Lines(tools.begin() + 2, tools.begin() + 5),
            (Lines{"bcdedit /delete " + before.entries[1].identifier,
                   "bcdedit /delete " + before.entries[3].identifier,
                   "bcdedit /import \"C:\\vantoro_restore\\BCD_BAK\""}));
  EXPECT_EQ(tools[5], "diskpart");
  EXPECT_NE(LogOf(run).find("[Warn]  Restore BCD Error."), std::string::npos);
}

TEST(BootRun, KeepsTheEnglishManagerWhenTheRebuildFails) {
  WholeRun run("boot_rebuild_fails");
  ASSERT_EQ(run.Run(), 0);
  const BootStore& after = run.server().boot().store;
  ASSERT_EQ(after.entries.size(), 2U);
  EXPECT_EQ(after.entries[0].Value("locale"), "en-US");
  EXPECT_NE(LogOf(run).find("[Error] WinUtil::RemakeBCDBoot bcdboot c: zh-CN Failed, code=1"),
            std::string::npos);
  EXPECT_NE(LogOf(run).find("[Info]  Restore BCD Done!"), std::string::npos);
}

// On a server that boots from another partition than that of Windows.
TEST(BootRun, DeletesFromTheStoreInUseAndRebuildsAnotherOne) {
  for (const char* const scenario : {"system_reserved", "uefi"}) {
    WholeRun run(scenario);
    const BootStore before = run.server().boot().store;
    ASSERT_EQ(before.entries.size(), 3U) << scenario;
    ASSERT_EQ(run.Run(), 0) << scenario;
    const Lines tools = ToolsOf(run);
    EXPECT_EQ(Lines(tools.begin(), tools.begin() + 4),
              (Lines{"bcdedit", "bcdedit /export \"C:\\vantoro_restore\\BCD_BAK\"",
                     "bcdedit /delete " + before.entries[2].identifier,
                     "bcdboot c:\\Windows /s c: /l zh-CN"}));
    EXPECT_NE(LogOf(run).find("[Info]  Restore BCD Done!"), std::string::npos);
    BootStore expected = before;
    expected.Remove(before.entries[2].identifier);
    EXPECT_EQ(run.server().boot().store, expected) << scenario;
    ASSERT_EQ(run.server().boot().unused.size(), 1U) << scenario;
    const auto& [volume, written] = *run.server().boot().unused.begin();
    EXPECT_EQ(volume, run.server().files().VolumeAt('C').get());
    EXPECT_EQ(written.entries.at(0).Value("locale"), "zh-CN");
  }
}

TEST(BootRun, FindsNoToolForTheRebuildOnWindowsServer2008) {
  WholeRun run("windows_server_2008");
  const BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  const std::string log = LogOf(run);
  EXPECT_NE(log.find("WinUtil::CreateProgressNoWait: bcdboot c:\\Windows /s c: /l zh-CN"),
            std::string::npos);
  EXPECT_NE(log.find("[Error] WinUtil::CreateProgressNoWait Failed: Last Error: [2] "),
            std::string::npos);
  EXPECT_NE(log.find("[Error] WinUtil::RemakeBCDBoot bcdboot c: zh-CN Failed, code=2"),
            std::string::npos);
  EXPECT_NE(log.find("[Info]  Restore BCD Done!"), std::string::npos);
  BootStore expected = before;
  expected.Remove(before.entries.at(2).identifier);
  EXPECT_EQ(run.server().boot().store, expected);
}

TEST(BootRun, TouchesNothingWhenTheDefaultIsNotDisplayed) {
  WholeRun run("boot_default_not_displayed");
  const BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(run.server().boot().store, before);
  EXPECT_EQ(ToolsOf(run)[1], "diskpart");
}

TEST(BootRun, RunsNoBootToolOnWindowsServer2003) {
  WholeRun run("windows_server_2003");
  ASSERT_EQ(run.Run(), 0);
  const Lines tools = ToolsOf(run);
  EXPECT_FALSE(tools.empty());
  EXPECT_EQ(tools, Lines(tools.size(), "diskpart"));
}

}  // namespace
}  // namespace restore
