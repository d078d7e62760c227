#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/simulated_child.h"
#include "support/simulated_disks.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using tests::AddTwoDisks;
using tests::DiskpartOutput;
using tests::RunChild;

TEST(Diskpart, PrintsItsBannerForAnEmptyScript) {
  Server server;
  const ToolResult result = RunDiskpartScript("", server);
  EXPECT_EQ(result.output,
            "\r\nMicrosoft DiskPart version 10.0.14393.0\r\n\r\n"
            "Copyright (C) 1999-2013 Microsoft Corporation.\r\nOn computer: MIGRATED\r\n");
  EXPECT_EQ(result.exit_code, 0u);
}

TEST(Diskpart, ListsTheDisksInTheToolsColumns) {
  Server server;
  AddTwoDisks(server);
  server.disks()[1].gpt = true;
  EXPECT_EQ(DiskpartOutput("list disk ", server),
            "\r\n"
            "  Disk ###  Status         Size     Free     Dyn  Gpt\r\n"
            "  --------  -------------  -------  -------  ---  ---\r\n"
            "  Disk 0    Online          127 GB      0 B         \r\n"
            "  Disk 1    Online          200 GB      0 B        *\r\n");
}

TEST(Diskpart, MarksTheSelectedDiskInTheListing) {
  Server server;
  AddTwoDisks(server);
  EXPECT_NE(DiskpartOutput("sel disk 1\nlist disk", server).find("\r\n* Disk 1    Online"),
            std::string::npos);
}

TEST(Diskpart, ListsADiskThatIsOffline) {
  Server server;
  AddTwoDisks(server);
  server.disks()[1].online = false;
  EXPECT_NE(DiskpartOutput("list disk", server).find("  Disk 1    Offline         200 GB      0 B"),
            std::string::npos);
}

TEST(Diskpart, SaysSoWhenThereAreNoDisks) {
  Server server;
  EXPECT_EQ(DiskpartOutput("list disk", server), "\r\nThere are no fixed disks to show.\r\n");
}

TEST(Diskpart, ShowsTheVolumesOfADisk) {
  Server server;
  AddTwoDisks(server);
  EXPECT_EQ(DiskpartOutput("sel disk 1\r\ndetail disk", server),
            "\r\nDisk 1 is now the selected disk.\r\n"
            "\r\nVirtual HD SCSI Disk Device\r\nDisk ID: 00000000\r\nType   : SCSI\r\n"
            "Status : Online\r\nPath   : 0\r\nTarget : 0\r\nLUN ID : 1\r\n"
            "Location Path : UNAVAILABLE\r\nCurrent Read-only State : No\r\nRead-only  : No\r\n"
            "Boot Disk  : No\r\nPagefile Disk  : No\r\nHibernation File Disk  : No\r\n"
            "Crashdump Disk  : No\r\nClustered Disk  : No\r\n\r\n"
            "  Volume ###  Ltr  Label        Fs     Type        Size     Status     Info    \r\n"
            "  ----------  ---  -----------  -----  ----------  -------  ---------  --------\r\n"
            "  Volume 1     E   Data         NTFS   Partition    199 GB  Healthy            \r\n");
}

TEST(Diskpart, ShowsNoVolumesOfADiskThatIsOffline) {
  Server server;
  AddTwoDisks(server);
  server.disks()[1].online = false;
  const std::string output = DiskpartOutput("sel disk 1\r\ndetail disk", server);
  EXPECT_NE(output.find("Status : Offline\r\n"), std::string::npos);
  EXPECT_TRUE(output.ends_with("\r\n\r\nThere are no volumes.\r\n"));
}

// Two dynamic disks with a volume on both, and one on the second alone.
void MakeDynamic(Server& server) {
  for (Disk& disk : server.disks()) disk.dynamic = true;
  const std::shared_ptr<Volume> spanned = server.disks()[1].partitions[0].volume;
  server.disks()[0].partitions.push_back({2, 100 * tests::kGB, "", spanned});
  server.disks()[1].partitions[1].volume = tests::MakeVolume(server, "Simple", 'S');
  server.disks()[1].partitions[1].size = 20 * tests::kGB;
}

