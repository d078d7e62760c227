// What the existence test, new folders and deleted files do besides failing on a path.
#include <windows.h>

#include <direct.h>
#include <io.h>
#include <share.h>

#include <cerrno>
#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr int kWrite = 2;
constexpr int kRead = 4;

class FileContract : public HostTest {
 protected:
  FileContract() : file_(PathOf("file.txt")) { WriteBytes(file_, "text"); }

  const std::string file_;
};

TEST_F(FileContract, AccessAllowsReadingAndWriting) {
  EXPECT_EQ(::_access(file_.c_str(), kRead), 0);
  EXPECT_EQ(::_access(file_.c_str(), kWrite), 0);
  EXPECT_EQ(::_access(file_.c_str(), kRead | kWrite), 0);
}

TEST_F(FileContract, AccessRefusesOtherModes) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kAccessMode;
  for (const int mode : {1, 3, 8, -1}) {
    EXPECT_EQ(ErrnoOf([&] { return ::_access(file_.c_str(), mode); }), EINVAL) << mode;
  }
}

TEST_F(FileContract, AccessRefusesNoPath) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNoPath;
  EXPECT_EQ(ErrnoOf([] { return ::_access(nullptr, 0); }), EINVAL);
}

TEST_F(FileContract, MkdirRefusesNoPath) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNoPath;
  EXPECT_EQ(ErrnoOf([] { return ::_mkdir(nullptr); }), EINVAL);
}

TEST_F(FileContract, AccessLeavesErrnoOfASuccess) {
  errno = ERANGE;
  EXPECT_EQ(::_access(file_.c_str(), 0), 0);
  EXPECT_EQ(errno, ERANGE);
}

TEST_F(FileContract, MkdirMakesAnEmptyFolder) {
  ASSERT_EQ(::_mkdir(PathOf("new").c_str()), 0);
  EXPECT_EQ(::_access(PathOf("new").c_str(), 0), 0);
  EXPECT_EQ(::_access(PathOf("new\\file.txt").c_str(), 0), -1);
}

TEST_F(FileContract, MkdirMakesOneLevelAfterTheOther) {
  EXPECT_EQ(::_mkdir(PathOf("new\\below").c_str()), -1);
  EXPECT_EQ(::_mkdir(PathOf("new").c_str()), 0);
  EXPECT_EQ(::_mkdir(PathOf("new\\below").c_str()), 0);
}

TEST_F(FileContract, MkdirDropsFinalBackslash) {
  EXPECT_EQ(::_mkdir(PathOf("new\\").c_str()), 0);
  EXPECT_EQ(::_access(PathOf("new").c_str(), 0), 0);
}

TEST_F(FileContract, MkdirKeepsBlanksWithinAName) {
  EXPECT_EQ(::_mkdir(PathOf("new folder").c_str()), 0);
  EXPECT_EQ(::_access(PathOf("new").c_str(), 0), -1);
  EXPECT_EQ(::_access(PathOf("new folder").c_str(), 0), 0);
}

TEST_F(FileContract, DeleteFileRemovesIt) {
  EXPECT_TRUE(::DeleteFileA(file_.c_str()));
  EXPECT_FALSE(Exists(file_));
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(file_.c_str()); }), ERROR_FILE_NOT_FOUND);
}

TEST_F(FileContract, DeleteFileKeepsAnOpenFile) {
  for (const char* mode : {"r", "a"}) {
    const common::UniqueFile open(::_fsopen(file_.c_str(), mode, _SH_DENYNO));
    ASSERT_TRUE(open);
    EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(file_.c_str()); }), ERROR_SHARING_VIOLATION);
  }
  EXPECT_EQ(ReadBytes(file_), "text");
}

TEST_F(FileContract, DeleteFileRemovesAClosedFile) {
  common::UniqueFile(::_fsopen(file_.c_str(), "a", _SH_DENYNO)).reset();
  EXPECT_TRUE(::DeleteFileA(file_.c_str()));
}

}  // namespace
}  // namespace tests
