#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "acl/acl_util.h"
#include "acl/prepare_dir.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"
#include "support/process.h"
#include "support/progress_simulated.h"
#include "support/simulated_events.h"
#include "support/test_names.h"

namespace acl {
namespace {

using Lines = std::vector<std::string>;
using Percents = std::vector<double>;

class RestorePrepareDirTest : public testing::Test {
 protected:
  RestorePrepareDirTest() { server_.files().MountEmpty('D'); }

  // On volume D, whose root has no other files.
  void Prepare(const std::string& acl_count = "1") {
    server_.files().Write("D:\\vantoro_prepare\\backup_info", "D\r\n\r\n\r\n" + acl_count + "\r\n");
    server_.files().Write("D:\\vantoro_prepare\\juncbackup_d.dat", "D:\\Link;D:\\Data\r\n");
    server_.files().Write("D:\\vantoro_prepare\\aclbackup_d.dat",
                          "\"D:\\Data\",0,\"D:PAI(A;OICI;FA;;;BA)\"\r\n");
    server_.files().MakeDirectories("D:\\Data");
  }

  int32_t Restore(const std::string& root = "d:\\", const std::string& prepare_dir = "") {
    return RestorePrepareDir(logger_, progress_, 10.0, root, prepare_dir);
  }

  const tests::NewProcess process_;
  simulator::Server server_;
  tests::ProgressDialog dialog_{server_};
  tests::EventLogger logger_{server_};
  double progress_ = 30.0;
};

const Lines kEverythingDone = {
    "Info: junction restore begin...", "Info: junction restore cost 0s",
    "Info: junction restore done!",    "Info: acl restore begin...",
    "Info: ACLRestore (Stage 0/1)...", "Info: ACLRestore (Stage 1/1) Done.",
    "Info: ACLRestore Done.",          "Info: acl restore cost 0s",
    "Info: acl restore done!\n"};

TEST_F(RestorePrepareDirTest, RestoresJunctionsThenDescriptors) {
  Prepare();
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(logger_.Lines(), kEverythingDone);
  EXPECT_EQ(server_.files().JunctionTarget("D:\\Link"), "\\??\\D:\\Data");
  EXPECT_TRUE(tests::SddlOf(server_, "D:\\Data").ends_with("D:PAI(A;OICI;FA;;;BA)"));
}

TEST_F(RestorePrepareDirTest, MovesTheProgressByOnePointTwoOfTheShare) {
  Prepare();
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(progress_, 30.0 + 0.2 * 10.0 + 10.0);
  // After the junctions, at the end of the file's range, after the descriptors.
  EXPECT_EQ(dialog_.Take(), (Percents{32.0, 32.0 + 0.8 * 10.0, 42.0}));
}

// The number of entries stays 0, and nothing but the window bounds what is told.
TEST_F(RestorePrepareDirTest, DividesByNoEntriesWhenTheirNumberIsMissing) {
  Prepare("");
  server_.files().Write("D:\\vantoro_prepare\\aclbackup_d.dat", std::string(1000, '\n'));
  EXPECT_EQ(Restore(), 0);
  const Percents told = dialog_.Take();
  ASSERT_EQ(told.size(), 4U);
  EXPECT_EQ(told[1], std::numeric_limits<double>::infinity());
}

TEST_F(RestorePrepareDirTest, TellsTheProgressWithinTheFile) {
  Prepare("2000");
  server_.files().Write("D:\\vantoro_prepare\\aclbackup_d.dat", std::string(1000, '\n'));
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(dialog_.Take(), (Percents{32.0, 32.0 + 0.5 * (0.8 * 10.0), 40.0, 42.0}));
}

TEST_F(RestorePrepareDirTest, SkipsAVolumeWithoutTheFolder) {
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(logger_.Lines(), Lines{"Info: Prepare Dir [d:\\vantoro_prepare\\] Not Exsit, Skip..."});
  EXPECT_EQ(progress_, 30.0);
  EXPECT_EQ(dialog_.Take(), Percents{});
  EXPECT_EQ(server_.calls().ArgumentsOf("_access"), Lines{"\"d:\\vantoro_prepare\\\", 0"});
}

TEST_F(RestorePrepareDirTest, SkipsAVolumeWhoseFolderIsAFile) {
  server_.files().Write("D:\\vantoro_prepare", "");
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(logger_.Lines(), Lines{"Info: Prepare Dir [d:\\vantoro_prepare\\] Not Exsit, Skip..."});
}

TEST_F(RestorePrepareDirTest, TakesAnotherFolder) {
  Prepare();
  server_.files().MakeDirectories("C:\\other");
  EXPECT_EQ(Restore("d:\\", "C:\\other\\"), -1);
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"), Lines{"\"C:\\other\\juncbackup_d.dat\", \"rt\""});
  EXPECT_EQ(Restore("d:\\", "C:\\none\\"), 0);
  EXPECT_EQ(logger_.Lines().back(), "Info: Prepare Dir [C:\\none\\] Not Exsit, Skip...");
}

