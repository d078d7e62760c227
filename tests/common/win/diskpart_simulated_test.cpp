#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "common/win/win_util.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"
#include "support/simulated_diskpart.h"
#include "support/test_names.h"

namespace common::win {
namespace {

using tests::DiskLine;
using tests::DiskpartReply;
using tests::VolumeLine;
using Lines = std::vector<std::string>;

constexpr char kTemp[] = "C:\\Users\\Administrator\\AppData\\Local\\Temp\\";

class Diskpart : public testing::Test {
 protected:
  Diskpart() { tools_.SetLogger(&logger_); }

  // The tool gives `reply` whatever it is asked.
  void Reply(DWORD exit_code, const std::string& output) {
    diskpart_.emplace(server_, [=](const std::string&) {
      return DiskpartReply{exit_code, output};
    });
  }
  void Answer(const tests::ScriptedDiskpart::Answer& answer) { diskpart_.emplace(server_, answer); }

  std::string Script(const std::string& operation) const {
    return server_.files().Read(kTemp + operation + ".script.1").value_or("no file");
  }
  Lines Commands() const { return diskpart_->Commands(); }

  mutable simulator::Server server_;
  tests::RecordingLogger logger_;
  WinUtil tools_{"", "second", "third"};
  std::optional<tests::ScriptedDiskpart> diskpart_;
};

class RunScript : public Diskpart {};
class EnumDiskpartInfos : public Diskpart {};
class GetDiskpartVolumeInfo : public Diskpart {};
class AssignDiskLetter : public Diskpart {};
class RemoveDiskLetter : public Diskpart {};

TEST_F(RunScript, RunsTheFileInTheTemporaryFolder) {
  Reply(0, "output");
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem\r\nexit\r\n", output), 0U);
  EXPECT_EQ(output, "output");
  EXPECT_EQ(Script("Some"), "rem\r\r\nexit\r\r\n");
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateProcessA"),
            Lines{std::string("null, \"diskpart /s ") + kTemp + "Some.script.1\""});
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RunScript, RunsTheFileBelowTheBaseFolder) {
  for (const std::string base : {"C:\\base", "C:\\base\\"}) {
    Reply(0, "");
    server_.files().MakeDirectories("C:\\base\\bin");
    WinUtil tools(base, "", "");
    tools.SetLogger(&logger_);
    std::string output;
    EXPECT_EQ(tools.RunScript("Some", "rem", output), 0U);
    EXPECT_EQ(server_.processes().Started().back(), "diskpart /s C:\\base\\bin\\Some.script.1");
    EXPECT_EQ(server_.files().Read("C:\\base\\bin\\Some.script.1"), "rem");
  }
}

TEST_F(RunScript, DoesNotQuoteThePath) {
  Reply(0, "");
  server_.system().temp_directory = "C:\\a b";
  server_.files().MakeDirectories("C:\\a b");
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 0U);
  EXPECT_EQ(server_.processes().Started(), Lines{"diskpart /s C:\\a b\\Some.script.1"});
}

TEST_F(RunScript, LeavesTheFile) {
  Reply(5, "");
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 5U);
  EXPECT_EQ(Script("Some"), "rem");
}

TEST_F(RunScript, TellsTheCodeOfATool) {
  Reply(5, "why");
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 5U);
  EXPECT_EQ(output, "why");
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"ErrorOut: WinUtil::RunScript Run Some  Step1 Failed, code=5"});
}

TEST_F(RunScript, TellsALargeCodeAsASignedNumber) {
  Reply(0x80070057, "");
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 0x80070057U);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"ErrorOut: WinUtil::RunScript Run Some  Step1 Failed, code=-2147024809"});
}

TEST_F(RunScript, TellsThatTheToolIsMissing) {
  std::string output = "before";
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(output, "before");
  EXPECT_EQ(logger_.LinesAboveDebug().back(),
            "ErrorOut: WinUtil::RunScript Run Some  Step1 Failed, code=2");
}

TEST_F(RunScript, StartsNoToolWithoutAFile) {
  Reply(0, "");
  server_.calls().FailNext("_open", EACCES);
  std::string output = "before";
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 1U);
  EXPECT_EQ(output, "before");
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::RunScript Create Some  Step1 Failed."});
  EXPECT_EQ(Commands(), Lines{});
}

