#include "common/paths.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace common {
namespace {

struct JoinCase {
  std::string folder;
  std::string name;
  std::string joined;
};

TEST(JoinPath, PutsOneBackslashBetween) {
  const std::vector<JoinCase> cases = {
      {"C:\\a", "b.txt", "C:\\a\\b.txt"},
      {"C:\\a\\", "b.txt", "C:\\a\\b.txt"},
      {"C:\\", "b", "C:\\b"},
      {"C:", "b", "C:\\b"},
      {"a", "b", "a\\b"},
      {"\\", "b", "\\b"},
      {"C:\\a", "b\\c", "C:\\a\\b\\c"},
      {"C:\\a b", " c ", "C:\\a b\\ c "},
  };
  for (const JoinCase& test : cases) EXPECT_EQ(JoinPath(test.folder, test.name), test.joined);
}

TEST(JoinPath, KeepsTheBackslashesOfTheName) {
  EXPECT_EQ(JoinPath("C:\\a", "\\b"), "C:\\a\\\\b");
  EXPECT_EQ(JoinPath("C:\\a\\", "\\b"), "C:\\a\\\\b");
  EXPECT_EQ(JoinPath("C:\\a", "b\\"), "C:\\a\\b\\");
}

TEST(JoinPath, KeepsTheBackslashesOfTheFolder) {
  EXPECT_EQ(JoinPath("C:\\a\\\\", "b"), "C:\\a\\\\b");
}

TEST(JoinPath, TakesASlashForAnOrdinaryCharacter) {
  EXPECT_EQ(JoinPath("C:/a/", "b"), "C:/a/\\b");
  EXPECT_EQ(JoinPath("C:/a", "/b"), "C:/a\\/b");
}

TEST(JoinPath, IsEmptyWithoutAFolderOrAName) {
  EXPECT_EQ(JoinPath("", "b"), "");
  EXPECT_EQ(JoinPath("C:\\a", ""), "");
  EXPECT_EQ(JoinPath("", ""), "");
}

TEST(JoinPath, TakesAnyBytes) {
  using namespace std::string_literals;
  EXPECT_EQ(JoinPath("\0"s, "%s\xFF"s), "\0\\%s\xFF"s);
  EXPECT_EQ(JoinPath(std::string(100'000, 'a'), "b"), std::string(100'000, 'a') + "\\b");
}

TEST(JoinDir, EndsWithExactlyOneBackslash) {
  const std::vector<JoinCase> cases = {
      {"C:\\a", "Logs", "C:\\a\\Logs\\"},   {"C:\\a\\", "Logs\\", "C:\\a\\Logs\\"},
      {"C:\\a\\", "Logs", "C:\\a\\Logs\\"}, {"C:\\a", "Logs\\", "C:\\a\\Logs\\"},
      {"C:\\", "Logs", "C:\\Logs\\"},
  };
  for (const JoinCase& test : cases) EXPECT_EQ(JoinDir(test.folder, test.name), test.joined);
}

TEST(JoinDir, AddsABackslashBehindASlash) { EXPECT_EQ(JoinDir("C:\\a", "b/"), "C:\\a\\b/\\"); }

TEST(JoinDir, AddsNoneBehindANameOfOneBackslash) { EXPECT_EQ(JoinDir("C:\\a", "\\"), "C:\\a\\\\"); }

TEST(JoinDir, IsEmptyWithoutAFolderOrAName) {
  EXPECT_EQ(JoinDir("", "Logs"), "");
  EXPECT_EQ(JoinDir("C:\\a", ""), "");
  EXPECT_EQ(JoinDir("", ""), "");
}

}  // namespace
}  // namespace common
