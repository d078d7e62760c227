// SetNamedSecurityInfoA as a call: arguments, codes, faults.
#include <windows.h>

#include <aclapi.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/api/call.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/security.h"
#include "simulator/model/security/well_known_sids.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"

namespace {

using simulator::Acl;
using simulator::AclBytes;
using simulator::Server;
using simulator::SidBytes;

class NamedSecurity : public testing::Test {
 protected:
  NamedSecurity() {
    server_.files().Write("C:\\a.txt", "x");
    tests::Secure(server_, "C:\\a.txt", "O:BAG:SYD:PAI(A;;FA;;;BA)");
  }

  static DWORD Set(SECURITY_INFORMATION information, std::string owner, std::string group,
                   std::string dacl) {
    const auto pointer = [](std::string& bytes) { return bytes.empty() ? nullptr : bytes.data(); };
    std::string path = "C:\\a.txt";
    return ::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, information, pointer(owner),
                                   pointer(group), reinterpret_cast<PACL>(pointer(dacl)), nullptr);
  }
  static std::string ReadingForUsers() {
    Acl acl;
    acl.aces.emplace_back();
    acl.aces.back().mask = FILE_GENERIC_READ;
    acl.aces.back().sid = simulator::kUsers;
    return AclBytes(acl);
  }
  std::string Found() { return tests::SddlOf(server_, "C:\\a.txt"); }

  Server server_;
};

TEST_F(NamedSecurity, IsSetFromWhatThePointersHold) {
  EXPECT_EQ(Set(OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
                SidBytes(server_.security().identity().user), SidBytes(simulator::kUsers),
                ReadingForUsers()),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Found(), "O:LAG:BUD:PAI(A;;FR;;;BU)");
}

TEST_F(NamedSecurity, ReadsNoPointerThatItIsNotAskedTo) {
  EXPECT_EQ(Set(GROUP_SECURITY_INFORMATION, "no SID", SidBytes(simulator::kUsers), "no list"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Found(), "O:BAG:BUD:PAI(A;;FA;;;BA)");
}

TEST_F(NamedSecurity, TakesANullListForOneThatGrantsEverything) {
  EXPECT_EQ(Set(DACL_SECURITY_INFORMATION, "", "", ""), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(server_.files().DescriptorOf("C:\\a.txt")->dacl);
}

TEST_F(NamedSecurity, RefusesSidsThatAreNone) {
  std::string sid = SidBytes(simulator::kUsers);
  sid[0] = 2;  // revision
  EXPECT_EQ(Set(OWNER_SECURITY_INFORMATION, sid, "", ""), DWORD{ERROR_INVALID_PARAMETER});
  sid = SidBytes(simulator::kUsers);
  sid[1] = 16;  // sub-authorities
  EXPECT_EQ(Set(GROUP_SECURITY_INFORMATION, "", sid, ""), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(Set(OWNER_SECURITY_INFORMATION, "", "", ""), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(NamedSecurity, RefusesListsThatAreNone) {
  std::string acl = ReadingForUsers();
  acl[4] = 2;  // entries
  EXPECT_EQ(Set(DACL_SECURITY_INFORMATION, "", "", acl), DWORD{ERROR_INVALID_ACL});
  acl = ReadingForUsers();
  acl[2] = 4;  // bytes, less than the header's own
  EXPECT_EQ(Set(DACL_SECURITY_INFORMATION, "", "", acl), DWORD{ERROR_INVALID_ACL});
  EXPECT_EQ(Found(), "O:BAG:SYD:PAI(A;;FA;;;BA)");
}

TEST_F(NamedSecurity, LeavesNoLastErrorThatTellsAnything) {
  std::string missing = "C:\\missing";
  EXPECT_EQ(::SetNamedSecurityInfoA(missing.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                    nullptr, nullptr, nullptr, nullptr),
            DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(::GetLastError(), simulator::kSpoiltLastError);
}

TEST_F(NamedSecurity, IsTracedAndFailsAsAsked) {
  server_.calls().FailNext("SetNamedSecurityInfoA", ERROR_SHARING_VIOLATION);
  EXPECT_EQ(Set(DACL_SECURITY_INFORMATION, "", "", ReadingForUsers()),
            DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(::GetLastError(), simulator::kSpoiltLastError);
  EXPECT_EQ(Found(), "O:BAG:SYD:PAI(A;;FA;;;BA)");
  const std::vector<std::string> calls = server_.calls().ArgumentsOf("SetNamedSecurityInfoA");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_TRUE(calls[0].starts_with("\"C:\\a.txt\", 4, null, null, 0x")) << calls[0];
  EXPECT_TRUE(calls[0].ends_with(", null")) << calls[0];
}

TEST_F(NamedSecurity, NeverEndsTheProcessForAPath) {
  for (std::string path : {"", " ", "\\\\server\\share\\a", "\\\\?\\", "\\\\?\\UNC\\a",
                           "\\\\.\\C:", "\\\\?\\C:", "C:\\a:b", "nul", "C:\\\x01", "\\\\", "\\??\\",
                           "Q:\\", "\\\\?\\Volume{0}\\a", "\xFF\xFE", "C:\\a\\..\\..\\b?"}) {
    EXPECT_NE(::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                      nullptr, nullptr, nullptr, nullptr),
              DWORD{ERROR_SUCCESS})
        << path;
  }
}

TEST(NamedSecurityDeathTest, IsThatOfFilesOnly) {
  Server server;
  std::string path = "C:\\Windows";
  EXPECT_DEATH(::SetNamedSecurityInfoA(path.data(), SE_UNKNOWN_OBJECT_TYPE, 0, nullptr, nullptr,
                                       nullptr, nullptr),
               "what is no file");
  EXPECT_DEATH(::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, 0x10 /* the label */, nullptr,
                                       nullptr, nullptr, nullptr),
               "such information");
}

}  // namespace
