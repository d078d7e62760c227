// The whole run on every shipped scenario.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "rehearsal/report/report.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/node.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "support/descriptors_simulated.h"
#include "support/process.h"
#include "support/whole_run_simulated.h"

namespace restore {
namespace {

namespace fs = std::filesystem;
using simulator::DescriptorOutcome;
using tests::WholeRun;

struct Expected {
  const char* name;
  int32_t result;
  const char* boot;
  const char* letters;
  const char* junctions;
  const char* descriptors;
  bool lacks_tool = false;
  const char* lost = "";  // what cannot come back
};

std::ostream& operator<<(std::ostream& out, const Expected& test) { return out << test.name; }

// Objects: C holds the root, Users, Users\Administrator and 46 files, 49 in all; Data with 38 files
// makes 40 with its root, Departments with 58 files 60; with 57 files and a junction 60 as well. A
// volume that is not restored has but its root and what inherits from it alone as on the source.
constexpr Expected kExpected[] = {
    {"default", 0, "repaired", "5 of 5 right", "10 of 12 (1 target missing, 1 already there)",
     "1,500 of 1,500"},
    {"letter_taken", 1, "nothing to do", "2 of 3 right", "0 of 0", "90 of 149"},
    {"letterless_disk", 0, "nothing to do", "2 of 2 right", "0 of 0", "89 of 89"},
    {"disk_without_volume", 1, "nothing to do", "1 of 3 right", "0 of 0", "51 of 149"},
    {"disk_without_backup_info", 1, "nothing to do", "1 of 3 right", "0 of 0", "51 of 149"},
    {"offline_disk", 1, "nothing to do", "1 of 4 right", "0 of 0", "52 of 159"},
    {"dynamic_disks", 1, "nothing to do", "2 of 3 right", "0 of 0", "90 of 149"},
    {"french_server", 1, "nothing to do", "1 of 3 right", "0 of 0", "51 of 149"},
    {"deny_everyone_later", 0, "nothing to do", "2 of 2 right", "0 of 0", "106 of 109"},
    {"german_server", 0, "nothing to do", "2 of 2 right", "0 of 0", "112 of 112"},
    {"junction_list_missing", 1, "nothing to do", "2 of 2 right", "0 of 1 (1 not made)",
     "50 of 109"},
    {"junction_list_unreadable", 1, "nothing to do", "2 of 2 right", "0 of 1 (1 not made)",
     "50 of 109"},
    // The junction that was made inherits, as the source's did.
    {"acl_list_missing", 1, "nothing to do", "2 of 2 right", "1 of 1", "51 of 109"},
    {"acl_list_unreadable", 1, "nothing to do", "2 of 2 right", "1 of 1", "51 of 109"},
    {"boot_nothing_to_do", 0, "nothing to do", "1 of 1 right", "0 of 0", "49 of 49"},
    {"boot_deletion_fails", 0,
     "not repaired: the boot manager still displays \"Windows Server 2012\"; the boot manager "
     "still "
     "displays \"Windows Server 2008\"; the boot manager still displays \"Earlier Version of "
     "Windows\"; the boot manager is in en-US, not in zh-CN",
     "1 of 1 right", "0 of 0", "49 of 49"},
    {"boot_rebuild_fails", 0, "not repaired: the boot manager is in en-US, not in zh-CN",
     "1 of 1 right", "0 of 0", "49 of 49"},
    {"boot_default_not_displayed", 0,
     "not repaired: the boot manager still displays \"Windows Server 2012\"; the boot manager "
     "still "
     "displays \"Windows Server 2008\"; the boot manager does not display the default entry",
     "1 of 1 right", "0 of 0", "49 of 49"},
    // The stray loader is deleted from the store in use; the rebuild does not reach it.
    {"system_reserved", 0,
     "not repaired: the boot manager is in en-US, not in zh-CN: \"bcdboot\" wrote a new store to "
     "C:, but the server boots from the partition \"System Reserved\" (disk 0, partition 1)\n"
     "  give that partition a letter, for example S:, run \"bcdboot C:\\Windows /s S: /l zh-CN\" "
     "and remove the letter",
     "1 of 1 right", "0 of 0", "49 of 49"},
    {"uefi", 0,
     "not repaired: the boot manager is in en-US, not in zh-CN: \"bcdboot\" wrote a new store to "
     "C:, but the server boots from the EFI system partition (disk 0, partition 1)\n"
     "  give that partition a letter, for example S:, run \"bcdboot C:\\Windows /s S: /l zh-CN\" "
     "and remove the letter",
     "1 of 1 right", "0 of 0", "49 of 49"},
    {"windows_server_2008", 0,
     "not repaired: the boot manager is in en-US, not in zh-CN: this Windows has no \"bcdboot\"\n"
     "  run \"bcdedit /set {bootmgr} locale zh-CN\"",
     "1 of 1 right", "0 of 0", "49 of 49", true},
    // Eight objects more on C, and ten on D. A junction that is not made is not equal, either.
    {"chinese_server", 0, "repaired", "2 of 2 right", "2 of 3 (1 not in code page 936)", "65 of 67",
     false, "; cannot come back: 2 not in code page 936"},
    {"japanese_server", 0, "nothing to do", "1 of 1 right", "1 of 1", "54 of 55", false,
     "; cannot come back: 1 not in code page 932"},
    // Seven objects more; the label of a folder is inherited by its three files.
    {"mandatory_labels", 0, "nothing to do", "1 of 1 right", "0 of 0", "49 of 56", false,
     "; cannot come back: 5 mandatory labels, 1 resource attribute, 1 central policy"},
    {"card_reader", 0, "nothing to do", "2 of 2 right", "0 of 0", "89 of 89"},
    {"windows_server_2003", 0, "nothing to do", "2 of 2 right", "0 of 0", "89 of 89"},
};

class ScenarioRun : public testing::TestWithParam<Expected> {};

TEST_P(ScenarioRun, EndsAsItsTitleSays) {
  const Expected& expected = GetParam();
  WholeRun run(expected.name);
  EXPECT_EQ(run.Run(), expected.result);
  EXPECT_EQ(run.ClosingLines(),
            (std::vector<std::string>{std::string("boot: ") + expected.boot + "\n",
                                      std::string("letters: ") + expected.letters + "\n",
                                      std::string("junctions: ") + expected.junctions + "\n",
                                      std::string("descriptors: ") + expected.descriptors +
                                          " equal to the source" + expected.lost + "\n"}));
  EXPECT_NO_THROW(run.ExpectReached());
  EXPECT_TRUE(run.server().message_boxes().Shown().empty());
  // A tool that cannot be started leaves its pipe, by design.
  const std::vector<std::string> pipe = {"pipe read end", "pipe write end"};
  EXPECT_EQ(run.server().OpenHandles(), expected.lacks_tool ? pipe : std::vector<std::string>());
}

// Those in whose report everything is right.
const std::set<std::string> kRight = {"default",       "letterless_disk",
                                      "german_server", "boot_nothing_to_do",
                                      "card_reader",   "windows_server_2003"};

TEST_P(ScenarioRun, IsJudgedByItsReport) {
  WholeRun run(GetParam().name);
  run.Run();
  EXPECT_EQ(simulator::IsRight(run.Report()), kRight.contains(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Shipped, ScenarioRun, testing::ValuesIn(kExpected),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ScenarioRuns, LeaveOutNoShippedScenario) {
  std::set<std::string> shipped;
  for (const auto& entry : fs::directory_iterator(VANTORO_SCENARIO_DIR)) {
    shipped.insert(entry.path().stem().string());
  }
  std::set<std::string> run;
  for (const Expected& expected : kExpected) run.insert(expected.name);
  EXPECT_EQ(run, shipped);
}

TEST(MandatoryLabelsRun, RestoresAuditingBesideALabel) {
  WholeRun run("mandatory_labels");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(tests::SddlOf(run.server(), "C:\\Audited.docx"),
            "O:BAG:SYD:PAI(A;;FA;;;BA)S:AI(AU;SAFA;FA;;;WD)");
}

TEST(DefaultRun, ComparesDescriptorsOfManyKinds) {
  WholeRun run("default");
  std::set<std::string> texts;
  for (const auto& volume : run.sources()) {
    simulator::VisitTree(
        volume.letter, *volume.root, [&](const std::string&, const simulator::Node& node) {
          texts.insert(simulator::SddlText(*node.security, run.server().security().domains()));
        });
  }
  EXPECT_GE(texts.size(), 40u);
}

TEST(DefaultRun, StartsFromACopyThatIsDifferentAlmostThroughout) {
  WholeRun run("default");
  EXPECT_GT(run.Descriptors().differences.size(), 1250u);
  EXPECT_GT(run.WrongAttributes().size(), 10u);
}

TEST(DefaultRun, RestoresDescriptorsOfEveryKind) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  const std::string installer = "S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464";
  const std::string jdoe = "S-1-5-21-3623811015-3361044348-30300820-1107";
  const std::pair<std::string, std::string> expected[] = {
      // Denies Everyone, inherits auditing.
      {"C:\\Finance\\Payroll.xlsx",
       "O:BAG:SYD:PAI(D;;FA;;;WD)(A;;FR;;;S-1-5-21-3623811015-3361044348-30300820-1133)"
       "S:AI(AU;IDSAFA;DCLCRPCRSDWDWO;;;WD)"},
      // Audits by entries of its own and by inherited ones.
      {"C:\\Windows\\System32\\config\\SAM",
       "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)"
       "S:AI(AU;SAFA;FA;;;WD)(AU;IDSAFA;DCLCSDWDWO;;;WD)"},
      // Its owner is gone.
      {"C:\\Users\\jdoe\\Größenübersicht für Jürgen.xlsx",
       "O:" + jdoe + "G:S-1-5-21-3623811015-3361044348-30300820-513" +
           "D:AI(A;ID;FA;;;SY)(A;ID;FA;;;BA)(A;ID;FA;;;" + jdoe + ")"},
      {"C:\\inetpub\\wwwroot", "O:BAG:SYD:AI(A;OICI;0x1200a9;;;IS)(A;OICIID;FA;;;" + installer +
                                   ")(A;OICIID;FA;;;SY)(A;OICIID;FA;;;BA)(A;OICIID;0x1200a9;;;BU)"
                                   "(A;OICIIOID;GA;;;CO)"},
      // A junction's own, not that of what it leads to.
      {"C:\\Documents and Settings",
       "O:SYG:SYD:PAI(D;;CC;;;WD)(A;;0x1200a9;;;WD)(A;;FA;;;SY)(A;;FA;;;BA)"},
      // Denies a group on a later volume.
      {"E:\\Departments\\Legal\\File 00001.dat",
       "O:BAG:S-1-5-21-1801674531-1417001333-682003330-513D:AI(D;ID;FA;;;BG)(A;ID;FA;;;BA)"
       "(A;ID;FA;;;SY)(A;ID;0x1301bf;;;S-1-5-21-3623811015-3361044348-30300820-1125)"},
  };
  for (const auto& [path, sddl] : expected) {
    EXPECT_EQ(tests::SddlOf(run.server(), path), sddl) << path;
  }
}

TEST(DefaultRun, RestoresAttributes) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(run.WrongAttributes(), std::vector<std::string>{"E:\\Old server 1040 16"});
}

TEST(DefaultRun, MakesTheJunctionForWhichAFileMadeRoom) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(run.server().files().JunctionTarget("E:\\Projects\\Current"),
            "\\??\\E:\\Projects\\2024");
}

TEST(DefaultRun, SkipsTheVolumeWithoutAPrepareFolder) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  const std::string log = run.server()
                              .files()
                              .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
                              .value_or("");
  EXPECT_NE(log.find("Prepare Dir [s:\\vantoro_prepare\\] Not Exsit, Skip..."), std::string::npos);
}