TEST(Diskpart, ShowsASpannedVolumeOnEachOfItsDisksWithItsWholeSize) {
  Server server;
  AddTwoDisks(server);
  MakeDynamic(server);
  const std::string spanned =
      "  Volume 1     E   Data         NTFS   Spanned      299 GB  Healthy            \r\n";
  EXPECT_TRUE(DiskpartOutput("sel disk 0\ndetail disk", server)
                  .ends_with("  Volume 0     C   Windows      NTFS   Simple       126 GB  Healthy"
                             "    Boot    \r\n" +
                             spanned));
  EXPECT_TRUE(DiskpartOutput("sel disk 1\ndetail disk", server)
                  .ends_with(spanned +
                             "  Volume 2     S   Simple       NTFS   Simple        20 GB  "
                             "Healthy            \r\n"));
}

TEST(Diskpart, SelectsNoVolumeByAPartitionOfADynamicDisk) {
  Server server;
  AddTwoDisks(server);
  MakeDynamic(server);
  for (const char* const command : {"assign letter=G", "assign", "remove"}) {
    const ToolResult result =
        RunDiskpartScript("sel disk 1\nsel part 2\n" + std::string(command), server);
    EXPECT_EQ(result.exit_code, 5u) << command;
    EXPECT_TRUE(
        result.output.ends_with("There is no volume selected.\r\nPlease select a volume "
                                "and try again.\r\n"));
  }
  EXPECT_EQ(server.files().VolumeAt('S'), server.disks()[1].partitions[1].volume);
}

TEST(Diskpart, PrintsTextsThatTheServerHasOfItsOwn) {
  Server server;
  AddTwoDisks(server);
  server.system().language = 1031;
  server.system().disk_tool_texts = {{"Disk", "Platte"}, {"Healthy", "Fehlerfrei"}, {"GB", "GiB"}};
  EXPECT_NE(DiskpartOutput("list disk", server).find("\r\n  Platte 0    Online          127 GiB "),
            std::string::npos);
  EXPECT_NE(DiskpartOutput("sel disk 1\ndetail disk", server).find("   199 GiB  Fehlerfre  "),
            std::string::npos);
}

TEST(Diskpart, IsInEnglishInALanguageWithoutCaptures) {
  Server server;
  AddTwoDisks(server);
  const std::string english = DiskpartOutput("list disk\nsel disk 1\ndetail disk", server);
  for (const LANGID language : {LANGID{1040}, LANGID{1028}, LANGID{3076}}) {
    server.system().language = language;
    EXPECT_EQ(DiskpartOutput("list disk\nsel disk 1\ndetail disk", server), english) << language;
  }
}

TEST(Diskpart, CutsALabelAtElevenCharactersNotBytes) {
  Server server;
  AddTwoDisks(server);
  server.disks()[1].partitions[0].volume->label = "Übungsdaten groß";
  EXPECT_NE(DiskpartOutput("sel disk 1\ndet disk", server).find(" E   Übungsdaten  NTFS "),
            std::string::npos);
}

TEST(Diskpart, AssignsALetterToAVolumeWithoutOne) {
  Server server;
  AddTwoDisks(server);
  server.files().Unmount('E');
  EXPECT_EQ(DiskpartOutput("sel disk 1\r\nsel part 1\r\nassign letter=g\r\n", server),
            "\r\nDisk 1 is now the selected disk.\r\n"
            "\r\nPartition 1 is now the selected partition.\r\n"
            "\r\nDiskPart successfully assigned the drive letter or mount point.\r\n");
  EXPECT_EQ(server.files().VolumeAt('G'), server.disks()[1].partitions[0].volume);
}

TEST(Diskpart, AssignReplacesTheLetterThatAVolumeHas) {
  Server server;
  AddTwoDisks(server);
  DiskpartOutput("sel disk 1\r\nsel part 1\r\nassign letter=G", server);
  EXPECT_EQ(server.files().VolumeAt('E'), nullptr);
  EXPECT_EQ(server.files().VolumeAt('G'), server.disks()[1].partitions[0].volume);
}

TEST(Diskpart, AssignWithoutALetterTakesTheFirstFreeOne) {
  Server server;
  AddTwoDisks(server);
  server.files().Unmount('E');
  EXPECT_EQ(RunDiskpartScript("sel disk 1\r\nsel part 1\r\nassign", server).exit_code, 0u);
  EXPECT_EQ(server.files().LetterOf(*server.disks()[1].partitions[0].volume), 'D');
}

TEST(Diskpart, AssignWithoutALetterKeepsTheOneThatIsThere) {
  Server server;
  AddTwoDisks(server);
  EXPECT_EQ(RunDiskpartScript("sel disk 1\r\nsel part 1\r\nassign", server).exit_code, 0u);
  EXPECT_EQ(server.files().LetterOf(*server.disks()[1].partitions[0].volume), 'E');
}

