#include <windows.h>

#include <gtest/gtest.h>
#include <simulated_fstream.h>

#include <cerrno>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

using std::ios_base;

class FileStreamTest : public testing::Test {
 protected:
  std::string Content() { return server_.files().Read("C:\\a.txt").value_or("missing"); }

  Server server_;
  FileStream stream_;
};

TEST_F(FileStreamTest, AppendsLinesInTextMode) {
  server_.files().Write("C:\\a.txt", "old\r\n");
  stream_.open("C:\\a.txt", ios_base::out | ios_base::app);
  stream_ << "new\n";
  stream_.close();
  EXPECT_EQ(Content(), "old\r\nnew\r\n");
}

TEST_F(FileStreamTest, TruncatesWhenOnlyWriting) {
  server_.files().Write("C:\\a.txt", "old");
  stream_.open("C:\\a.txt", ios_base::out);
  EXPECT_EQ(Content(), "");
}

TEST_F(FileStreamTest, OpensForBothOnlyWhatExists) {
  stream_.open("C:\\a.txt");
  EXPECT_FALSE(stream_.is_open());
  EXPECT_TRUE(stream_.fail());
}

TEST_F(FileStreamTest, WritesNothingBeforeItIsFlushed) {
  stream_.open("C:\\a.txt", ios_base::out);
  stream_ << "x";
  EXPECT_EQ(Content(), "");
  stream_.flush();
  EXPECT_EQ(Content(), "x");
}

TEST_F(FileStreamTest, ReadsLines) {
  server_.files().Write("C:\\a.txt", "one\r\ntwo");
  stream_.open("C:\\a.txt", ios_base::in);
  std::string line;
  std::getline(stream_, line);
  EXPECT_EQ(line, "one");
  std::getline(stream_, line);
  EXPECT_EQ(line, "two");
  EXPECT_TRUE(stream_.eof());
}

TEST_F(FileStreamTest, ReadsMegabytesInAsManyCallsAsBuffers) {
  const std::string bytes(1 << 20, 'x');
  server_.files().Write("C:\\a.txt", bytes);
  stream_.open("C:\\a.txt", ios_base::in | ios_base::binary);
  const std::string text{std::istreambuf_iterator<char>(stream_), {}};
  EXPECT_EQ(text, bytes);
  EXPECT_LT(server_.calls().Count(), 300);
}

TEST_F(FileStreamTest, TakesTheLastCharacterBackAcrossBuffers) {
  server_.files().Write("C:\\a.txt", std::string(10'000, 'x'));
  stream_.open("C:\\a.txt", ios_base::in);
  while (stream_.get() != std::char_traits<char>::eof()) {
    ASSERT_TRUE(stream_.unget());
    stream_.get();
  }
}

TEST_F(FileStreamTest, FailsToOpenWhileItIsOpenAndKeepsItsFile) {
  stream_.open("C:\\a.txt", ios_base::out);
  stream_.open("C:\\b.txt", ios_base::out);
  EXPECT_TRUE(stream_.fail());
  EXPECT_FALSE(stream_.bad());
  EXPECT_TRUE(stream_.is_open());
  EXPECT_FALSE(server_.files().Exists("C:\\b.txt"));
}

TEST_F(FileStreamTest, ClearsItsStateWhenItOpens) {
  stream_.open("Q:\\a.txt", ios_base::out);
  EXPECT_TRUE(stream_.fail());
  EXPECT_EQ(errno, ENOENT);
  stream_.open("C:\\a.txt", ios_base::out);
  EXPECT_TRUE(stream_.good());
}

TEST_F(FileStreamTest, RefusesModesWithoutMeaning) {
  stream_.open("C:\\a.txt", ios_base::trunc);
  EXPECT_TRUE(stream_.fail());
}

TEST_F(FileStreamTest, IsBadOnceAFlushCannotWrite) {
  stream_.open("C:\\a.txt", ios_base::out | ios_base::app);
  server_.files().SetFreeSpace('C', 0);
  stream_ << "x";
  EXPECT_TRUE(stream_.good());
  stream_.flush();
  EXPECT_TRUE(stream_.bad());
  EXPECT_TRUE(stream_.is_open());
}

TEST_F(FileStreamTest, FailsToCloseWhatItCannotWriteButCloses) {
  stream_.open("C:\\a.txt", ios_base::out);
  stream_ << "x";
  server_.calls().FailNext("_write", ENOSPC);
  stream_.close();
  EXPECT_TRUE(stream_.fail());
  EXPECT_FALSE(stream_.is_open());
}

TEST_F(FileStreamTest, FailsToCloseWhatIsNotOpen) {
  stream_.close();
  EXPECT_TRUE(stream_.fail());
}

TEST_F(FileStreamTest, IsBadWhenItCannotRead) {
  server_.files().Write("C:\\a.txt", "x");
  stream_.open("C:\\a.txt", ios_base::in);
  server_.calls().FailNext("_read", EIO);
  std::string line;
  std::getline(stream_, line);
  EXPECT_TRUE(stream_.bad());
}

TEST_F(FileStreamTest, IsBadWhenItIsWrittenUnopened) {
  stream_ << "x";
  EXPECT_TRUE(stream_.bad());
}

TEST_F(FileStreamTest, CountsTheRuntimesOwnCalls) {
  stream_.open("C:\\a.txt", ios_base::out);
  stream_ << "one\n" << std::flush;
  stream_.close();
  std::vector<std::string> names;
  for (const TracedCall& call : server_.calls().Trace()) names.push_back(call.name);
  EXPECT_EQ(names, (std::vector<std::string>{"_open", "_write", "_close"}));
  EXPECT_EQ(server_.calls().ArgumentsOf("_write"), std::vector<std::string>{"\"C:\\a.txt\", 4"});
}

TEST_F(FileStreamTest, ClosesItsFileWhenItEnds) {
  {
    FileStream stream;
    stream.open("C:\\a.txt", ios_base::out);
    stream << "x";
  }
  EXPECT_EQ(Content(), "x");
  EXPECT_EQ(server_.file_system().Delete("C:\\a.txt"), DWORD{ERROR_SUCCESS});
}

TEST_F(FileStreamTest, ReadsBehindWhatItHasWritten) {
  server_.files().Write("C:\\a.txt", "123456");
  stream_.open("C:\\a.txt");
  stream_ << "ab" << std::flush;
  EXPECT_EQ(stream_.get(), '3');
  EXPECT_EQ(Content(), "ab3456");
}

}  // namespace
}  // namespace simulator
