#include <windows.h>

#include <direct.h>
#include <gtest/gtest.h>
#include <io.h>
#include <share.h>
#include <stdio.h>

#include <cerrno>
#include <memory>
#include <string>

#include "simulator/api/call.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

struct CloseFile {
  void operator()(FILE* file) const { fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

class CrtFilesTest : public testing::Test {
 protected:
  static File Open(const std::string& path, const std::string& mode) {
    return File(_fsopen(path.c_str(), mode.c_str(), _SH_DENYNO));
  }
  std::string Content() { return server_.files().Read("C:\\a.txt").value_or("missing"); }

  Server server_;
};

TEST_F(CrtFilesTest, WriteText) {
  fputs("a\nb\n", Open("C:\\a.txt", "w+").get());
  EXPECT_EQ(Content(), "a\r\nb\r\n");
}

TEST_F(CrtFilesTest, WriteBinary) {
  fputs("a\n", Open("C:\\a.txt", "wb").get());
  EXPECT_EQ(Content(), "a\n");
}

TEST_F(CrtFilesTest, TakeTheLettersOfTheModeInAnyOrder) {
  for (const char* mode : {"wt+", "w+t", "wb+", "w+b"}) {
    const File file = Open("C:\\a.txt", mode);
    ASSERT_TRUE(file) << mode;
    EXPECT_EQ(fgetc(file.get()), EOF);
    EXPECT_FALSE(ferror(file.get())) << mode;
  }
}

TEST_F(CrtFilesTest, Append) {
  server_.files().Write("C:\\a.txt", "1");
  fputs("2", Open("C:\\a.txt", "a").get());
  EXPECT_EQ(Content(), "12");
}

TEST_F(CrtFilesTest, ReadTextByLines) {
  server_.files().Write("C:\\a.txt", "one\r\ntwo\x1Athree");
  const File file = Open("C:\\a.txt", "r");
  char line[16];
  EXPECT_STREQ(fgets(line, sizeof(line), file.get()), "one\n");
  EXPECT_STREQ(fgets(line, sizeof(line), file.get()), "two");
  EXPECT_EQ(fgets(line, sizeof(line), file.get()), nullptr);
}

TEST_F(CrtFilesTest, OpenByWideNames) {
  server_.files().Write("C:\\\xC3\xA4.txt", "x");
  const File file(_wfsopen(L"C:\\\u00E4.txt", L"rb", _SH_DENYNO));
  ASSERT_TRUE(file);
  EXPECT_EQ(fgetc(file.get()), 'x');
}

TEST_F(CrtFilesTest, TellWhyTheyDoNotOpen) {
  EXPECT_FALSE(Open("C:\\missing", "r"));
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(Open("C:\\Windows", "w"));
  EXPECT_EQ(errno, EACCES);
  EXPECT_FALSE(Open("C:\\a?", "w"));
  EXPECT_EQ(errno, EINVAL);
  EXPECT_FALSE(Open("", "w"));
  EXPECT_EQ(errno, EINVAL);
  EXPECT_FALSE(Open("C:\\a.txt", "q"));
  EXPECT_EQ(errno, EINVAL);
}

TEST_F(CrtFilesTest, ForbidDeletingWhileTheyAreOpen) {
  const File file = Open("C:\\a.txt", "w");
  EXPECT_FALSE(::DeleteFileA("C:\\a.txt"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(CrtFilesTest, FailToCloseOnAFullDisk) {
  File file = Open("C:\\a.txt", "w");
  server_.files().SetFreeSpace('C', 2);
  fputs("123", file.get());
  EXPECT_EQ(fclose(file.release()), EOF);
  EXPECT_EQ(errno, ENOSPC);
  EXPECT_EQ(Content(), "12");
}

TEST_F(CrtFilesTest, FailByFaultsOfTheRuntimesOwnCalls) {
  server_.calls().FailNext("_open", EMFILE);
  EXPECT_FALSE(Open("C:\\a.txt", "w"));
  EXPECT_EQ(errno, EMFILE);

  File file = Open("C:\\a.txt", "w");
  server_.calls().FailNext("_close", EIO);
  EXPECT_EQ(fclose(file.release()), EOF);
  EXPECT_EQ(errno, EIO);
  EXPECT_TRUE(::DeleteFileA("C:\\a.txt"));
}

TEST_F(CrtFilesTest, ReportAReadThatFails) {
  server_.files().Write("C:\\a.txt", "x");
  const File file = Open("C:\\a.txt", "r");
  server_.calls().FailNext("_read", EIO);
  EXPECT_EQ(fgetc(file.get()), EOF);
  EXPECT_TRUE(ferror(file.get()));
}

TEST(CrtFilesDeathTest, HonourOneSharingModeOnly) {
  Server server;
  EXPECT_DEATH(_fsopen("C:\\a.txt", "w", _SH_DENYRW), "sharing mode");
  EXPECT_DEATH(_fsopen("C:\\a.txt", "w, ccs=UTF-8", _SH_DENYNO), "file mode");
}

TEST_F(CrtFilesTest, AccessAsksForExistence) {
  EXPECT_EQ(_access("C:\\Windows\\", 0), 0);
  EXPECT_EQ(_access("Q:\\", 0), -1);
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(CrtFilesTest, AccessRefusesWritingWhatIsReadOnly) {
  server_.files().Write("C:\\a.txt", "x");
  server_.files().SetAttributes("C:\\a.txt", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(_access("C:\\a.txt", 4), 0);
  EXPECT_EQ(_access("C:\\a.txt", 2), -1);
  EXPECT_EQ(errno, EACCES);
}

TEST_F(CrtFilesTest, AccessRefusesOtherModes) {
  EXPECT_EQ(_access("C:\\", 1), -1);
  EXPECT_EQ(errno, EINVAL);
}

TEST_F(CrtFilesTest, MkdirMakesOneLevel) {
  EXPECT_EQ(_mkdir("C:\\a\\b"), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(_mkdir("C:\\a"), 0);
  EXPECT_EQ(_mkdir("C:\\a"), -1);
  EXPECT_EQ(errno, EEXIST);
}

TEST(ErrnoOf, MapsSystemErrorsAsTheRuntimeDoes) {
  EXPECT_EQ(ErrnoOf(ERROR_PATH_NOT_FOUND), ENOENT);
  EXPECT_EQ(ErrnoOf(ERROR_SHARING_VIOLATION), EACCES);
  EXPECT_EQ(ErrnoOf(ERROR_WRITE_PROTECT), EACCES);
  EXPECT_EQ(ErrnoOf(ERROR_DISK_FULL), ENOSPC);
  EXPECT_EQ(ErrnoOf(ERROR_INVALID_NAME), EINVAL);
  EXPECT_EQ(ErrnoOf(ERROR_FILENAME_EXCED_RANGE), ENOENT);
}

}  // namespace
}  // namespace simulator