TEST(Diskpart, RemovesALetter) {
  Server server;
  AddTwoDisks(server);
  EXPECT_TRUE(DiskpartOutput("sel disk 1\r\nsel part 1\r\nremove\r\n", server)
                  .ends_with("\r\nDiskPart successfully removed the drive letter or mount "
                             "point.\r\n"));
  EXPECT_EQ(server.files().VolumeAt('E'), nullptr);
}

TEST(Diskpart, StopsAtTheFirstCommandThatFails) {
  Server server;
  AddTwoDisks(server);
  const ToolResult result = RunDiskpartScript("assign letter=Z\r\nlist disk\r\n", server);
  EXPECT_EQ(result.exit_code, 5u);
  EXPECT_TRUE(result.output.ends_with("Please select a volume and try again.\r\n"));
}

TEST(Diskpart, EndsAtExit) {
  Server server;
  AddTwoDisks(server);
  const ToolResult result = RunDiskpartScript("exit\r\nbogus\r\n", server);
  EXPECT_EQ(result.exit_code, 0u);
  EXPECT_TRUE(result.output.ends_with("\r\nLeaving DiskPart...\r\n"));
}

TEST(Diskpart, MayNotTakeTheLetterOfTheBootVolume) {
  for (const char* const info : {"Boot", "System"}) {
    Server server;
    AddTwoDisks(server);
    server.disks()[0].partitions[0].info = info;
    EXPECT_EQ(RunDiskpartScript("sel disk 0\nsel part 1\nremove", server).exit_code, 5u);
    EXPECT_EQ(RunDiskpartScript("sel disk 0\nsel part 1\nassign letter=Z", server).exit_code, 5u);
    EXPECT_EQ(server.files().VolumeAt('C'), server.disks()[0].partitions[0].volume);
    EXPECT_TRUE(DiskpartOutput("sel disk 0\ndetail disk", server).find("Boot Disk  : Yes") !=
                std::string::npos);
  }
}

TEST(Diskpart, SelectingADiskDropsTheSelectedPartition) {
  Server server;
  AddTwoDisks(server);
  EXPECT_EQ(RunDiskpartScript("sel disk 1\nsel part 1\nsel disk 1\nremove", server).exit_code, 5u);
}

struct Refusal {
  const char* script;
  const char* reason;
};

std::ostream& operator<<(std::ostream& out, const Refusal& test) {
  std::string script = test.script;
  std::replace(script.begin(), script.end(), '\n', ' ');
  return out << script;
}

class DiskpartRefuses : public testing::TestWithParam<Refusal> {};

TEST_P(DiskpartRefuses, WithTheToolsReasonAndCode5) {
  Server server;
  AddTwoDisks(server);
  const ToolResult result = RunDiskpartScript(GetParam().script, server);
  EXPECT_EQ(result.exit_code, 5u);
  EXPECT_TRUE(result.output.ends_with("\r\n\r\n" + std::string(GetParam().reason) + "\r\n"))
      << result.output;
  EXPECT_NE(server.files().VolumeAt('C'), nullptr);
}

constexpr char kNoVolume[] =
    "There is no volume selected.\r\nPlease select a volume and try again.";
constexpr char kNoDisk[] = "There is no disk selected.\r\nPlease select a disk and try again.";
constexpr char kNoSuchDisk[] =
    "The disk you specified is not valid.\r\n\r\nThere is no disk selected.";
constexpr char kNoSuchPartition[] =
    "The specified partition is not valid.\r\nPlease select a valid partition.\r\n\r\n"
    "There is no partition selected.";
constexpr char kNotFree[] = "The specified drive letter is not free to be assigned.";
constexpr char kHelpAssign[] =
    "The arguments specified for this command are not valid.\r\n"
    "For more information on the command type: HELP ASSIGN";

