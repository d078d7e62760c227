#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/common/path_name.h"
#include "support/test_names.h"

namespace simulator {
namespace {

std::string Full(const std::string& path) {
  const PathName parsed = ParsePath(path, "C:\\Windows\\system32");
  std::string full = {parsed.letter, ':'};
  for (const std::string& name : parsed.names) full += "\\" + name;
  return full;
}

struct Example {
  const char* name;
  const char* path;
  const char* full;
};

std::ostream& operator<<(std::ostream& out, const Example& test) { return out << test.name; }

class FullPath : public testing::TestWithParam<Example> {};

TEST_P(FullPath, IsWhatWin32MakesOfIt) { EXPECT_EQ(Full(GetParam().path), GetParam().full); }

INSTANTIATE_TEST_SUITE_P(
    Rules, FullPath,
    testing::Values(Example{"SmallLetter", "c:\\a\\b.txt", "C:\\a\\b.txt"},
                    Example{"Slashes", "C:/a/b", "C:\\a\\b"},
                    Example{"TwoBackslashes", "C:\\a\\\\b", "C:\\a\\b"},
                    Example{"FolderItself", "C:\\a\\.\\b", "C:\\a\\b"},
                    Example{"FolderAbove", "C:\\a\\..\\b", "C:\\b"},
                    Example{"AboveTheRoot", "C:\\..\\..\\b", "C:\\b"},
                    Example{"FinalDotsAndBlanks", "C:\\a.txt. .", "C:\\a.txt"},
                    Example{"DotBehindAFolder", "C:\\a.\\b", "C:\\a\\b"},
                    Example{"TwoDotsBehindAFolder", "C:\\a..\\b", "C:\\a..\\b"},
                    Example{"BlankBehindAFolder", "C:\\a \\b", "C:\\a \\b"},
                    Example{"BlankBehindTheLastFolder", "C:\\a \\", "C:\\a "},
                    Example{"ThreeDots", "C:\\a\\...", "C:\\a"},
                    Example{"BlankInFront", "C:\\ a", "C:\\ a"},
                    Example{"NameAlone", "a.txt", "C:\\Windows\\system32\\a.txt"},
                    Example{"AboveTheCurrentFolder", "..\\a", "C:\\Windows\\a"},
                    Example{"RootOfTheCurrentDrive", "\\a", "C:\\a"},
                    Example{"NameInAFolderOfTheDrive", "C:a", "C:\\Windows\\system32\\a"},
                    Example{"NameOnAnotherDrive", "d:a", "D:\\a"},
                    Example{"DriveAlone", "C:", "C:\\Windows\\system32"},
                    Example{"DriveOfNoLetter", "{:\\", "{:"}),
    tests::NamedAsPrinted());

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
  const char* name;
  const char* path;
  DWORD error;
};

std::ostream& operator<<(std::ostream& out, const Refusal& test) { return out << test.name; }

class PathToNowhere : public testing::TestWithParam<Refusal> {};

TEST_P(PathToNowhere, IsRefusedBeforeAnyLookUp) {
  EXPECT_EQ(ParsePath(GetParam().path, "C:\\").error, GetParam().error) << GetParam().path;
}

INSTANTIATE_TEST_SUITE_P(
    Rules, PathToNowhere,
    testing::Values(Refusal{"Share", "\\\\server\\share", ERROR_BAD_NETPATH},
                    Refusal{"ShareWithSlashes", "//server/share/a", ERROR_BAD_NETPATH},
                    Refusal{"ServerAlone", "\\\\server", ERROR_BAD_PATHNAME},
                    Refusal{"TwoBackslashes", "\\\\", ERROR_BAD_PATHNAME},
                    Refusal{"Pipe", "\\\\.\\pipe", ERROR_FILE_NOT_FOUND},
                    Refusal{"PipeByName", "\\\\.\\pipe\\a", ERROR_PATH_NOT_FOUND},
                    Refusal{"Devices", "\\\\.", ERROR_FILE_NOT_FOUND},
                    Refusal{"VerbatimShare", "\\\\?\\UNC\\server\\share", ERROR_BAD_NETPATH},
                    Refusal{"VerbatimShareInLowerCase", "\\\\?\\unc\\server\\share",
                            ERROR_BAD_NETPATH},
                    Refusal{"Volume", "\\\\?\\Volume{0}", ERROR_FILE_NOT_FOUND},
                    Refusal{"BelowAVolume", "\\\\?\\Volume{0}\\a", ERROR_PATH_NOT_FOUND},
                    Refusal{"VerbatimNameOnADrive", "\\\\?\\C:a", ERROR_FILE_NOT_FOUND},
                    Refusal{"VerbatimSlash", "\\\\?\\C:/a", ERROR_FILE_NOT_FOUND},
                    Refusal{"VerbatimPrefix", "\\\\?\\", ERROR_INVALID_NAME},
                    Refusal{"VerbatimDrive", "\\\\?\\C:", ERROR_INVALID_PARAMETER}),
    tests::NamedAsPrinted());

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
    testing::Values(
        Example{"SlashesAndTheirDoubles", "c:/a//b/", "c:\\a\\b\\"},
        Example{"NameInAFolderOfTheDrive", "c:a", "c:\\Windows\\system32\\a"},
        Example{"NameAlone", "a", "C:\\Windows\\system32\\a"},
        Example{"RootOfTheCurrentDrive", "\\a", "C:\\a"}, Example{"OtherDriveAlone", "d:", "d:\\"},
        Example{"NameOnAnotherDrive", "d:a", "d:\\a"}, Example{"AboveTheRoot", "C:\\..", "C:\\"},
        Example{"FinalDotsAndBlanks", "C:\\a. .", "C:\\a"},
        Example{"ThreeDots", "C:\\a\\...", "C:\\a\\"}, Example{"Empty", "", ""},
        Example{"Blanks", "  ", ""},
        Example{"AboveTheShare", "\\\\server\\share\\..\\..\\a", "\\\\server\\share\\a"},
        Example{"ShareWithBackslash", "\\\\server\\share\\", "\\\\server\\share\\"},
        Example{"ShareWithSlashes", "//server/share/a", "\\\\server\\share\\a"},
        Example{"Verbatim", "\\\\?\\C:\\a\\..\\b", "\\\\?\\C:\\b"},
        Example{"VerbatimRoot", "\\\\?\\C:\\", "\\\\?\\C:\\"},
        Example{"Device", "\\\\.\\a", "\\\\.\\a"}, Example{"VerbatimPrefix", "\\\\?\\", "\\\\?\\"},
        Example{"NtPrefix", "\\??\\C:\\a", "C:\\??\\C:\\a"}),
    tests::NamedAsPrinted());

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

TEST(NameOrder, IsThatOfTheKeys) {
  const std::vector<std::string> names = {"", "A", "a", "a.", "aB", "AC", "Z", "_", "\xC3\x84"};
  for (const std::string& a : names) {
    for (const std::string& b : names) {
      EXPECT_EQ(IsNameBefore(a, b), NameKey(a) < NameKey(b)) << a << " " << b;
    }
  }
}

}  // namespace
}  // namespace simulator
