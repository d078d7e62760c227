#include <windows.h>

#include <gtest/gtest.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <ostream>
#include <string>

#include "simulator/model/server.h"
#include "support/test_names.h"

namespace simulator {
namespace {

class ShellTest : public testing::Test {
 protected:
  Server server_;
};

TEST_F(ShellTest, PathFileExistsTakesFilesAndFolders) {
  server_.files().Write("C:\\a.txt", "x");
  EXPECT_EQ(::PathFileExistsA("C:\\a.txt"), TRUE);
  EXPECT_EQ(::PathFileExistsA("C:\\Windows\\"), TRUE);
  EXPECT_EQ(::PathFileExistsA("C:\\b.txt"), FALSE);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(::PathFileExistsA(nullptr), FALSE);
}

struct Removal {
  const char* name;
  const char* path;
  BOOL removed;
  const char* left;
};

std::ostream& operator<<(std::ostream& out, const Removal& test) { return out << test.name; }

class RemoveFileSpec : public testing::TestWithParam<Removal> {};

TEST_P(RemoveFileSpec, KeepsRoots) {
  Server server;
  std::string path = GetParam().path;
  EXPECT_EQ(::PathRemoveFileSpecA(path.data()), GetParam().removed);
  EXPECT_STREQ(path.c_str(), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, RemoveFileSpec,
    testing::Values(Removal{"File", "C:\\a\\b.exe", TRUE, "C:\\a"},
                    Removal{"FolderWithBackslash", "C:\\a\\", TRUE, "C:\\a"},
                    Removal{"NameInTheRoot", "C:\\a", TRUE, "C:\\"},
                    Removal{"Root", "C:\\", FALSE, "C:\\"}, Removal{"Drive", "C:", FALSE, "C:"},
                    Removal{"NameOnADrive", "C:a", TRUE, "C:"}, Removal{"Name", "a", TRUE, ""},
                    Removal{"Empty", "", FALSE, ""}, Removal{"Backslash", "\\", FALSE, "\\"},
                    Removal{"NameBehindABackslash", "\\a", TRUE, "\\"},
                    Removal{"Slash", "a/b", TRUE, ""},
                    Removal{"Share", "\\\\server\\share", TRUE, "\\\\server"}),
    tests::NamedAsPrinted());

TEST_F(ShellTest, PathRemoveFileSpecLeavesTheLastErrorAlone) {
  char path[] = "C:\\";
  ::SetLastError(1234);
  ::PathRemoveFileSpecA(path);
  EXPECT_EQ(::GetLastError(), 1234u);
}

TEST_F(ShellTest, SpecialFolderIsTheCommonStartUp) {
  char path[MAX_PATH];
  EXPECT_TRUE(::SHGetSpecialFolderPathA(nullptr, path, CSIDL_COMMON_STARTUP, FALSE));
  EXPECT_EQ(path, server_.system().common_startup_directory);
}

TEST_F(ShellTest, SpecialFolderIsMadeOnDemandOnly) {
  server_.files().Remove("C:\\ProgramData");
  char path[MAX_PATH];
  EXPECT_FALSE(::SHGetSpecialFolderPathA(nullptr, path, CSIDL_COMMON_STARTUP, FALSE));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_TRUE(::SHGetSpecialFolderPathA(nullptr, path, CSIDL_COMMON_STARTUP, TRUE));
  EXPECT_TRUE(server_.files().Exists(path));
}

TEST_F(ShellTest, SpecialFolderFailsWhereItCannotBeMade) {
  server_.files().Unmount('C');
  char path[MAX_PATH];
  EXPECT_FALSE(::SHGetSpecialFolderPathA(nullptr, path, CSIDL_COMMON_STARTUP, TRUE));
}

TEST(ShellDeathTest, KnowsOneSpecialFolderOnly) {
  Server server;
  char path[MAX_PATH];
  EXPECT_DEATH(::SHGetSpecialFolderPathA(nullptr, path, 0, FALSE), "special folder");
}

TEST_F(ShellTest, TempPathEndsInABackslash) {
  char path[MAX_PATH];
  server_.system().temp_directory = "C:\\Temp";
  EXPECT_EQ(::GetTempPathA(sizeof(path), path), 8u);
  EXPECT_STREQ(path, "C:\\Temp\\");
}

TEST_F(ShellTest, TempPathAsksForABufferWithRoomForTheTerminator) {
  server_.system().temp_directory = "C:\\Temp";
  char path[9] = "";
  EXPECT_EQ(::GetTempPathA(8, path), 9u);
  EXPECT_STREQ(path, "");
  EXPECT_EQ(::GetTempPathA(9, path), 8u);
}

TEST_F(ShellTest, TempPathIsTheWindowsFolderOfWhoHasNone) {
  server_.system().temp_directory = "";
  char path[MAX_PATH];
  ::GetTempPathA(sizeof(path), path);
  EXPECT_STREQ(path, "C:\\Windows\\");
}

TEST_F(ShellTest, DriveTypeIsThatOfTheVolume) {
  EXPECT_EQ(::GetDriveTypeA("c:\\"), UINT{DRIVE_FIXED});
  EXPECT_EQ(::GetDriveTypeA("q:\\"), UINT{DRIVE_NO_ROOT_DIR});
}

TEST_F(ShellTest, DeleteFileTellsWhyItCannot) {
  EXPECT_FALSE(::DeleteFileA("C:\\missing"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
  server_.calls().FailNext("DeleteFileA", ERROR_NOT_READY);
  server_.files().Write("C:\\a.txt", "x");
  EXPECT_FALSE(::DeleteFileA("C:\\a.txt"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_READY});
  EXPECT_TRUE(server_.files().Exists("C:\\a.txt"));
}

}  // namespace
}  // namespace simulator
