#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "acl/acl_restore.h"
#include "simulator/model/security/security.h"
#include "support/progress_simulated.h"
#include "support/recording_logger.h"
#include "support/simulated_acl_engine.h"
#include "support/simulated_events.h"

namespace acl {
namespace {

class RestoreACLFileTest : public tests::AclEngineTest {
 protected:
  RestoreACLFileTest() { server_.files().Write("C:\\a", ""); }

  int32_t RestoreAll(const std::string& content, uint32_t entries = 1) {
    server_.files().Write(kFile, content);
    return RestoreACLFile(logger_, "C:\\", kFile, entries, range_);
  }

  tests::ProgressDialog dialog_{server_};
  tests::RecordingLogger logger_;
  ProgressRange range_{25.0, 40.0};
};

using Lines = std::vector<std::string>;

constexpr char kSddl[] = "O:SYG:SYD:PAI(A;;FA;;;SY)";

TEST_F(RestoreACLFileTest, LogsItsOneStage) {
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Info: ACLRestore (Stage 0/1)...", "Info: ACLRestore (Stage 1/1) Done.",
                   "Info: ACLRestore Done."}));
  EXPECT_EQ(SddlOf("C:\\a"), kSddl);
}

TEST_F(RestoreACLFileTest, TakesItsStepsInOrder) {
  server_.files().Write(kFile, "");
  tests::EventLogger logger(server_);
  EXPECT_EQ(RestoreACLFile(logger, "C:\\", kFile, 1, range_), 0);
  Lines events = logger.Events();
  const std::set<std::string> calls = {"LookupAccountNameA", "AdjustTokenPrivileges",
                                       "PostMessageA"};
  std::erase_if(events, [&calls](const std::string& event) {
    return event.find(' ') == std::string::npos && !calls.contains(event);
  });
  const std::string adjust = "AdjustTokenPrivileges";
  EXPECT_EQ(events, (Lines{"LookupAccountNameA", "Info: ACLRestore (Stage 0/1)...", adjust, adjust,
                           adjust, adjust, "PostMessageA", "Info: ACLRestore (Stage 1/1) Done.",
                           "Info: ACLRestore Done.", adjust, adjust, adjust, adjust}));
}

TEST_F(RestoreACLFileTest, LogsAFailureInBetween) {
  EXPECT_EQ(RestoreACLFile(logger_, "C:\\", "C:\\none.dat", 1, range_), 34);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Info: ACLRestore (Stage 0/1)...", "Error: ACLRestore Restore Failed: code=34",
                   "Info: ACLRestore (Stage 1/1) Done.", "Info: ACLRestore Done."}));
}

TEST_F(RestoreACLFileTest, Is33WithoutAFile) {
  EXPECT_EQ(RestoreACLFile(logger_, "C:\\", "", 1, range_), 33);
  EXPECT_EQ(logger_.Lines()[1], "Error: ACLRestore Restore Failed: code=33");
}

TEST_F(RestoreACLFileTest, AdvancesTheProgressToTheEndOfItsRange) {
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(range_.base, 65.0);
  EXPECT_EQ(range_.span, 40.0);
  EXPECT_EQ(dialog_.Take(), std::vector<double>{65.0});
}

TEST_F(RestoreACLFileTest, AdvancesTheProgressAlsoOnFailure) {
  EXPECT_EQ(RestoreACLFile(logger_, "C:\\", "C:\\none.dat", 1, range_), 34);
  EXPECT_EQ(range_.base, 65.0);
  EXPECT_EQ(dialog_.Take(), std::vector<double>{65.0});
}

TEST_F(RestoreACLFileTest, TellsTheProgressWithinItsRange) {
  EXPECT_EQ(RestoreAll(std::string(2000, '\n'), 4000), 0);
  EXPECT_EQ(dialog_.Take(), (std::vector<double>{35.0, 45.0, 65.0}));
}

TEST_F(RestoreACLFileTest, EndsInANumberAlsoWithoutEntries) {
  EXPECT_EQ(RestoreAll(std::string(1000, '\n'), 0), 0);
  const std::vector<double> percents = dialog_.Take();
  ASSERT_EQ(percents.size(), 2U);
  EXPECT_TRUE(std::isinf(percents[0]));
  EXPECT_EQ(percents[1], 65.0);
}

