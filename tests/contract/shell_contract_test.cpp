// Path helpers and folders of the shell, drive types and the temporary folder.
#include <windows.h>

#include <io.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <string>

#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class ShellContract : public HostTest {};

TEST_F(ShellContract, PathRemoveFileSpecCutsTheLastName) {
  const struct {
    std::string path;
    BOOL answer;
    std::string rest;
  } cases[] = {
      {"C:\\a\\b", TRUE, "C:\\a"},
      {"C:\\a b\\c d.txt", TRUE, "C:\\a b"},
      {"C:\\a\\b\\", TRUE, "C:\\a\\b"},
      {"C:\\a\\", TRUE, "C:\\a"},
      {"C:\\a", TRUE, "C:\\"},
      {"C:\\", FALSE, "C:\\"},
      {"C:", FALSE, "C:"},
      {"C:a", TRUE, "C:"},
      {"C:a\\b", TRUE, "C:a"},
      {"C:\\\\a", TRUE, "C:\\"},
      {"C:\\a\\\\b", TRUE, "C:\\a\\"},
      {"C:/a", TRUE, "C:"},
      {"C:\\a/b\\c", TRUE, "C:\\a/b"},
      {"a", TRUE, ""},
      {"a\\", TRUE, "a"},
      {"a\\b", TRUE, "a"},
      {"a/b", TRUE, ""},
      {"..", TRUE, ""},
      {".\\a", TRUE, "."},
      {"a:b:c", TRUE, "a:b:"},
      {"", FALSE, ""},
      {"\\", FALSE, "\\"},
      {"\\a", TRUE, "\\"},
      {"\\a\\b", TRUE, "\\a"},
      {"\\\\", FALSE, "\\\\"},
      {"\\\\server", TRUE, "\\\\"},
      {"\\\\server\\share", TRUE, "\\\\server"},
      {"\\\\server\\share\\file", TRUE, "\\\\server\\share"},
  };
  for (const auto& [path, answer, rest] : cases) {
    std::string buffer = path;
    EXPECT_EQ(::PathRemoveFileSpecA(buffer.data()) != FALSE, answer != FALSE) << path;
    EXPECT_STREQ(buffer.c_str(), rest.c_str()) << path;
  }
}

TEST_F(ShellContract, PathRemoveFileSpecLeavesTheLastError) {
  for (std::string path : {"C:\\a\\b", "C:\\"}) {
    ::SetLastError(kNobodysError);
    ::PathRemoveFileSpecA(path.data());
    EXPECT_EQ(::GetLastError(), kNobodysError) << path;
  }
}

TEST_F(ShellContract, PathRemoveFileSpecTakesNoPath) {
  EXPECT_FALSE(::PathRemoveFileSpecA(nullptr));
}

TEST_F(ShellContract, PathFileExistsTakesNoPath) { EXPECT_FALSE(::PathFileExistsA(nullptr)); }

TEST_F(ShellContract, CommonStartupIsAFolder) {
  char path[MAX_PATH] = {};
  ASSERT_TRUE(::SHGetSpecialFolderPathA(nullptr, path, CSIDL_COMMON_STARTUP, TRUE));
  EXPECT_EQ(::_access(path, 0), 0);
  const std::string text = path;
  EXPECT_EQ(text.substr(1, 2), ":\\");
  EXPECT_NE(text.back(), '\\');
}

TEST_F(ShellContract, DriveTypesAreThoseOfRoots) {
  EXPECT_EQ(::GetDriveTypeA("C:\\"), DRIVE_FIXED);
  EXPECT_EQ(::GetDriveTypeA("c:\\"), DRIVE_FIXED);
  EXPECT_EQ(::GetDriveTypeA("C:"), DRIVE_FIXED);
  EXPECT_EQ(::GetDriveTypeA("C:/"), DRIVE_FIXED);
  for (const char* path : {"Q:\\", "Q:", "1:\\", "?:\\", "C", "", "C:\\no such folder\\"}) {
    EXPECT_EQ(::GetDriveTypeA(path), DRIVE_NO_ROOT_DIR) << path;
  }
}

TEST_F(ShellContract, TempPathEndsInABackslash) {
  char path[MAX_PATH + 1] = {};
  const DWORD length = ::GetTempPathA(sizeof path, path);
  ASSERT_GT(length, 3u);
  EXPECT_EQ(std::string(path).size(), length);
  EXPECT_EQ(path[length - 1], '\\');
  EXPECT_NE(path[length - 2], '\\');
}

TEST_F(ShellContract, TempPathTellsTheRoomItNeeds) {
  char path[MAX_PATH + 1] = {};
  const DWORD length = ::GetTempPathA(sizeof path, path);
  EXPECT_EQ(::GetTempPathA(0, nullptr), length + 1);
  EXPECT_EQ(::GetTempPathA(1, path), length + 1);
  EXPECT_EQ(::GetTempPathA(length, path), length + 1);
  EXPECT_EQ(::GetTempPathA(length + 1, path), length);
}

}  // namespace
}  // namespace tests