TEST_F(RunScript, StartsNoToolWithoutATemporaryFolder) {
  Reply(0, "");
  server_.calls().FailNext("GetTempPathA", ERROR_ACCESS_DENIED);
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 1U);
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::RunScript Create Some  Step1 Failed."});
  EXPECT_EQ(Commands(), Lines{});
}

TEST_F(RunScript, StartsNoToolForAReadOnlyFile) {
  Reply(0, "");
  server_.files().Write(std::string(kTemp) + "Some.script.1", "old");
  server_.files().SetAttributes(std::string(kTemp) + "Some.script.1", FILE_ATTRIBUTE_READONLY);
  std::string output;
  EXPECT_EQ(tools_.RunScript("Some", "rem", output), 1U);
  EXPECT_EQ(Script("Some"), "old");
  EXPECT_EQ(Commands(), Lines{});
}

// The listing and its details.

std::string Listing(const std::string& lines) {
  return "\r\n  Disk ###  Status         Size     Free     Dyn  Gpt\r\n"
         "  --------  -------------  -------  -------  ---  ---\r\n" +
         lines;
}

void ExpectDisk(const DiskpartInfo& disk, int number, int size, char letter, bool has_volume) {
  EXPECT_EQ(disk.DiskNumber, number);
  EXPECT_EQ(disk.SizeGB, size);
  EXPECT_EQ(disk.Letter, letter);
  EXPECT_EQ(disk.HasVolume, has_volume);
}

TEST_F(EnumDiskpartInfos, ReadsTheListAndThenEachDisk) {
  Answer([](const std::string& commands) -> DiskpartReply {
    if (commands == "list disk ")
      return {0, Listing(DiskLine(0, "  40 GB") + DiskLine(2, "3000 GB"))};
    if (commands == "sel disk 0/detail disk") return {0, VolumeLine('C', "39 GB")};
    if (commands == "sel disk 2/detail disk") return {0, VolumeLine(' ', "2999 GB")};
    return {9, ""};
  });
  std::vector<DiskpartInfo> disks;
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  ASSERT_EQ(disks.size(), 2U);
  ExpectDisk(disks[0], 0, 40, 'c', true);
  ExpectDisk(disks[1], 2, 3000, 0, true);
  EXPECT_EQ(Commands(), (Lines{"list disk ", "sel disk 0/detail disk", "sel disk 2/detail disk"}));
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(EnumDiskpartInfos, WritesItsScriptsByteForByte) {
  Reply(0, Listing(DiskLine(12, "40 GB")));
  std::vector<DiskpartInfo> disks;
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  EXPECT_EQ(Script("EnumDiskpartInfos"), "list disk ");
  EXPECT_EQ(Script("GetDiskpartVolumeInfo"), "sel disk 12\r\r\ndetail disk");
}

TEST_F(EnumDiskpartInfos, AppendsToTheList) {
  Reply(0, Listing(DiskLine(1, "40 GB")));
  std::vector<DiskpartInfo> disks(1);
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  EXPECT_EQ(disks.size(), 2U);
}

TEST_F(EnumDiskpartInfos, SucceedsWhateverTheListHolds) {
  Reply(0, std::string("\xff\xfe\0nothing of a disk", 20) + std::string(100000, 'x'));
  std::vector<DiskpartInfo> disks;
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  EXPECT_TRUE(disks.empty());
  EXPECT_EQ(Commands(), Lines{"list disk "});
}

TEST_F(EnumDiskpartInfos, FailsWhenTheListingDoes) {
  Reply(5, Listing(DiskLine(1, "40 GB")));
  std::vector<DiskpartInfo> disks(1);
  EXPECT_FALSE(tools_.EnumDiskpartInfos(disks));
  EXPECT_EQ(disks.size(), 1U);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run EnumDiskpartInfos  Step1 Failed, code=5",
                   "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=5"}));
}

TEST_F(EnumDiskpartInfos, FailsWithCode1WithoutAScript) {
  Reply(0, "");
  server_.calls().FailNext("_open", EACCES);
  std::vector<DiskpartInfo> disks;
  EXPECT_FALSE(tools_.EnumDiskpartInfos(disks));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Create EnumDiskpartInfos  Step1 Failed.",
                   "Error: WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=1"}));
}