TEST_F(RestoreACLFileTest, PassesOverLinesThatFail) {
  EXPECT_EQ(RestoreAll("wrong\r\n" + LineOf("C:\\none", 0, kSddl) + LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(SddlOf("C:\\a"), kSddl);
  EXPECT_EQ(logger_.Lines().size(), 3U);
}

TEST_F(RestoreACLFileTest, RestoresAttributes) {
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 2, kSddl)), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("SetFileAttributesA"), Lines{"\"C:\\a\", 2"});
}

TEST_F(RestoreACLFileTest, WritesNoReport) {
  EXPECT_EQ(RestoreAll(LineOf("C:\\none", 0, kSddl)), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("_write"), Lines{});
}

TEST_F(RestoreACLFileTest, LeavesNothingOpenAndNoMemory) {
  const int blocks = simulator::LiveLocalBlocks();
  EXPECT_EQ(RestoreAll("wrong\r\n" + LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(server_.OpenHandles(), Lines{});
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks);
}

TEST_F(RestoreACLFileTest, MakesTheAdministratorsOwnersOfWhatRefuses) {
  server_.calls().FailNext("SetNamedSecurityInfoA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("SetNamedSecurityInfoA").size(), 3U);
  EXPECT_EQ(SddlOf("C:\\a"), kSddl);
}

TEST_F(RestoreACLFileTest, LooksTheAdministratorsUpByTheirName) {
  EXPECT_EQ(RestoreAll(""), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("LookupAccountNameA"),
            Lines{"\"Administrators\", 4096, 4096"});
}

TEST_F(RestoreACLFileTest, HasNoFallbackOwnerOnAGermanServer) {
  server_.system().language = 1031;
  server_.calls().FailNext("SetNamedSecurityInfoA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(server_.calls().ArgumentsOf("SetNamedSecurityInfoA").size(), 1U);
  EXPECT_NE(SddlOf("C:\\a"), kSddl);
}

// A descriptor that nobody but its owner may change, who is gone.
constexpr char kDenied[] = "O:S-1-5-21-1-2-3-1107G:BAD:PAI(D;;FA;;;WD)";

TEST_F(RestoreACLFileTest, RestoresWhatDeniesEveryoneByItsPrivileges) {
  tests::Secure(server_, "C:\\a", kDenied);
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(SddlOf("C:\\a"), kSddl);
}

TEST_F(RestoreACLFileTest, RunsWithoutPrivilegesFromTheSecondTimeOn) {
  tests::Secure(server_, "C:\\a", kDenied);
  EXPECT_EQ(RestoreAll(""), 0);
  EXPECT_EQ(RestoreAll(LineOf("C:\\a", 0, kSddl)), 0);
  EXPECT_EQ(SddlOf("C:\\a"), kDenied);
  for (const char* const name : {"SeBackupPrivilege", "SeRestorePrivilege", "SeSecurityPrivilege",
                                 "SeTakeOwnershipPrivilege"}) {
    EXPECT_FALSE(server_.security().Enabled(name)) << name;
  }
}

TEST_F(RestoreACLFileTest, ChangesNothingTheSecondTime) {
  const std::string content = LineOf("C:\\", 0, "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FR;;;BU)") +
                              LineOf("C:\\a", 0, "O:BAG:SYD:AI(A;ID;FA;;;BA)(A;ID;FR;;;BU)");
  EXPECT_EQ(RestoreAll(content), 0);
  const std::string root = SddlOf("C:\\");
  const std::string file = SddlOf("C:\\a");
  EXPECT_EQ(file, "O:BAG:SYD:AI(A;ID;FA;;;BA)(A;ID;FR;;;BU)");
  EXPECT_EQ(RestoreAll(content), 0);
  EXPECT_EQ(SddlOf("C:\\"), root);
  EXPECT_EQ(SddlOf("C:\\a"), file);
}

}  // namespace
}  // namespace acl