TEST_F(RestorePrepareDirTest, NamesTheFilesByTheLetterAsItStands) {
  Prepare();
  server_.files().Remove("D:\\vantoro_prepare\\aclbackup_d.dat");
  EXPECT_EQ(Restore("D:\\"), 34);
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"),
            (Lines{"\"D:\\vantoro_prepare\\juncbackup_D.dat\", \"rt\"",
                   "\"D:\\vantoro_prepare\\backup_info\", \"r\"",
                   "\"D:\\vantoro_prepare\\aclbackup_D.dat\", \"rb\""}));
}

TEST_F(RestorePrepareDirTest, StandsAnEmptyRoot) {
  EXPECT_EQ(Restore(""), 0);
  EXPECT_EQ(logger_.Lines(), Lines{"Info: Prepare Dir [vantoro_prepare\\] Not Exsit, Skip..."});
}

// Failures.

TEST_F(RestorePrepareDirTest, IsMinus1WithoutAJunctionListAndRestoresNoDescriptors) {
  Prepare();
  server_.files().Remove("D:\\vantoro_prepare\\juncbackup_d.dat");
  const std::string before = tests::SddlOf(server_, "D:\\Data");
  EXPECT_EQ(Restore(), -1);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Info: junction restore begin...", "Info: junction restore cost 0s",
                   "Error: junction restore failed, code=-1"}));
  EXPECT_EQ(progress_, 30.0);
  EXPECT_EQ(dialog_.Take(), Percents{});
  EXPECT_EQ(tests::SddlOf(server_, "D:\\Data"), before);
}

TEST_F(RestorePrepareDirTest, Is34WithoutAnAclFile) {
  Prepare();
  server_.files().Remove("D:\\vantoro_prepare\\aclbackup_d.dat");
  EXPECT_EQ(Restore(), 34);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Info: junction restore begin...", "Info: junction restore cost 0s",
                   "Info: junction restore done!", "Info: acl restore begin...",
                   "Info: ACLRestore (Stage 0/1)...", "Error: ACLRestore Restore Failed: code=34",
                   "Info: ACLRestore (Stage 1/1) Done.", "Info: ACLRestore Done.",
                   "Info: acl restore cost 0s", "Error: acl restore failed, code=34"}));
  // The junctions' part stays; the dialog saw the end of the file's range.
  EXPECT_EQ(progress_, 32.0);
  EXPECT_EQ(dialog_.Take(), (Percents{32.0, 40.0}));
}

struct CountCase {
  const char* name;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const CountCase& test) { return out << test.name; }

class UnusableCount : public RestorePrepareDirTest,
                      public testing::WithParamInterface<CountCase> {};

TEST_P(UnusableCount, IsLoggedAndRestoresAllTheSame) {
  Prepare(GetParam().text);
  EXPECT_EQ(Restore(), 0);
  const Lines lines = logger_.Lines();
  ASSERT_EQ(lines.size(), kEverythingDone.size() + 1);
  EXPECT_EQ(lines[3], "Error: ReadACLCount Empty ACL Count.");
  EXPECT_EQ(lines[4], "Info: acl restore begin...");
  EXPECT_TRUE(tests::SddlOf(server_, "D:\\Data").ends_with("D:PAI(A;OICI;FA;;;BA)"));
  EXPECT_EQ(progress_, 42.0);
}

INSTANTIATE_TEST_SUITE_P(Texts, UnusableCount,
                         testing::Values(CountCase{"Zero", "0"}, CountCase{"Letters", "abc"},
                                         CountCase{"Negative", "-5"}, CountCase{"Empty", ""},
                                         CountCase{"Blank", " "}),
                         tests::NamedAsPrinted());