TEST_F(EnumDiskpartInfos, LeavesOutADiskWhoseDetailFails) {
  Answer([](const std::string& commands) -> DiskpartReply {
    if (commands == "list disk ") {
      return {0, Listing(DiskLine(0, "40 GB") + DiskLine(1, "50 GB") + DiskLine(2, "60 GB"))};
    }
    if (commands == "sel disk 1/detail disk") return {3, VolumeLine('D', "49 GB")};
    return {0, VolumeLine('E', "39 GB")};
  });
  std::vector<DiskpartInfo> disks;
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  ASSERT_EQ(disks.size(), 2U);
  ExpectDisk(disks[0], 0, 40, 'e', true);
  ExpectDisk(disks[1], 2, 60, 'e', true);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run GetDiskpartVolumeInfo  Step1 Failed, code=3",
                   "Error: WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=3"}));
}

TEST_F(EnumDiskpartInfos, AsksForANegativeNumberAsAnUnsignedOne) {
  Reply(0, "a -1 b 2 GB          c\r\n");
  std::vector<DiskpartInfo> disks;
  EXPECT_TRUE(tools_.EnumDiskpartInfos(disks));
  EXPECT_EQ(Commands(), (Lines{"list disk ", "sel disk 4294967295/detail disk"}));
}

// The detail.

TEST_F(GetDiskpartVolumeInfo, GivesTheLetterAndTheVolume) {
  Reply(0, VolumeLine('E', "99 GB"));
  char letter = '?';
  bool has_volume = false;
  EXPECT_TRUE(tools_.GetDiskpartVolumeInfo(7, letter, has_volume));
  EXPECT_EQ(letter, 'e');
  EXPECT_TRUE(has_volume);
  EXPECT_EQ(Script("GetDiskpartVolumeInfo"), "sel disk 7\r\r\ndetail disk");
}

TEST_F(GetDiskpartVolumeInfo, ClearsBothWhenItFails) {
  Reply(5, VolumeLine('E', "99 GB"));
  char letter = '?';
  bool has_volume = true;
  EXPECT_FALSE(tools_.GetDiskpartVolumeInfo(1, letter, has_volume));
  EXPECT_EQ(letter, 0);
  EXPECT_FALSE(has_volume);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run GetDiskpartVolumeInfo  Step1 Failed, code=5",
                   "Error: WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=5"}));
}

// Without an exit code there is no output, and no failure either.
TEST_F(GetDiskpartVolumeInfo, FindsNothingWhenTheExitCodeCannotBeRead) {
  Reply(0, VolumeLine('E', "99 GB"));
  server_.calls().FailNext("GetExitCodeProcess", ERROR_ACCESS_DENIED);
  char letter = '?';
  bool has_volume = true;
  EXPECT_TRUE(tools_.GetDiskpartVolumeInfo(1, letter, has_volume));
  EXPECT_EQ(letter, 0);
  EXPECT_FALSE(has_volume);
}

TEST_F(GetDiskpartVolumeInfo, SelectsTheLargestNumber) {
  Reply(0, "");
  char letter = 0;
  bool has_volume = false;
  EXPECT_TRUE(tools_.GetDiskpartVolumeInfo(0xFFFFFFFF, letter, has_volume));
  EXPECT_EQ(Commands(), Lines{"sel disk 4294967295/detail disk"});
}

// Letters.

struct AssignCase {
  const char* what;
  uint32_t disk;
  bool second;
  char letter;
  const char* bytes;
};

std::ostream& operator<<(std::ostream& out, const AssignCase& test) { return out << test.what; }

class AssignScript : public Diskpart, public testing::WithParamInterface<AssignCase> {};

