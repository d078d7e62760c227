// File streams of the C++ library: opening, closing, states and text mode.
#include <istream>
#include <string>

#include "common/file_stream.h"
#include "contract/wine_differences.h"
#include "support/host.h"

namespace tests {
namespace {

using std::ios_base;

class FileStreamContract : public HostTest {
 protected:
  FileStreamContract() : path_(PathOf("file.txt")) {}

  bool Opens(const std::string& path, ios_base::openmode mode) const {
    common::FileStream stream;
    stream.open(path, mode);
    EXPECT_EQ(stream.is_open(), stream.good());
    EXPECT_EQ(stream.is_open(), !stream.fail());
    return stream.is_open();
  }

  // What the file holds behind opening it that way and writing.
  std::string Write(ios_base::openmode mode, const std::string& text) const {
    common::FileStream stream;
    stream.open(path_, mode);
    stream << text;
    stream.close();
    EXPECT_TRUE(stream.good());
    return ReadBytes(path_);
  }

  const std::string path_;
};

constexpr ios_base::openmode kIn = ios_base::in;
constexpr ios_base::openmode kOut = ios_base::out;
constexpr ios_base::openmode kApp = ios_base::app;
constexpr ios_base::openmode kTrunc = ios_base::trunc;
constexpr ios_base::openmode kBinary = ios_base::binary;

TEST_F(FileStreamContract, OpensAMissingFileOnlyToMakeIt) {
  const struct {
    ios_base::openmode mode;
    bool opens;
  } cases[] = {
      {kIn, false},          {kIn | kOut, false},         {kOut, true},
      {kOut | kTrunc, true}, {kIn | kOut | kTrunc, true}, {kApp, true},
      {kOut | kApp, true},   {kIn | kApp, true},          {kIn | kOut | kApp, true},
  };
  int number = 0;
  for (const auto& [mode, opens] : cases) {
    const std::string path = PathOf(std::to_string(number++));
    EXPECT_EQ(Opens(path, mode), opens) << path;
    EXPECT_EQ(Exists(path), opens) << path;
  }
}

TEST_F(FileStreamContract, RefusesModesThatAreNone) {
  WriteBytes(path_, "before");
  for (const ios_base::openmode mode :
       {ios_base::openmode{}, kTrunc, kIn | kTrunc, kApp | kTrunc, kOut | kApp | kTrunc, kBinary}) {
    EXPECT_FALSE(Opens(path_, mode)) << static_cast<int>(mode);
  }
  EXPECT_EQ(ReadBytes(path_), "before");
}

TEST_F(FileStreamContract, OpensNoFolderAndNoMissingFolder) {
  for (const ios_base::openmode mode : {kIn, kOut, kOut | kApp, kIn | kOut}) {
    EXPECT_FALSE(Opens(Folder(), mode));
    EXPECT_FALSE(Opens(Folder() + "\\", mode));
    EXPECT_FALSE(Opens(PathOf("missing\\file.txt"), mode));
    EXPECT_FALSE(Opens("", mode));
    EXPECT_FALSE(Opens(PathOf("a*b"), mode));
  }
}

TEST_F(FileStreamContract, StartsClosedAndGood) {
  const common::FileStream stream;
  EXPECT_FALSE(stream.is_open());
  EXPECT_TRUE(stream.good());
}

TEST_F(FileStreamContract, FailsToOpenASecondFileAndKeepsTheFirst) {
  WriteBytes(path_, "first");
  WriteBytes(PathOf("second"), "second");
  common::FileStream stream;
  stream.open(path_, kIn);
  stream.open(PathOf("second"), kIn);
  EXPECT_TRUE(stream.fail());
  EXPECT_TRUE(stream.is_open());
  stream.clear();
  std::string text;
  stream >> text;
  EXPECT_EQ(text, "first");
}

TEST_F(FileStreamContract, OpeningClearsTheStateOfBefore) {
  WriteBytes(path_, "text");
  common::FileStream stream;
  stream.open(PathOf("missing"), kIn);
  ASSERT_TRUE(stream.fail());
  stream.open(path_, kIn);
  EXPECT_TRUE(stream.good());
}

TEST_F(FileStreamContract, ClosingAClosedStreamFails) {
  common::FileStream stream;
  stream.close();
  EXPECT_EQ(stream.rdstate(), ios_base::failbit);
}

TEST_F(FileStreamContract, ClosingKeepsTheStateAndReopeningStartsAnew) {
  WriteBytes(path_, "one");
  common::FileStream stream;
  for (int i = 0; i < 2; ++i) {
    stream.open(path_, kIn);
    std::string text;
    stream >> text;
    EXPECT_EQ(text, "one");
    EXPECT_TRUE(stream.eof());
    stream.close();
    EXPECT_EQ(stream.rdstate(), ios_base::eofbit);
  }
}

TEST_F(FileStreamContract, WritingEmptiesOrAppends) {
  const struct {
    ios_base::openmode mode;
    std::string bytes;
  } cases[] = {
      {kOut, "a\r\n"},          {kOut | kTrunc, "a\r\n"},     {kIn | kOut | kTrunc, "a\r\n"},
      {kApp, "beforea\r\n"},    {kOut | kApp, "beforea\r\n"}, {kIn | kOut | kApp, "beforea\r\n"},
      {kIn | kOut, "a\r\nore"}, {kOut | kBinary, "a\n"},      {kOut | kApp | kBinary, "beforea\n"},
  };
  for (const auto& [mode, bytes] : cases) {
    WriteBytes(path_, "before");
    EXPECT_EQ(Write(mode, "a\n"), bytes) << static_cast<int>(mode);
  }
}

TEST_F(FileStreamContract, WritesEveryLfAsCrLf) {
  EXPECT_EQ(Write(kOut, "\n\r\n\rx"), "\r\n\r\r\n\rx");
  EXPECT_EQ(Write(kOut, std::string("a\0\x1A", 3)), std::string("a\0\x1A", 3));
  const std::string line(4095, 'x');
  EXPECT_EQ(Write(kOut, line + "\n" + line + "\n" + line), line + "\r\n" + line + "\r\n" + line);
}

TEST_F(FileStreamContract, FlushingAndEndingWrite) {
  {
    common::FileStream stream;
    stream.open(path_, kOut);
    stream << "a";
    EXPECT_EQ(ReadBytes(path_), "");
    stream.flush();
    EXPECT_EQ(ReadBytes(path_), "a");
    stream << "b\n";
    EXPECT_EQ(ReadBytes(path_), "a");
  }
  EXPECT_EQ(ReadBytes(path_), "ab\r\n");
}

TEST_F(FileStreamContract, AStreamForReadingTakesNoText) {
  WriteBytes(path_, "before");
  common::FileStream stream;
  stream.open(path_, kIn);
  stream << "x" << std::flush;
  EXPECT_FALSE(stream.good());
  EXPECT_EQ(ReadBytes(path_), "before");
}

TEST_F(FileStreamContract, AStreamForWritingGivesNoText) {
  common::FileStream stream;
  stream.open(path_, kOut);
  EXPECT_EQ(stream.get(), std::char_traits<char>::eof());
  EXPECT_TRUE(stream.eof());
}

TEST_F(FileStreamContract, WritesBehindWhatItHasReadToTheEnd) {
  WriteBytes(path_, "before\r\n");
  common::FileStream stream;
  stream.open(path_, kIn | kOut);
  std::string line;
  EXPECT_TRUE(std::getline(stream, line));
  EXPECT_FALSE(std::getline(stream, line));
  stream.clear();
  stream << "a\n";
  stream.close();
  EXPECT_EQ(ReadBytes(path_), "before\r\na\r\n");
}

}  // namespace
}  // namespace tests
