#include "simulator/model/path_name.h"

#include <gtest/gtest.h>

#include <string>

namespace simulator {
namespace {

std::string Full(const std::string& path) {
  const PathName parsed = ParsePath(path, "C:\\Windows\\system32");
  std::string full = {parsed.letter, ':'};
  for (const std::string& name : parsed.names) full += "\\" + name;
  return full;
}

struct Example {
  const char* path;
  const char* full;
};

class FullPath : public testing::TestWithParam<Example> {};

TEST_P(FullPath, IsWhatWin32MakesOfIt) { EXPECT_EQ(Full(GetParam().path), GetParam().full); }

INSTANTIATE_TEST_SUITE_P(
    Rules, FullPath,
    testing::Values(Example{"c:\\a\\b.txt", "C:\\a\\b.txt"}, Example{"C:/a/b", "C:\\a\\b"},
                    Example{"C:\\a\\\\b", "C:\\a\\b"}, Example{"C:\\a\\.\\b", "C:\\a\\b"},
                    Example{"C:\\a\\..\\b", "C:\\b"}, Example{"C:\\..\\..\\b", "C:\\b"},
                    Example{"C:\\a.txt. .", "C:\\a.txt"}, Example{"C:\\a.\\b", "C:\\a\\b"},
                    Example{"C:\\a..\\b", "C:\\a..\\b"}, Example{"C:\\a \\b", "C:\\a \\b"},
                    Example{"C:\\a \\", "C:\\a "}, Example{"C:\\a\\...", "C:\\a"},
                    Example{"C:\\ a", "C:\\ a"}, Example{"a.txt", "C:\\Windows\\system32\\a.txt"},
                    Example{"..\\a", "C:\\Windows\\a"}, Example{"\\a", "C:\\a"},
                    Example{"C:a", "C:\\Windows\\system32\\a"}, Example{"d:a", "D:\\a"},
                    Example{"C:", "C:\\Windows\\system32"}, Example{"{:\\", "{:"}));

TEST(PathName, TellsWhetherASeparatorEndsIt) {
  EXPECT_TRUE(ParsePath("C:\\a\\", "C:\\").ends_in_separator);
  EXPECT_FALSE(ParsePath("C:\\a", "C:\\").ends_in_separator);
}

TEST(PathName, CountsTheFullPathInUtf16Units) {
  EXPECT_EQ(ParsePath("a\xC3\xA4\xF0\x9F\x98\x80", "C:\\x").length, 4u + 1u + 4u);
}

TEST(PathName, IsNothingForTheEmptyPathAndForBlanks) {
  EXPECT_EQ(ParsePath("", "C:\\").length, 0u);
  EXPECT_EQ(ParsePath("  ", "C:\\").length, 0u);
}

TEST(PathNameDeathTest, DoesNotSupportTheNetwork) {
  EXPECT_DEATH(ParsePath("\\\\server\\share", "C:\\"), "network or device");
}

TEST(ValidName, RefusesReservedCharacters) {
  for (const char c : std::string("\"*/:<>?\\|\x01\x1F")) {
    EXPECT_FALSE(IsValidName(std::string("a") + c)) << c;
  }
}

TEST(ValidName, MayHave255Units) {
  EXPECT_TRUE(IsValidName(std::string(255, 'a')));
  EXPECT_FALSE(IsValidName(std::string(256, 'a')));
}

TEST(NameKey, LowersAsciiOnly) { EXPECT_EQ(NameKey("aB\xC3\x84"), "ab\xC3\x84"); }

}  // namespace
}  // namespace simulator
