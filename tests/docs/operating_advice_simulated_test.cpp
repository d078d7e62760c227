// What docs/operating.md says of a second run, and its advice, on servers that need it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/descriptors_simulated.h"
#include "support/process.h"
#include "support/whole_run_simulated.h"

namespace restore {
namespace {

using tests::WholeRun;

// In a process of its own.
int32_t RunAgain(WholeRun& run) {
  tests::ForgetProcess();
  return run.Run();
}

std::string Letters(WholeRun& run) { return run.ClosingLines()[1]; }
std::string Descriptors(WholeRun& run) { return run.ClosingLines()[3]; }

TEST(SecondRun, ChangesNothingBehindOneThatWentWell) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  const auto copies = run.Copies();
  const simulator::BootStore boot = run.server().boot().store;
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(run.Copies(), copies);
  EXPECT_EQ(run.server().boot().store, boot);
  EXPECT_EQ(Letters(run), "letters: 5 of 5 right\n");
}

TEST(SecondRun, RepairsTheBootFilesThatTheFirstCouldNot) {
  WholeRun run("boot_rebuild_fails");
  ASSERT_EQ(run.Run(), 0);
  ASSERT_EQ(run.server().boot().store.entries[0].Value("locale"), "en-US");
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(run.server().boot().store.entries[0].Value("locale"), "zh-CN");
}

TEST(SecondRun, DeletesLoadersThatAreDisplayedOnceMore) {
  WholeRun run("default");
  const simulator::BootStore before = run.server().boot().store;
  ASSERT_EQ(run.Run(), 0);
  ASSERT_EQ(run.server().boot().store.entries.size(), 2U);
  run.server().boot().store = before;
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(run.server().boot().store.entries.size(), 2U);
}

TEST(SecondRun, DoesNotRepairABootManagerOnAnotherPartition) {
  WholeRun run("system_reserved");
  ASSERT_EQ(run.Run(), 0);
  const simulator::BootStore first = run.server().boot().store;
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(run.server().boot().store, first);
}

// The steps under "The boot manager kept its language".
TEST(BootAdvice, RepairsABootManagerOnAnotherPartition) {
  for (const char* const scenario : {"system_reserved", "uefi"}) {
    WholeRun run(scenario);
    ASSERT_EQ(run.Run(), 0);
    ASSERT_EQ(run.server().boot().store.entries.at(0).Value("locale"), "en-US") << scenario;
    const auto script = [&run](const std::string& last) {
      return simulator::RunDiskpartScript("select disk 0\nselect partition 1\n" + last,
                                          run.server())
          .exit_code;
    };
    EXPECT_EQ(script("assign letter=S"), 0U);
    EXPECT_EQ(
        simulator::RunBcdboot({"C:\\Windows", "/s", "S:", "/l", "zh-CN"}, run.server()).exit_code,
        0U);
    EXPECT_EQ(script("remove"), 0U);
    EXPECT_EQ(run.ClosingLines()[0],
              "boot: repaired\n  C: has a store that the server does not boot from\n");
    EXPECT_EQ(RunAgain(run), 0);
    EXPECT_EQ(run.ClosingLines()[0],
              "boot: nothing to do\n  C: has a store that the server does not boot from\n");
  }
}

TEST(SecondRun, TakesBackPermissionsThatWereChangedSince) {
  WholeRun run("boot_nothing_to_do");
  ASSERT_EQ(run.Run(), 0);
  const auto copies = run.Copies();
  tests::Secure(run.server(), "C:\\Users\\Administrator", tests::SddlOf(run.server(), "C:\\"));
  ASSERT_NE(run.Copies(), copies);
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(run.Copies(), copies);
}

TEST(SecondRun, RestoresEverythingOnceTheCloudsDiskHasBackupInfo) {
  WholeRun run("disk_without_backup_info");
  ASSERT_EQ(run.Run(), 1);
  ASSERT_EQ(Letters(run), "letters: 1 of 3 right\n");
  simulator::Files& files = run.server().files();
  files.Write("D:\\vantoro_prepare\\backup_info", "D\r\n\r\n\r\n1\r\n");
  files.Write("D:\\vantoro_prepare\\juncbackup_d.dat", "");
  files.Write("D:\\vantoro_prepare\\aclbackup_d.dat", "");
  EXPECT_EQ(RunAgain(run), 0);
  EXPECT_EQ(Letters(run), "letters: 3 of 3 right\n");
  EXPECT_EQ(Descriptors(run), "descriptors: 149 of 149 equal to the source\n");
}

TEST(SecondRun, RestoresPermissionsOfAVolumeWithAnEmptyJunctionList) {
  WholeRun run("junction_list_missing");
  ASSERT_EQ(run.Run(), 1);
  run.server().files().Write("D:\\vantoro_prepare\\juncbackup_d.dat", "");
  EXPECT_EQ(RunAgain(run), 0);
  // The junction itself is not there.
  EXPECT_EQ(Descriptors(run), "descriptors: 108 of 109 equal to the source\n");
}

struct LeftOut {
  const char* list;
  const char* descriptors;
};

// Only a volume that fails before its permissions leaves the privileges to the next one.
TEST(SecondRun, HasThePrivilegesForALaterVolumeWhenTheFirstOneHasNoJunctionList) {
  for (const LeftOut& test :
       std::vector<LeftOut>{{"juncbackup_c.dat", "descriptors: 109 of 109 equal to the source\n"},
                            {"aclbackup_c.dat", "descriptors: 106 of 109 equal to the source\n"}}) {
    WholeRun run("deny_everyone_later");
    ASSERT_EQ(run.Run(), 0);
    ASSERT_EQ(Descriptors(run), "descriptors: 106 of 109 equal to the source\n");
    run.server().files().Remove(std::string("C:\\vantoro_prepare\\") + test.list);
    EXPECT_EQ(RunAgain(run), 1) << test.list;
    EXPECT_EQ(Descriptors(run), test.descriptors) << test.list;
  }
}

}  // namespace
}  // namespace restore
