// How paths to files and folders fail, call by call.
#include <windows.h>

#include <direct.h>
#include <io.h>
#include <share.h>
#include <shlwapi.h>

#include <cerrno>
#include <ostream>
#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

enum Calls : unsigned { kNone = 0, kAccess = 1, kMkdir = 2, kOpen = 4, kWin32 = 8 };

// The answers for one path: an errno for the C runtime's calls, a system error code for Win32's.
struct PathCase {
  const char* name;
  std::string path;  // below a folder with "file.txt" and "folder", or absolute
  int access;
  int mkdir;
  int read;
  int write;
  DWORD exists;
  DWORD remove;
  unsigned not_by_wine = kNone;  // calls that Wine cannot judge
  const char* reason = "";
};

void PrintTo(const PathCase& path_case, std::ostream* out) {
  *out << testing::PrintToString(path_case.path);
}

std::string NameOf(const testing::TestParamInfo<PathCase>& info) { return info.param.name; }

class PathContract : public HostTest, public testing::WithParamInterface<PathCase> {
 protected:
  PathContract() {
    WriteBytes(PathOf("file.txt"), "text");
    MakeFolder(PathOf("folder"));
    const std::string& path = GetParam().path;
    const bool is_absolute =
        path.find(':') != std::string::npos || path.find_first_not_of(' ') == std::string::npos;
    path_ = is_absolute ? path : PathOf(path);
  }

  bool IsLeftToWindows(Calls call) const {
    return (GetParam().not_by_wine & call) != 0 && IsUnderWine();
  }

  int ErrnoOfOpening(const char* mode) const {
    errno = 0;
    const common::UniqueFile file(::_fsopen(path_.c_str(), mode, _SH_DENYNO));
    return file ? 0 : errno;
  }

  std::string path_;
};

TEST_P(PathContract, Access) {
  if (IsLeftToWindows(kAccess)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOf([&] { return ::_access(path_.c_str(), 0); }), GetParam().access);
}

TEST_P(PathContract, Mkdir) {
  if (IsLeftToWindows(kMkdir)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOf([&] { return ::_mkdir(path_.c_str()); }), GetParam().mkdir);
}

TEST_P(PathContract, OpenForReading) {
  if (IsLeftToWindows(kOpen)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOfOpening("r"), GetParam().read);
}

TEST_P(PathContract, OpenForUpdate) {
  if (IsLeftToWindows(kOpen)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOfOpening("r+"), GetParam().read);
}

TEST_P(PathContract, OpenForWriting) {
  if (IsLeftToWindows(kOpen)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOfOpening("w"), GetParam().write);
}

TEST_P(PathContract, OpenForAppending) {
  if (IsLeftToWindows(kOpen)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrnoOfOpening("a"), GetParam().write);
}

TEST_P(PathContract, PathFileExistsA) {
  if (IsLeftToWindows(kWin32)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrorOf([&] { return ::PathFileExistsA(path_.c_str()); }), GetParam().exists);
}

TEST_P(PathContract, DeleteFileA) {
  if (IsLeftToWindows(kWin32)) GTEST_SKIP() << GetParam().reason;
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(path_.c_str()); }), GetParam().remove);
}

constexpr DWORD kFile = ERROR_FILE_NOT_FOUND;
constexpr DWORD kPath = ERROR_PATH_NOT_FOUND;
constexpr DWORD kName = ERROR_INVALID_NAME;
constexpr DWORD kDenied = ERROR_ACCESS_DENIED;