INSTANTIATE_TEST_SUITE_P(
    AllReasons, DiskpartRefuses,
    testing::Values(Refusal{"sel part 1", kNoDisk}, Refusal{"detail disk", kNoDisk},
                    Refusal{"sel disk 2", kNoSuchDisk}, Refusal{"sel disk -1", kNoSuchDisk},
                    Refusal{"sel disk 1\nsel part 3", kNoSuchPartition},
                    Refusal{"sel disk 1\nsel part 0", kNoSuchPartition},
                    Refusal{"sel disk 1\nassign letter=G", kNoVolume},
                    Refusal{"sel disk 1\nremove", kNoVolume},
                    Refusal{"sel disk 1\nsel part 2\nassign", kNoVolume},
                    Refusal{"sel disk 1\nsel part 1\nassign letter=C", kNotFree},
                    Refusal{"sel disk 1\nsel part 1\nassign letter=1", kHelpAssign},
                    Refusal{"sel disk 1\nsel part 1\nassign letter=", kHelpAssign},
                    Refusal{"sel disk 1\nsel part 1\nassign letter=EF", kHelpAssign},
                    Refusal{"sel disk 1\nsel part 1\nassign letter G", kHelpAssign},
                    Refusal{"sel disk 1\nsel part 1\nremove\nremove",
                            "There is no drive letter or mount point to remove."},
                    Refusal{"sel disk x",
                            "The arguments specified for this command are not valid.\r\n"
                            "For more information on the command type: HELP SELECT DISK"},
                    Refusal{"bogus", "Microsoft DiskPart version 10.0.14393.0"},
                    Refusal{"li disk", "Microsoft DiskPart version 10.0.14393.0"}),
    tests::NamedAsPrinted());

struct Spelling {
  const char* name;
  const char* script;
};

std::ostream& operator<<(std::ostream& out, const Spelling& test) { return out << test.name; }

class DiskpartAccepts : public testing::TestWithParam<Spelling> {};

TEST_P(DiskpartAccepts, LaxSpellingsOfOneScript) {
  Server server;
  AddTwoDisks(server);
  EXPECT_EQ(RunDiskpartScript(GetParam().script, server).exit_code, 0u);
  EXPECT_EQ(server.files().VolumeAt('G'), server.disks()[1].partitions[0].volume);
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, DiskpartAccepts,
    testing::Values(
        Spelling{"LineEndsOfTheProgram", "sel disk 1\r\r\nsel part 1\r\r\nassign letter=g\r\r\n"},
        Spelling{"WholeWords", "select disk 1\nselect partition 1\nassign letter=G:"},
        Spelling{"UpperCaseAndEqualsSigns", "SELECT DISK=1\r\nSel Par=1\r\nASS LETTER=G"},
        Spelling{"BlanksAndRemarks",
                 "  sel   dis\t1  \r\n\r\n\r\nrem sel disk 9\r\nsel part 1 \r\nassign letter=g "},
        Spelling{"LinesBehindAnExit",
                 "REM\r\nsel disk 1\r\nsel part 1\r\nassign letter=g\r\nexit\r\nremove"}),
    tests::NamedAsPrinted());

TEST(DiskpartDeathTest, EndsTheProcessForACommandThatOnlyTheRealToolKnows) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(
      {
        Server server;
        RunDiskpartScript("clean", server);
      },
      "diskpart: clean");
}

TEST(DiskpartProgram, RunsTheScriptThatItsArgumentNames) {
  Server server;
  AddTwoDisks(server);
  server.processes().Install("diskpart", DiskpartProgram());
  server.files().Write("C:\\s.1", "sel disk 1\r\r\nbogus");
  const ToolResult direct = RunDiskpartScript("sel disk 1\r\r\nbogus", server);
  for (const char* const command : {"diskpart /s C:\\s.1", "DISKPART.EXE /S \"C:\\s.1\""}) {
    const ToolResult result = RunChild(command);
    EXPECT_EQ(result.output, direct.output);
    EXPECT_EQ(result.exit_code, 5u);
  }
}

TEST(DiskpartProgram, EndsWith3WithoutTheScript) {
  Server server;
  server.processes().Install("diskpart", DiskpartProgram());
  const ToolResult result = RunChild("diskpart /s C:\\s.1");
  EXPECT_EQ(result.exit_code, 3u);
  EXPECT_EQ(result.output,
            tests::DiskpartBannerOf(server) + "\r\nError opening script file: C:\\s.1\r\n");
}

TEST(DiskpartProgram, EndsWith2ForAPathWithBlanksOutsideQuotationMarks) {
  Server server;
  server.processes().Install("diskpart", DiskpartProgram());
  server.files().Write("C:\\a b\\s.1", "list disk");
  EXPECT_EQ(RunChild("diskpart /s \"C:\\a b\\s.1\"").exit_code, 0u);
  const ToolResult result = RunChild("diskpart /s C:\\a b\\s.1");
  EXPECT_EQ(result.exit_code, 2u);
  EXPECT_NE(result.output.find("Microsoft DiskPart syntax:\r\n"), std::string::npos);
}

}  // namespace
}  // namespace simulator
