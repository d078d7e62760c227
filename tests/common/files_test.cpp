#include "common/files.h"

#include <gtest/gtest.h>

#include <string>

#include "support/host.h"
#include "support/printed_text.h"

namespace common {
namespace {

using namespace std::string_literals;

class FilesTest : public tests::HostTest {};

TEST_F(FilesTest, CreateAndWriteFileMakesAFile) {
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), "text"));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), "text");
}

TEST_F(FilesTest, CreateAndWriteFileTruncatesAFile) {
  WriteBytes(PathOf("a.txt"), "a longer text");
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), "text"));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), "text");
}

TEST_F(FilesTest, CreateAndWriteFileMakesAnEmptyFileOfAnEmptyText) {
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), ""));
  EXPECT_TRUE(Exists(PathOf("a.txt")));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), "");
}

TEST_F(FilesTest, CreateAndWriteFileTruncatesAFileForAnEmptyText) {
  WriteBytes(PathOf("a.txt"), "text");
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), ""));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), "");
}

TEST_F(FilesTest, CreateAndWriteFileWritesInTextMode) {
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), "a\nb\r\nc\r\n\n"));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), "a\r\nb\r\r\nc\r\r\n\r\n");
}

TEST_F(FilesTest, CreateAndWriteFileWritesBeyondZeroBytes) {
  const std::string text = "a\0b\0\xFF\x1A%s"s;
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), text));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), text);
}

TEST_F(FilesTest, CreateAndWriteFileWritesHugeTexts) {
  const std::string text(3'000'000, 'x');
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), text));
  EXPECT_EQ(ReadBytes(PathOf("a.txt")), text);
}

TEST_F(FilesTest, CreateAndWriteFilePrintsNothingOnSuccess) {
  tests::PrintedText printed;
  EXPECT_TRUE(CreateAndWriteFile(PathOf("a.txt"), "text"));
  EXPECT_EQ(printed.Take(), "");
}

TEST_F(FilesTest, CreateAndWriteFileReportsAMissingFolder) {
  const std::string path = PathOf("missing\\a.txt");
  tests::PrintedText printed;
  EXPECT_FALSE(CreateAndWriteFile(path, "text"));
  EXPECT_EQ(printed.Take(),
            "common::CreateAndWriteFile [" + path + "], Error: No such file or directory\r\n");
}

TEST_F(FilesTest, CreateAndWriteFileReportsAFolderInItsPlace) {
  const std::string path = PathOf("100%s %n");
  MakeFolder(path);
  tests::PrintedText printed;
  EXPECT_FALSE(CreateAndWriteFile(path, "text"));
  EXPECT_EQ(printed.Take(),
            "common::CreateAndWriteFile [" + path + "], Error: Permission denied\r\n");
}

TEST_F(FilesTest, CreateAndWriteFileReportsAnEmptyPath) {
  tests::PrintedText printed;
  EXPECT_FALSE(CreateAndWriteFile("", "text"));
  EXPECT_EQ(printed.Take().substr(0, 38), "common::CreateAndWriteFile [], Error: ");
}

TEST_F(FilesTest, CreateDirMakesOneLevel) {
  tests::PrintedText printed;
  EXPECT_TRUE(CreateDir(PathOf("a")));
  EXPECT_TRUE(CreateDir(PathOf("a\\b\\")));
  EXPECT_TRUE(Exists(PathOf("a\\b")));
  EXPECT_EQ(printed.Take(), "");
}

TEST_F(FilesTest, CreateDirReportsAMissingParent) {
  const std::string path = PathOf("a\\b");
  tests::PrintedText printed;
  EXPECT_FALSE(CreateDir(path));
  EXPECT_EQ(printed.Take(),
            "common::CreateDir [" + path + "], Error: No such file or directory\r\n");
  EXPECT_FALSE(Exists(PathOf("a")));
}

TEST_F(FilesTest, CreateDirReportsAFolderThatIsThere) {
  MakeFolder(PathOf("a"));
  tests::PrintedText printed;
  EXPECT_FALSE(CreateDir(PathOf("a")));
  EXPECT_EQ(printed.Take(), "common::CreateDir [" + PathOf("a") + "], Error: File exists\r\n");
}

TEST_F(FilesTest, CreateDirReportsAFileInItsPlace) {
  WriteBytes(PathOf("a"), "x");
  tests::PrintedText printed;
  EXPECT_FALSE(CreateDir(PathOf("a")));
  EXPECT_EQ(printed.Take(), "common::CreateDir [" + PathOf("a") + "], Error: File exists\r\n");
}

TEST_F(FilesTest, CreateDirReportsAnEmptyPath) {
  tests::PrintedText printed;
  EXPECT_FALSE(CreateDir(""));
  EXPECT_EQ(printed.Take(), "common::CreateDir [], Error: No such file or directory\r\n");
}

TEST_F(FilesTest, ExistsKnowsFilesAndFolders) {
  WriteBytes(PathOf("a.txt"), "");
  MakeFolder(PathOf("folder"));
  EXPECT_TRUE(common::Exists(PathOf("a.txt")));
  EXPECT_TRUE(common::Exists(PathOf("A.TXT")));
  EXPECT_TRUE(common::Exists(PathOf("folder")));
  EXPECT_TRUE(common::Exists(PathOf("folder\\")));
}

TEST_F(FilesTest, ExistsIsFalseForWhatIsNotThere) {
  WriteBytes(PathOf("a.txt"), "");
  for (const std::string& path : {""s, PathOf("b.txt"), PathOf("a\\b"), PathOf("a.txt\\b"),
                                  PathOf(std::string(5000, 'a')), PathOf("a|b?"), "?"s}) {
    EXPECT_FALSE(common::Exists(path)) << path;
  }
}

}  // namespace
}  // namespace common