TEST(DefaultRun, ChangesNothingASecondTime) {
  WholeRun run("default");
  ASSERT_EQ(run.Run(), 0);
  const auto first = run.Copies();
  // In the same process most privileges stay off, in another they are enabled again.
  for (const bool same_process : {true, false}) {
    if (!same_process) tests::ForgetProcess();
    EXPECT_EQ(run.Run(), 0);
    EXPECT_EQ(run.ClosingLines(),
              (std::vector<std::string>{"boot: nothing to do\n", "letters: 5 of 5 right\n",
                                        "junctions: 0 of 12 (1 target missing, 11 already there)\n",
                                        "descriptors: 1,500 of 1,500 equal to the source\n"}));
    EXPECT_EQ(run.Copies(), first) << same_process;
  }
}

TEST(LaterVolumeRun, LeavesWhatNeedsPrivileges) {
  WholeRun run("deny_everyone_later");
  ASSERT_EQ(run.Run(), 0);
  const DescriptorOutcome outcome = run.Descriptors();
  const std::string made = "G:S-1-5-21-1801674531-1417001333-682003330-513D:AI";
  const std::string gone = "S-1-5-21-3623811015-3361044348-30300820-1107";
  ASSERT_EQ(outcome.differences.size(), 3u);
  EXPECT_EQ(outcome.differences[0].path, "D:\\Finance\\Audited.xlsx");
  EXPECT_EQ(outcome.differences[0].wanted,
            "O:BA" + made + "(A;ID;FA;;;BA)(A;ID;FA;;;SY)S:AI(AU;SAFA;FA;;;WD)");
  EXPECT_EQ(outcome.differences[0].found, "O:BA" + made + "(A;ID;FA;;;BA)(A;ID;FA;;;SY)");
  EXPECT_EQ(outcome.differences[1].path, "D:\\Finance\\Draft of Jane.docx");
  EXPECT_EQ(outcome.differences[1].wanted,
            "O:" + gone + made + "(A;ID;FA;;;BA)(A;ID;FA;;;SY)(A;ID;FA;;;" + gone + ")");
  EXPECT_EQ(outcome.differences[1].found, "O:BA" + made + "(A;ID;FA;;;BA)(A;ID;FA;;;SY)");
  EXPECT_EQ(outcome.differences[2].path, "D:\\Finance\\Payroll.xlsx");
  EXPECT_EQ(outcome.differences[2].wanted, "O:BAG:SYD:PAI(D;;FA;;;WD)(A;;FR;;;BG)");
  EXPECT_EQ(outcome.differences[2].found, "O:BAG:SYD:PAI(D;;FA;;;WD)");
}