INSTANTIATE_TEST_SUITE_P(
    Paths, PathContract,
    testing::Values(
        // name, path: _access, _mkdir, reading, writing, PathFileExistsA, DeleteFileA
        PathCase{"File", "file.txt", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileInOtherCase", "FILE.Txt", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileWithDot", "file.txt.", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileWithBlank", "file.txt ", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileBehindSlash", "folder/../file.txt", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileByWayOfMissing", "missing\\..\\file.txt", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileBehindTwoBackslashes", "folder\\..\\\\file.txt", 0, EEXIST, 0, 0, 0, 0},
        PathCase{"FileWithBackslash", "file.txt\\", EINVAL, EEXIST, EINVAL, EINVAL, kName, kName,
                 kAccess | kWin32, wine::kFileWithBackslash},
        PathCase{"BelowFile", "file.txt\\below", ENOENT, ENOENT, ENOENT, ENOENT, kPath, kPath},
        PathCase{"Folder", "folder", 0, EEXIST, EACCES, EACCES, 0, kDenied},
        PathCase{"FolderInOtherCase", "FOLDER", 0, EEXIST, EACCES, EACCES, 0, kDenied},
        PathCase{"FolderWithDot", "folder.", 0, EEXIST, EACCES, EACCES, 0, kDenied},
        PathCase{"FolderItself", "folder\\.", 0, EEXIST, EACCES, EACCES, 0, kDenied},
        PathCase{"FolderWithBackslash", "folder\\", 0, EEXIST, ENOENT, ENOENT, 0, kDenied, kOpen,
                 wine::kFolderWithBackslash},
        PathCase{"Missing", "missing", ENOENT, 0, ENOENT, 0, kFile, kFile},
        PathCase{"MissingInFolder", "folder\\missing", ENOENT, 0, ENOENT, 0, kFile, kFile},
        PathCase{"MissingWithBackslash", "missing\\", ENOENT, 0, ENOENT, EINVAL, kFile, kFile},
        PathCase{"BelowMissing", "missing\\below", ENOENT, ENOENT, ENOENT, ENOENT, kPath, kPath},
        PathCase{"BelowMissingWithBackslash", "missing\\below\\", ENOENT, ENOENT, ENOENT, ENOENT,
                 kPath, kPath},
        PathCase{"Star", "fi*", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"QuestionMark", "file.tx?", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"Bar", "a|b", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"Less", "a<b", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"QuotationMark", "a\"b", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"Tab", "a\tb", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"LineEnd", "file.txt\r\n", EINVAL, EINVAL, EINVAL, EINVAL, kName, kName},
        PathCase{"LongName", std::string(100, 'n'), ENOENT, 0, ENOENT, 0, kFile, kFile},
        PathCase{"Empty", "", ENOENT, ENOENT, EINVAL, EINVAL, kPath, kPath, kOpen,
                 wine::kEmptyPathToOpen},
        PathCase{"Blank", "  ", ENOENT, ENOENT, ENOENT, ENOENT, kPath, kPath},
        PathCase{"Root", "C:\\", 0, EACCES, ENOENT, ENOENT, 0, kDenied, kMkdir | kOpen,
                 wine::kRootOfDrive},
        PathCase{"FreeLetter", "Q:\\", ENOENT, ENOENT, ENOENT, ENOENT, kPath, kPath},
        PathCase{"BelowFreeLetter", "Q:\\below", ENOENT, ENOENT, ENOENT, ENOENT, kPath, kPath,
                 kWin32, wine::kFreeLetter},
        PathCase{"TooLong", std::string(200, 'a') + "\\" + std::string(200, 'b'), ENOENT, ENOENT,
                 ENOENT, ENOENT, kPath, kPath, kWin32, wine::kLongPath}),
    NameOf);

// The full path has room for 259 characters, that of a new folder for 247.
class PathLengthContract : public HostTest {
 protected:
  std::string PathOfLength(size_t length) const {
    const std::string middle = PathOf(std::string(100, 'm'));
    if (!Exists(middle)) MakeFolder(middle);
    return middle + "\\" + std::string(length - middle.size() - 1, 'n');
  }

  static bool Opens(const std::string& path) {
    return static_cast<bool>(common::UniqueFile(::_fsopen(path.c_str(), "w", _SH_DENYNO)));
  }
};

TEST_F(PathLengthContract, OpensAFileOf259Characters) { EXPECT_TRUE(Opens(PathOfLength(259))); }

TEST_F(PathLengthContract, OpensNoFileOf260Characters) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLongPath;
  EXPECT_FALSE(Opens(PathOfLength(260)));
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(PathLengthContract, MakesAFolderOf247Characters) {
  EXPECT_EQ(::_mkdir(PathOfLength(247).c_str()), 0);
}

TEST_F(PathLengthContract, MakesNoFolderOf248Characters) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLongPath;
  EXPECT_EQ(ErrnoOf([&] { return ::_mkdir(PathOfLength(248).c_str()); }), ENOENT);
}

}  // namespace
}  // namespace tests