TEST_P(AssignScript, SelectsThePartitionAndAssigns) {
  Reply(0, VolumeLine('G', "99 GB"));
  char letter = GetParam().letter;
  EXPECT_TRUE(tools_.AssignDiskLetter(GetParam().disk, GetParam().second, letter));
  EXPECT_EQ(letter, 'g');
  EXPECT_EQ(Script("AssignDiskLetter"), GetParam().bytes);
  EXPECT_EQ(Script("GetDiskpartVolumeInfo"),
            "sel disk " + std::to_string(GetParam().disk) + "\r\r\ndetail disk");
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    All, AssignScript,
    testing::Values(AssignCase{"a letter", 1, false, 'e',
                               "sel disk 1\r\r\nsel part 1\r\r\nassign letter=e\r\r\n"},
                    AssignCase{"a letter at partition 2", 1, true, 'e',
                               "sel disk 1\r\r\nsel part 2\r\r\nassign letter=e\r\r\n"},
                    AssignCase{"upper case as it comes", 0, false, 'E',
                               "sel disk 0\r\r\nsel part 1\r\r\nassign letter=E\r\r\n"},
                    AssignCase{"any letter", 12, false, 0,
                               "sel disk 12\r\r\nsel part 1\r\r\nassign\r\r\n"},
                    AssignCase{"any letter at partition 2", 12, true, 0,
                               "sel disk 12\r\r\nsel part 2\r\r\nassign\r\r\n"},
                    AssignCase{"no letter at all", 3, false, '%',
                               "sel disk 3\r\r\nsel part 1\r\r\nassign letter=%\r\r\n"},
                    AssignCase{"the largest disk number", 4294967295, true, 'z',
                               "sel disk 4294967295\r\r\nsel part 2\r\r\nassign letter=z\r\r\n"}),
    tests::NamedAsPrinted());

TEST_F(AssignDiskLetter, TellsTheFirstLetterOfTheDisk) {
  Reply(0, VolumeLine('D', "99 GB") + VolumeLine('E', "99 GB"));
  char letter = 'e';
  EXPECT_TRUE(tools_.AssignDiskLetter(1, true, letter));
  EXPECT_EQ(letter, 'd');
}

TEST_F(AssignDiskLetter, TellsThatTheDiskShowsNoLetter) {
  Reply(0, VolumeLine(' ', "99 GB"));
  char letter = 'e';
  EXPECT_TRUE(tools_.AssignDiskLetter(1, false, letter));
  EXPECT_EQ(letter, 0);
}

TEST_F(AssignDiskLetter, LeavesTheLetterWhenTheToolRefuses) {
  Reply(5, VolumeLine('G', "99 GB"));
  char letter = 'e';
  EXPECT_FALSE(tools_.AssignDiskLetter(1, false, letter));
  EXPECT_EQ(letter, 'e');
  EXPECT_EQ(Commands(), Lines{"sel disk 1/sel part 1/assign letter=e"});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run AssignDiskLetter  Step1 Failed, code=5",
                   "Error: WinUtil::AssignDiskLetter assign letter Failed. code=5"}));
}

TEST_F(AssignDiskLetter, ClearsTheLetterWhenTheDiskCannotBeRead) {
  Answer([](const std::string& commands) {
    return DiskpartReply{commands.ends_with("detail disk") ? 7U : 0U, VolumeLine('G', "99 GB")};
  });
  char letter = 'e';
  EXPECT_FALSE(tools_.AssignDiskLetter(1, false, letter));
  EXPECT_EQ(letter, 0);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run GetDiskpartVolumeInfo  Step1 Failed, code=7",
                   "Error: WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=7"}));
}

TEST_F(RemoveDiskLetter, SelectsThePartitionAndRemoves) {
  Reply(0, "any text");
  EXPECT_TRUE(tools_.RemoveDiskLetter(1, false));
  EXPECT_EQ(Script("RemoveDiskLetter"), "sel disk 1\r\r\nsel part 1\r\r\nremove\r\r\n");
  EXPECT_TRUE(tools_.RemoveDiskLetter(20, true));
  EXPECT_EQ(Script("RemoveDiskLetter"), "sel disk 20\r\r\nsel part 2\r\r\nremove\r\r\n");
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RemoveDiskLetter, FailsWhenTheToolDoes) {
  Reply(5, "");
  EXPECT_FALSE(tools_.RemoveDiskLetter(1, false));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run RemoveDiskLetter  Step1 Failed, code=5",
                   "Error: WinUtil::RemoveDiskLetter remove letter Failed. code=5"}));
}

}  // namespace
}  // namespace common::win
