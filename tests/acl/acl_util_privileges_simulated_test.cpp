// The privileges that the engine enables and disables.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acl/acl_util.h"
#include "common/privileges.h"
#include "simulator/model/security/security.h"
#include "support/simulated_acl_engine.h"
#include "support/test_names.h"

namespace acl {
namespace {

const std::vector<std::string> kPrivileges = {"SeBackupPrivilege", "SeRestorePrivilege",
                                              "SeSecurityPrivilege", "SeTakeOwnershipPrivilege"};

class Privileges : public tests::AclEngineTest {
 protected:
  std::vector<bool> Enabled() {
    std::vector<bool> enabled;
    for (const std::string& name : kPrivileges) {
      enabled.push_back(server_.security().Enabled(name));
    }
    return enabled;
  }

  static Lines Quoted() {
    Lines names;
    for (const std::string& name : kPrivileges) names.push_back("\"" + name + "\"");
    return names;
  }
};

const std::vector<bool> kAllOn(4, true);
const std::vector<bool> kAllOff(4, false);

TEST_F(Privileges, AreOnFromTheFirstUseToTheEndOfTheObject) {
  {
    ACLUtil engine;
    EXPECT_EQ(Enabled(), kAllOff);
    EXPECT_EQ(engine.EnablePrivileges(), 0);
    EXPECT_EQ(Enabled(), kAllOn);
    EXPECT_EQ(server_.calls().ArgumentsOf("LookupPrivilegeValueA"), Quoted());
  }
  EXPECT_EQ(Enabled(), kAllOff);
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

TEST_F(Privileges, AreEnabledOnceInAProcess) {
  ACLUtil first;
  EXPECT_EQ(first.EnablePrivileges(), 0);
  const int calls = server_.calls().Count();
  EXPECT_EQ(first.EnablePrivileges(), 0);
  ACLUtil second;
  EXPECT_EQ(second.EnablePrivileges(), 0);
  EXPECT_EQ(server_.calls().Count(), calls);
}

TEST_F(Privileges, StayOffForLaterObjects) {
  EXPECT_EQ(Restore(""), kRestored);
  ACLUtil second;
  EXPECT_EQ(second.EnablePrivileges(), 0);
  EXPECT_EQ(Enabled(), kAllOff);
}

TEST_F(Privileges, AreDisabledByAnObjectThatNeverEnabledThem) {
  ASSERT_TRUE(common::SwitchPrivilege("SeBackupPrivilege", true));
  { const ACLUtil engine; }
  EXPECT_EQ(Enabled(), kAllOff);
  EXPECT_EQ(server_.calls().ArgumentsOf("LookupPrivilegeValueA").size(), 5U);
}

TEST_F(Privileges, AreDisabledInTheOrderInWhichTheyWereEnabled) {
  EXPECT_EQ(Restore(""), kRestored);
  Lines twice = Quoted();
  for (const std::string& name : Quoted()) twice.push_back(name);
  EXPECT_EQ(server_.calls().ArgumentsOf("LookupPrivilegeValueA"), twice);
}

TEST_F(Privileges, AreEnabledForAFileThatIsMissing) {
  EXPECT_EQ(RestoreFile("", {}), kNoInputFile);
  EXPECT_TRUE(ACLUtil::privileges_enabled);
}

TEST_F(Privileges, ThatAreNotHeldAreReported) {
  for (const std::string& name : kPrivileges) server_.security().Revoke(name);
  EXPECT_EQ(Restore(""), kRestored);
  EXPECT_EQ(
      Report(),
      (Lines{"Info: Privilege 'SeBackupPrivilege' could not be enabled. This can probably be "
             "ignored.",
             "Info: Privilege 'SeRestorePrivilege' could not be enabled. This can probably be "
             "ignored.",
             "Info: Privilege 'SeSecurityPrivilege' could not be enabled. This can probably be "
             "ignored.",
             "Info: Privilege 'SeTakeOwnershipPrivilege' could not be enabled. This can probably "
             "be ignored.",
             kDetected}));
}

class PrivilegeCall : public Privileges, public testing::WithParamInterface<std::string> {};

TEST_P(PrivilegeCall, ThatFailsIsReportedAndTheOthersAreEnabled) {
  server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED, 2);
  ACLUtil engine;
  engine.SetOutputStream(common::UniqueFile(::_fsopen("C:\\report.txt", "wb", _SH_DENYNO)));
  EXPECT_EQ(engine.EnablePrivileges(), 0);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, false, true, true}));
  EXPECT_EQ(Report(), Lines{"Info: Privilege 'SeRestorePrivilege' could not be enabled. This can "
                            "probably be ignored."});
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

TEST_P(PrivilegeCall, ThatFailsLeavesThatOneOnAndTheOthersAreDisabled) {
  {
    ACLUtil engine;
    EXPECT_EQ(engine.EnablePrivileges(), 0);
    server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED, 2);
  }
  EXPECT_EQ(Enabled(), (std::vector<bool>{false, true, false, false}));
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(Calls, PrivilegeCall,
                         testing::Values("OpenProcessToken", "LookupPrivilegeValueA",
                                         "AdjustTokenPrivileges"),
                         tests::NamedAsPrinted());

}  // namespace
}  // namespace acl
