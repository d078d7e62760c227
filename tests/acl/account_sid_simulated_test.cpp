#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acl/account_sid.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace acl {
namespace {

using Bytes = std::vector<unsigned char>;

class GetAccountSidTest : public testing::Test {
 protected:
  Bytes BytesOf() const {
    const auto* const bytes = static_cast<const unsigned char*>(sid_.get());
    return bytes == nullptr ? Bytes() : Bytes(bytes, bytes + ::GetLengthSid(sid_.get()));
  }

  // Stands in for what the owner held before.
  void HoldSomething() { sid_.reset(::LocalAlloc(LPTR, 64)); }

  simulator::Server server_;
  common::UniqueLocal<void> sid_;
};

// S-1-5-32-544.
const Bytes kAdministrators = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};

TEST_F(GetAccountSidTest, FindsTheAdministrators) {
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 0);
  EXPECT_EQ(BytesOf(), kAdministrators);
}

TEST_F(GetAccountSidTest, FindsThemOnAChineseServer) {
  server_.system().language = 2052;
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 0);
  EXPECT_EQ(BytesOf(), kAdministrators);
}

TEST_F(GetAccountSidTest, Is6OnAGermanServerWhereTheyAreCalledOtherwise) {
  server_.system().language = 1031;
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 6);
  EXPECT_FALSE(sid_);
}

TEST_F(GetAccountSidTest, Is3ForAnEmptyName) {
  HoldSomething();
  void* const held = sid_.get();
  EXPECT_EQ(GetAccountSid("", sid_), 3);
  EXPECT_EQ(sid_.get(), held);
  EXPECT_EQ(server_.calls().ArgumentsOf("LookupAccountNameA").size(), 0U);
}

TEST_F(GetAccountSidTest, LeavesTheOwnerAloneWhenThereIsNoSuchAccount) {
  HoldSomething();
  void* const held = sid_.get();
  EXPECT_EQ(GetAccountSid("Nobody Of That Name", sid_), 6);
  EXPECT_EQ(sid_.get(), held);
}

TEST_F(GetAccountSidTest, EmptiesTheOwnerWhenTheCopyFails) {
  HoldSomething();
  server_.calls().FailNext("CopySid", ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 6);
  EXPECT_FALSE(sid_);
}

TEST_F(GetAccountSidTest, Is6WithoutMemory) {
  server_.calls().FailNext("LocalAlloc", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 6);
  server_.calls().FailNext("LocalAlloc", ERROR_NOT_ENOUGH_MEMORY, 2);
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 6);
  EXPECT_FALSE(sid_);
}

TEST_F(GetAccountSidTest, KeepsABlockOfTheSidsLengthAlone) {
  const int blocks = simulator::LiveLocalBlocks();
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 0);
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks + 1);
  EXPECT_EQ(server_.calls().ArgumentsOf("LocalAlloc"),
            (std::vector<std::string>{"64, 4096", "64, 16"}));
}

TEST_F(GetAccountSidTest, LeavesNothingBehindWhenItFails) {
  const int blocks = simulator::LiveLocalBlocks();
  EXPECT_EQ(GetAccountSid("Nobody", sid_), 6);
  server_.calls().FailNext("CopySid", ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(GetAccountSid("Administrators", sid_), 6);
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks);
}

}  // namespace
}  // namespace acl
