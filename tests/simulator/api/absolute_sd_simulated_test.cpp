#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/server.h"

namespace simulator {
namespace {

class MakeAbsoluteSdTest : public testing::Test {
 protected:
  // The error, or ERROR_SUCCESS.
  DWORD Make(std::string relative) {
    DWORD sizes[] = {sizeof(absolute_), sizeof(dacl_), sizeof(sacl_), sizeof(owner_),
                     sizeof(group_)};
    return ::MakeAbsoluteSD(relative.data(), &absolute_, &sizes[0], reinterpret_cast<PACL>(dacl_),
                            &sizes[1], reinterpret_cast<PACL>(sacl_), &sizes[2], owner_, &sizes[3],
                            group_, &sizes[4])
               ? ERROR_SUCCESS
               : ::GetLastError();
  }

  Server server_;
  SECURITY_DESCRIPTOR absolute_ = {};
  alignas(ACL) char dacl_[64] = {};
  alignas(ACL) char sacl_[64] = {};
  char owner_[68] = {};
  char group_[68] = {};
};

// One part behind a header that points at it.
struct IllFormed {
  std::string descriptor;
  const char* why;
};

TEST_F(MakeAbsoluteSdTest, RefusesWhatIsNoDescriptor) {
  const std::string sixteen(16, '\0');
  const std::string owner("\1\0\0\x80\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 20);
  const std::string dacl("\1\0\4\x80\0\0\0\0\0\0\0\0\0\0\0\0\x14\0\0\0", 20);
  for (const IllFormed& row : std::vector<IllFormed>{
           {std::string("\2\0\0\x80", 4) + sixteen, "a revision of the descriptor"},
           {owner + std::string("\2\1\0\0\0\0\0\1\0\0\0\0", 12), "a revision of the SID"},
           {owner + std::string("\1\x10\0\0\0\0\0\1\0\0\0\0", 12), "sixteen parts"},
           {dacl + std::string("\1\0\x8\0\0\0\0\0", 8), "a list of revision 1"},
           {dacl + std::string("\5\0\x8\0\0\0\0\0", 8), "a list of revision 5"},
           {dacl + std::string("\2\0\x7\0\0\0\0\0", 8), "a list smaller than its header"},
       }) {
    EXPECT_EQ(Make(row.descriptor), DWORD{ERROR_INVALID_SECURITY_DESCR}) << row.why;
  }
}

TEST_F(MakeAbsoluteSdTest, PassesOverAListThatIsNotPresent) {
  const std::string header("\1\0\0\x80\0\0\0\0\0\0\0\0\0\0\0\0\x14\0\0\0", 20);
  EXPECT_EQ(Make(header + std::string("\2\0\x8\0\0\0\0\0", 8)), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(absolute_.Dacl, nullptr);
}

TEST_F(MakeAbsoluteSdTest, FailsWhenAFaultIsDue) {
  server_.calls().FailNext("MakeAbsoluteSD", ERROR_NOT_ENOUGH_MEMORY);
  const std::string empty = std::string("\1\0\0\x80", 4) + std::string(16, '\0');
  EXPECT_EQ(Make(empty), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  EXPECT_EQ(absolute_.Revision, 0);
  EXPECT_EQ(Make(empty), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(absolute_.Revision, SECURITY_DESCRIPTOR_REVISION);
}

TEST_F(MakeAbsoluteSdTest, AbortsWithoutADescriptor) {
  DWORD size = 0;
  EXPECT_DEATH(::MakeAbsoluteSD(nullptr, nullptr, &size, nullptr, &size, nullptr, &size, nullptr,
                                &size, nullptr, &size),
               "no descriptor");
}

}  // namespace
}  // namespace simulator
