// The error mode of the process, and drives without a medium.
#include <windows.h>

#include <aclapi.h>
#include <direct.h>
#include <io.h>
#include <share.h>
#include <shlwapi.h>

#include <cerrno>
#include <optional>
#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/empty_drive.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr UINT kNoBoxes = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;

class ErrorModeContract : public HostTest {
 protected:
  ErrorModeContract() : before_(::SetErrorMode(kNoBoxes)) {}
  ~ErrorModeContract() override { ::SetErrorMode(before_); }

 private:
  const UINT before_;
};

TEST_F(ErrorModeContract, SetErrorModeReturnsThePreviousMode) {
  EXPECT_EQ(::SetErrorMode(SEM_FAILCRITICALERRORS), kNoBoxes);
  EXPECT_EQ(::SetErrorMode(SEM_NOOPENFILEERRORBOX), UINT{SEM_FAILCRITICALERRORS});
  EXPECT_EQ(::SetErrorMode(0), UINT{SEM_NOOPENFILEERRORBOX});
  EXPECT_EQ(::SetErrorMode(kNoBoxes), 0U);
}

// Every call that the program makes with a path.
class EmptyDriveContract : public ErrorModeContract {
 protected:
  void SetUp() override {
    if (IsUnderWine()) GTEST_SKIP() << wine::kEmptyDrive;
    const std::optional<std::string> root = RootOfEmptyDrive();
    if (!root) GTEST_SKIP() << "This machine has no drive without a medium";
    root_ = *root;
    file_ = root_ + "file.txt";
  }

  static std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

  static int ErrnoOfOpening(const std::string& path, const char* mode) {
    errno = 0;
    const common::UniqueFile file(::_fsopen(path.c_str(), mode, _SH_DENYNO));
    return file ? 0 : errno;
  }
  static DWORD OpenError(const std::string& path, DWORD flags) {
    return ErrorOf([&] {
      const common::UniqueFileHandle file(::CreateFileW(Wide(path).c_str(), GENERIC_READ,
                                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                        OPEN_EXISTING, flags, nullptr));
      return static_cast<bool>(file);
    });
  }

  std::string root_;
  std::string file_;
};

TEST_F(EmptyDriveContract, HasADriveType) {
  const UINT type = ::GetDriveTypeA(root_.c_str());
  EXPECT_TRUE(type == DRIVE_CDROM || type == DRIVE_REMOVABLE) << type;
}

TEST_F(EmptyDriveContract, DeniesAccessToTheCRuntime) {
  EXPECT_EQ(ErrnoOf([&] { return ::_access(root_.c_str(), 0); }), EACCES);
  EXPECT_EQ(ErrnoOf([&] { return ::_access(file_.c_str(), 0); }), EACCES);
  EXPECT_EQ(ErrnoOf([&] { return ::_mkdir(file_.c_str()); }), EACCES);
  EXPECT_EQ(ErrnoOfOpening(file_, "r"), EACCES);
  EXPECT_EQ(ErrnoOfOpening(file_, "w"), EACCES);
}

TEST_F(EmptyDriveContract, IsNotReadyForQueries) {
  for (const std::string& path : {root_, file_, root_ + "folder\\file.txt"}) {
    EXPECT_EQ(ErrorOf([&] {
                return ::GetFileAttributesW(Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
              }),
              DWORD{ERROR_NOT_READY})
        << path;
    EXPECT_EQ(ErrorOf([&] { return ::PathFileExistsA(path.c_str()); }), DWORD{ERROR_NOT_READY})
        << path;
  }
}

TEST_F(EmptyDriveContract, IsNotReadyToBeOpened) {
  EXPECT_EQ(OpenError(root_, FILE_FLAG_BACKUP_SEMANTICS), DWORD{ERROR_NOT_READY});
  EXPECT_EQ(OpenError(file_, 0), DWORD{ERROR_NOT_READY});
}

TEST_F(EmptyDriveContract, IsNotReadyForChanges) {
  EXPECT_EQ(ErrorOf([&] { return ::CreateDirectoryA(file_.c_str(), nullptr); }),
            DWORD{ERROR_NOT_READY});
  EXPECT_EQ(ErrorOf([&] { return ::RemoveDirectoryA(file_.c_str()); }), DWORD{ERROR_NOT_READY});
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(file_.c_str()); }), DWORD{ERROR_NOT_READY});
  EXPECT_EQ(ErrorOf([&] { return ::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_NORMAL); }),
            DWORD{ERROR_NOT_READY});
  std::string path = file_;
  EXPECT_EQ(::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, nullptr, nullptr),
            DWORD{ERROR_NOT_READY});
}

TEST_F(EmptyDriveContract, HasFullPaths) {
  wchar_t full[MAX_PATH] = {};
  EXPECT_EQ(::GetFullPathNameW(Wide(file_).c_str(), MAX_PATH, full, nullptr), file_.size());
}

// PathFileExists shows no box of its own accord.
TEST_F(EmptyDriveContract, IsLookedAtByPathFileExistsInAnyMode) {
  ::SetErrorMode(0);
  EXPECT_EQ(ErrorOf([&] { return ::PathFileExistsA(root_.c_str()); }), DWORD{ERROR_NOT_READY});
}

}  // namespace
}  // namespace tests
