// Folders made and removed, attributes read and set.
#include <windows.h>

#include <string>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

class DirectoryContract : public HostTest {
 protected:
  DirectoryContract() : file_(PathOf("file.txt")), folder_(PathOf("folder")) {
    WriteBytes(file_, "text");
    MakeFolder(folder_);
  }

  static DWORD AttributesOf(const std::string& path) {
    return ::GetFileAttributesW(Wide(path).c_str());
  }
  static DWORD AttributesError(const std::string& path) {
    return ErrorOf([&] { return AttributesOf(path) != INVALID_FILE_ATTRIBUTES; });
  }
  static DWORD MakeError(const std::string& path) {
    return ErrorOf([&] { return ::CreateDirectoryA(path.c_str(), nullptr); });
  }
  static DWORD RemoveError(const std::string& path) {
    return ErrorOf([&] { return ::RemoveDirectoryA(path.c_str()); });
  }

  const std::string file_;
  const std::string folder_;
};

TEST_F(DirectoryContract, CreateDirectoryMakesOneLevel) {
  EXPECT_EQ(MakeError(PathOf("new\\below")), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(MakeError(PathOf("new")), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(MakeError(PathOf("new\\below\\")), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesOf(PathOf("new\\below")), DWORD{FILE_ATTRIBUTE_DIRECTORY});
}

TEST_F(DirectoryContract, CreateDirectoryKeepsWhatIsThere) {
  EXPECT_EQ(MakeError(folder_), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(MakeError(file_), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(ReadBytes(file_), "text");
}

TEST_F(DirectoryContract, CreateDirectoryMakesNothingBelowAFile) {
  EXPECT_EQ(MakeError(file_ + "\\new"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(DirectoryContract, RemoveDirectoryRemovesAnEmptyFolder) {
  EXPECT_EQ(RemoveError(folder_), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError(folder_), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(RemoveError(folder_), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(DirectoryContract, RemoveDirectoryKeepsAFolderThatHoldsSomething) {
  WriteBytes(folder_ + "\\a", "x");
  EXPECT_EQ(RemoveError(folder_), DWORD{ERROR_DIR_NOT_EMPTY});
  EXPECT_EQ(ReadBytes(folder_ + "\\a"), "x");
}

TEST_F(DirectoryContract, RemoveDirectoryKeepsAFile) {
  EXPECT_EQ(RemoveError(file_), DWORD{ERROR_DIRECTORY});
  EXPECT_EQ(ReadBytes(file_), "text");
}

TEST_F(DirectoryContract, RemoveDirectoryFindsNoPath) {
  EXPECT_EQ(RemoveError(PathOf("missing\\folder")), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(DirectoryContract, DeleteFileKeepsAFolder) {
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(folder_.c_str()); }), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(DirectoryContract, GetFileAttributesTellsFoldersFromFiles) {
  EXPECT_EQ(AttributesOf(folder_), DWORD{FILE_ATTRIBUTE_DIRECTORY});
  EXPECT_EQ(AttributesOf(folder_ + "\\"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
  EXPECT_EQ(AttributesOf(file_), DWORD{FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(DirectoryContract, GetFileAttributesMissesFilesAndPaths) {
  EXPECT_EQ(AttributesError(PathOf("missing")), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(AttributesError(PathOf("missing\\a")), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(AttributesError(""), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(AttributesError(PathOf("a*b")), DWORD{ERROR_INVALID_NAME});
}

TEST_F(DirectoryContract, VerbatimPathsLeadToTheSame) {
  EXPECT_EQ(AttributesOf("\\\\?\\" + file_), DWORD{FILE_ATTRIBUTE_ARCHIVE});
  EXPECT_EQ(AttributesOf("\\\\?\\" + folder_ + "\\"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
  EXPECT_EQ(AttributesError("\\\\?\\" + PathOf("missing")), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(DirectoryContract, VerbatimPathsAreNotResolved) {
  EXPECT_EQ(AttributesError("\\\\?\\" + PathOf("folder\\..\\file.txt")), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(AttributesError("\\\\?\\" + PathOf("folder/below")), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(AttributesError("\\\\?\\" + PathOf("folder\\\\below")), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(AttributesError("\\\\?\\"), DWORD{ERROR_INVALID_NAME});
}

TEST_F(DirectoryContract, VerbatimPathsAreNotBoundedBy260Characters) {
  const std::string below = "\\\\?\\" + folder_ + "\\" + std::string(250, 'b');
  EXPECT_EQ(AttributesError(below), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(AttributesError(below + "\\" + std::string(250, 'c')), DWORD{ERROR_PATH_NOT_FOUND});
}

// They make their path wide in a buffer of that size.
TEST_F(DirectoryContract, NarrowCallsTakeNoMoreThan260Characters) {
  const std::string longest = "\\\\?\\" + folder_ + "\\";
  const std::string fitting = longest + std::string(260 - longest.size(), 'a');
  const auto set_error = [](const std::string& path) {
    return ErrorOf([&] { return ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL); });
  };
  EXPECT_EQ(set_error(fitting), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(set_error(fitting + "a"), DWORD{ERROR_FILENAME_EXCED_RANGE});
  EXPECT_EQ(RemoveError(fitting), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(RemoveError(fitting + "a"), DWORD{ERROR_FILENAME_EXCED_RANGE});
  EXPECT_EQ(MakeError(fitting), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(RemoveError(fitting), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(MakeError(fitting + "a"), DWORD{ERROR_FILENAME_EXCED_RANGE});
}

TEST_F(DirectoryContract, NetworkAndDevicePathsLeadNowhere) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNetworkPath;
  EXPECT_EQ(AttributesError("\\\\?\\Volume{00000000-0000-0000-0000-000000000000}\\a"),
            DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(AttributesError("\\\\.\\no such device"), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(AttributesError("\\\\server"), DWORD{ERROR_BAD_PATHNAME});
}

TEST_F(DirectoryContract, SetFileAttributesSetsThem) {
  ASSERT_TRUE(::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(AttributesOf(file_) & FILE_ATTRIBUTE_READONLY, DWORD{FILE_ATTRIBUTE_READONLY});
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(file_.c_str()); }), DWORD{ERROR_ACCESS_DENIED});
  ASSERT_TRUE(::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_NORMAL));
  EXPECT_EQ(AttributesOf(file_) & FILE_ATTRIBUTE_READONLY, DWORD{0});
}

TEST_F(DirectoryContract, SetFileAttributesLeavesNormalWhenThereIsNone) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kArchiveAttribute;
  for (const DWORD none : {DWORD{0}, DWORD{FILE_ATTRIBUTE_NORMAL}}) {
    ASSERT_TRUE(::SetFileAttributesA(file_.c_str(), none));
    EXPECT_EQ(AttributesOf(file_), DWORD{FILE_ATTRIBUTE_NORMAL});
  }
}

TEST_F(DirectoryContract, SetFileAttributesMakesNoFolder) {
  EXPECT_TRUE(::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_DIRECTORY));
  EXPECT_EQ(AttributesOf(file_) & FILE_ATTRIBUTE_DIRECTORY, DWORD{0});
  EXPECT_TRUE(::SetFileAttributesA(folder_.c_str(), FILE_ATTRIBUTE_HIDDEN));
  EXPECT_NE(AttributesOf(folder_) & FILE_ATTRIBUTE_DIRECTORY, DWORD{0});
}

TEST_F(DirectoryContract, SetFileAttributesMissesFilesAndPaths) {
  const auto error_of = [](const std::string& path) {
    return ErrorOf([&] { return ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL); });
  };
  EXPECT_EQ(error_of(PathOf("missing")), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(error_of(PathOf("missing\\a")), DWORD{ERROR_PATH_NOT_FOUND});
}

}  // namespace
}  // namespace tests
