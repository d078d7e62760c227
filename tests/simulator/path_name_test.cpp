#include "simulator/model/path_name.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(PathName, EndsInTheSeparatorBeforeANameOfDotsAndBlanks) {
  EXPECT_TRUE(ParsePath("C:\\a\\...", "C:\\").ends_in_separator);
  EXPECT_TRUE(ParsePath("C:\\a\\ ", "C:\\").ends_in_separator);
  EXPECT_FALSE(ParsePath("C:\\a\\.", "C:\\").ends_in_separator);
}

struct Refusal {
  const char* path;
  DWORD error;
};

class PathToNowhere : public testing::TestWithParam<Refusal> {};

TEST_P(PathToNowhere, IsRefusedBeforeAnyLookUp) {
  EXPECT_EQ(ParsePath(GetParam().path, "C:\\").error, GetParam().error) << GetParam().path;
}

INSTANTIATE_TEST_SUITE_P(Rules, PathToNowhere,
                         testing::Values(Refusal{"\\\\server\\share", ERROR_BAD_NETPATH},
                                         Refusal{"//server/share/a", ERROR_BAD_NETPATH},
                                         Refusal{"\\\\server", ERROR_BAD_PATHNAME},
                                         Refusal{"\\\\", ERROR_BAD_PATHNAME},
                                         Refusal{"\\\\.\\pipe", ERROR_FILE_NOT_FOUND},
                                         Refusal{"\\\\.\\pipe\\a", ERROR_PATH_NOT_FOUND},
                                         Refusal{"\\\\.", ERROR_FILE_NOT_FOUND},
                                         Refusal{"\\\\?\\UNC\\server\\share", ERROR_BAD_NETPATH},
                                         Refusal{"\\\\?\\unc\\server\\share", ERROR_BAD_NETPATH},
                                         Refusal{"\\\\?\\Volume{0}", ERROR_FILE_NOT_FOUND},
                                         Refusal{"\\\\?\\Volume{0}\\a", ERROR_PATH_NOT_FOUND},
                                         Refusal{"\\\\?\\C:a", ERROR_FILE_NOT_FOUND},
                                         Refusal{"\\\\?\\C:/a", ERROR_FILE_NOT_FOUND},
                                         Refusal{"\\\\?\\", ERROR_INVALID_NAME},
                                         Refusal{"\\\\?\\C:", ERROR_INVALID_PARAMETER}));

TEST(VerbatimPath, KeepsNamesAsTheyAre) {
  const PathName parsed = ParsePath("\\\\?\\c:\\a.\\b. \\c/d\\..", "C:\\");
  EXPECT_TRUE(parsed.verbatim);
  EXPECT_EQ(parsed.letter, 'C');
  EXPECT_EQ(parsed.names, (std::vector<std::string>{"a.", "b. ", "c/d", ".."}));
}

TEST(VerbatimPath, EndsInOneSeparatorOnly) {
  const PathName one = ParsePath("\\\\?\\C:\\a\\", "C:\\");
  EXPECT_TRUE(one.ends_in_separator);
  EXPECT_EQ(one.names, std::vector<std::string>{"a"});
  EXPECT_EQ(ParsePath("\\\\?\\C:\\a\\\\", "C:\\").names, (std::vector<std::string>{"a", ""}));
  EXPECT_EQ(ParsePath("\\\\?\\C:\\\\a", "C:\\").names, (std::vector<std::string>{"", "a"}));
}

TEST(VerbatimPath, IsTheRootBehindTheSeparator) {
  const PathName root = ParsePath("\\\\?\\C:\\", "D:\\");
  EXPECT_EQ(root.error, DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(root.names.empty());
}

TEST(VerbatimPath, HasAtMost32767Units) {
  const std::string longest = "\\\\?\\C:\\" + std::string(32764, 'a');
  EXPECT_EQ(ParsePath(longest, "C:\\").error, DWORD{ERROR_SUCCESS});
  EXPECT_EQ(ParsePath(longest + "a", "C:\\").error, DWORD{ERROR_FILENAME_EXCED_RANGE});
}

TEST(NtPath, BeginsWithThePrefixOfDrives) {
  EXPECT_EQ(ParseNtPath("\\??\\d:\\a").letter, 'D');
  EXPECT_EQ(ParseNtPath("D:\\a").error, DWORD{ERROR_INVALID_REPARSE_DATA});
  EXPECT_EQ(ParseNtPath("").error, DWORD{ERROR_INVALID_REPARSE_DATA});
}

class FullPathText : public testing::TestWithParam<Example> {};

TEST_P(FullPathText, IsWhatWin32MakesOfIt) {
  EXPECT_EQ(FullPathName(GetParam().path, "C:\\Windows\\system32"), GetParam().full);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, FullPathText,
    testing::Values(Example{"c:/a//b/", "c:\\a\\b\\"}, Example{"c:a", "c:\\Windows\\system32\\a"},
                    Example{"a", "C:\\Windows\\system32\\a"}, Example{"\\a", "C:\\a"},
                    Example{"d:", "d:\\"}, Example{"d:a", "d:\\a"}, Example{"C:\\..", "C:\\"},
                    Example{"C:\\a. .", "C:\\a"}, Example{"C:\\a\\...", "C:\\a\\"}, Example{"", ""},
                    Example{"  ", ""},
                    Example{"\\\\server\\share\\..\\..\\a", "\\\\server\\share\\a"},
                    Example{"\\\\server\\share\\", "\\\\server\\share\\"},
                    Example{"//server/share/a", "\\\\server\\share\\a"},
                    Example{"\\\\?\\C:\\a\\..\\b", "\\\\?\\C:\\b"},
                    Example{"\\\\?\\C:\\", "\\\\?\\C:\\"}, Example{"\\\\.\\a", "\\\\.\\a"},
                    Example{"\\\\?\\", "\\\\?\\"}, Example{"\\??\\C:\\a", "C:\\??\\C:\\a"}));

TEST(ValidName, IsNeitherOfTheDots) {
  EXPECT_FALSE(IsValidName("."));
  EXPECT_FALSE(IsValidName(".."));
  EXPECT_TRUE(IsValidName("..."));
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