// The reasons of the letters that are wrong, by the letters of the source.
std::map<char, std::string> WrongLetters(WholeRun& run) {
  std::map<char, std::string> reasons;
  for (const simulator::VolumeLetters& volume : run.Report().letters) {
    if (volume.IsWrong()) reasons[*volume.source] = volume.reason.text;
  }
  return reasons;
}

TEST(OfflineDiskRun, NamesTheDiskAtWhichTheWorkOnLettersEnded) {
  WholeRun run("offline_disk");
  run.Run();
  const std::string ended = "the work on letters ended at disk 2, which is offline";
  EXPECT_EQ(WrongLetters(run),
            (std::map<char, std::string>{{'D', ended}, {'E', ended}, {'F', "disk 2 is offline"}}));
}

TEST(DynamicDisksRun, SaysThatPartitionsSelectNoVolume) {
  WholeRun run("dynamic_disks");
  run.Run();
  EXPECT_EQ(WrongLetters(run),
            (std::map<char, std::string>{
                {'E', "on a dynamic disk, diskpart selects no volume by a partition"}}));
}

TEST(FrenchServerRun, LooksAtNoDisk) {
  WholeRun run("french_server");
  run.Run();
  EXPECT_EQ(WrongLetters(run),
            (std::map<char, std::string>{
                {'D', "the size of disk 1 is not shown in GB: \"200 G octets\""},
                {'E', "the size of disk 2 is not shown in GB: \"500 G octets\""}}));
  // It lists the disks, and that is all.
  EXPECT_EQ(run.server().calls().ArgumentsOf("CreateProcessA").size(), 2u);
}

TEST(LetterTakenRun, NamesTheVolumeThatHoldsTheLetter) {
  WholeRun run("letter_taken");
  run.Run();
  EXPECT_EQ(
      WrongLetters(run),
      (std::map<char, std::string>{{'E', "E: is taken by Cloud Tools (disk 1, partition 2)"}}));
}

}  // namespace
}  // namespace restore