TEST_F(RestorePrepareDirTest, RestoresWithoutBackupInformation) {
  Prepare();
  server_.files().Write("D:\\vantoro_prepare\\backup_info", "D");
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(logger_.Lines()[3], "Error: ReadBackupInfoLine Backup Info Wrong Line Number.");
  EXPECT_EQ(logger_.Lines()[4], "Info: acl restore begin...");
}

// Durations.

class Duration : public RestorePrepareDirTest {
 protected:
  // Each stage takes that long. The two lines that tell so.
  Lines RestoreSlowly(int64_t milliseconds) {
    Prepare();
    server_.clock().SetTickStep(milliseconds);
    EXPECT_EQ(Restore(), 0);
    const Lines lines = logger_.Lines();
    return {lines.at(1), lines.at(7)};
  }
};

TEST_F(Duration, IsRoundedDownToSeconds) {
  EXPECT_EQ(RestoreSlowly(1999),
            (Lines{"Info: junction restore cost 1s", "Info: acl restore cost 1s"}));
}

TEST_F(Duration, OfHoursIsToldInSeconds) {
  EXPECT_EQ(RestoreSlowly(36'000'000),
            (Lines{"Info: junction restore cost 36000s", "Info: acl restore cost 36000s"}));
}

TEST_F(Duration, IsRightWhenTheTickCountStartsAnew) {
  server_.clock().Set(INT64_C(0xFFFFFFFF) - 500);
  EXPECT_EQ(RestoreSlowly(2000),
            (Lines{"Info: junction restore cost 2s", "Info: acl restore cost 2s"}));
}

TEST(ReadACLCountTest, ReadsTheFourthLine) {
  simulator::Server server;
  tests::RecordingLogger logger;
  server.files().Write("C:\\vantoro_prepare\\backup_info", "c\r\n1\r\n2\r\n6000\r\n7\r\n");
  uint32_t count = 1;
  EXPECT_TRUE(ReadACLCount(logger, 'c', count));
  EXPECT_EQ(count, 6000U);
  EXPECT_EQ(logger.Lines(), Lines{});
}

TEST(ReadACLCountTest, ReadsTheNumberInFront) {
  simulator::Server server;
  tests::RecordingLogger logger;
  server.files().Write("C:\\vantoro_prepare\\backup_info", "c\n\n\n 12 entries");
  uint32_t count = 0;
  EXPECT_TRUE(ReadACLCount(logger, 'c', count));
  EXPECT_EQ(count, 12U);
}

TEST(ReadACLCountTest, LeavesTheCountAloneWhenThereIsNone) {
  simulator::Server server;
  tests::RecordingLogger logger;
  uint32_t count = 77;
  for (const char* const text : {"c\n\n\n0\n", "c\n\n\nabc\n", "c\n\n\n-1\n"}) {
    server.files().Write("C:\\vantoro_prepare\\backup_info", text);
    EXPECT_FALSE(ReadACLCount(logger, 'c', count));
    EXPECT_EQ(logger.Lines().back(), "Error: ReadACLCount Empty ACL Count.");
  }
  EXPECT_EQ(count, 77U);
}

TEST(ReadACLCountTest, SaysNothingOfItsOwnWhenTheLineCannotBeRead) {
  simulator::Server server;
  tests::RecordingLogger logger;
  server.files().Write("C:\\vantoro_prepare\\backup_info", "c\n");
  uint32_t count = 77;
  EXPECT_FALSE(ReadACLCount(logger, 'c', count));
  EXPECT_EQ(logger.Lines(), Lines{"Error: ReadBackupInfoLine Backup Info Wrong Line Number."});
  EXPECT_EQ(count, 77U);
}

// A file that is not there is no failure to the reader, and so an empty count here.
TEST(ReadACLCountTest, FindsAnEmptyCountInAMissingFile) {
  simulator::Server server;
  tests::RecordingLogger logger;
  uint32_t count = 77;
  EXPECT_FALSE(ReadACLCount(logger, 'c', count));
  EXPECT_EQ(logger.Lines(), (Lines{"Warn: ReadBackupInfoLine Backup Info File doesn't Exist.",
                                   "Error: ReadACLCount Empty ACL Count."}));
  EXPECT_EQ(count, 77U);
}

}  // namespace
}  // namespace acl
