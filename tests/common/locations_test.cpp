#include "common/locations.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "support/host.h"

namespace common {
namespace {

using LocationsTest = tests::HostTest;

TEST_F(LocationsTest, TheProgramsFolderEndsWithoutABackslash) {
  const std::string folder = GetCurrentDir();
  ASSERT_GT(folder.size(), 3u);
  EXPECT_EQ(folder[1], ':');
  EXPECT_NE(folder.back(), '\\');
  EXPECT_TRUE(Exists(folder));
}

TEST_F(LocationsTest, TheTemporaryFolderEndsWithABackslash) {
  const std::string folder = GetTempDir();
  ASSERT_GT(folder.size(), 3u);
  EXPECT_EQ(folder[1], ':');
  EXPECT_EQ(folder.back(), '\\');
  EXPECT_TRUE(Exists(folder));
}

TEST_F(LocationsTest, TheSystemDriveLetterIsLowerCase) {
  const int letter = GetSystemDriveLetter();
  EXPECT_GE(letter, 'a');
  EXPECT_LE(letter, 'z');
}

}  // namespace
}  // namespace common
