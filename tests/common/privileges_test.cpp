#include "common/privileges.h"

#include <gtest/gtest.h>

#include <string>

#include "support/host.h"

namespace common {
namespace {

using PrivilegesTest = tests::HostTest;

TEST_F(PrivilegesTest, EnablesThePrivilegesOfABackup) {
  EXPECT_EQ(EnablePrivilege("SeBackupPrivilege"), 0);
  EXPECT_EQ(EnablePrivilege("SeRestorePrivilege"), 0);
}

TEST_F(PrivilegesTest, RefusesAnUnknownName) {
  for (const std::string& name :
       {std::string(), std::string("SeNoSuchPrivilege"), std::string("SeBackupPrivilege "),
        std::string(10'000, 'S'), std::string("%s%n"), std::string("\xFF\xFE")}) {
    EXPECT_EQ(EnablePrivilege(name.c_str()), -2) << name;
  }
}

}  // namespace
}  // namespace common
