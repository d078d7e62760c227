// What file streams read, and where they end.
#include <istream>
#include <iterator>
#include <string>
#include <vector>

#include "common/file_stream.h"
#include "support/host.h"

namespace tests {
namespace {

class FileStreamReadingContract : public HostTest {
 protected:
  // Opens a file of those bytes.
  void Read(const std::string& bytes) {
    const std::string path = PathOf("file.txt");
    WriteBytes(path, bytes);
    if (stream_.is_open()) stream_.close();
    stream_.open(path, std::ios_base::in);
    ASSERT_TRUE(stream_.good());
  }

  std::string All() { return {std::istreambuf_iterator<char>(stream_), {}}; }

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream_, line);) lines.push_back(line);
    return lines;
  }

  common::FileStream stream_;
};

using Texts = std::vector<std::string>;

TEST_F(FileStreamReadingContract, ReadsCrLfAsLf) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"a\r\nb\r\n", "a\nb\n"},
      {"a\nb\rc\r\r\nd\n\r", "a\nb\rc\r\nd\n\r"},
      {"\r", "\r"},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
      {"a\x1A"
       "b",
       "a"},
      {"\x1A", ""},
      {"\xFF\xFE", "\xFF\xFE"},
  };
  for (const auto& [bytes, text] : cases) {
    Read(bytes);
    EXPECT_EQ(All(), text);
  }
}

TEST_F(FileStreamReadingContract, ReadsPairsAtEveryPlace) {
  for (const size_t around : {512, 1024, 4096, 8192}) {
    for (size_t length = around - 3; length < around + 3; ++length) {
      const std::string line(length, 'x');
      Read(line + "\r\n" + line + "\r\r\n" + line + "\r");
      EXPECT_EQ(All(), line + "\n" + line + "\r\n" + line + "\r") << length;
    }
  }
}

TEST_F(FileStreamReadingContract, EndsAtCtrlZHoweverFarItIs) {
  const std::string line(9000, 'x');
  Read(line + "\x1A" + line);
  EXPECT_EQ(All(), line);
}

TEST_F(FileStreamReadingContract, LinesEndAtLfAndAtTheEnd) {
  Read("one\r\n\r\ntwo");
  EXPECT_EQ(Lines(), Texts({"one", "", "two"}));
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
  Read("one\r\n");
  EXPECT_EQ(Lines(), Texts({"one"}));
  Read("");
  EXPECT_EQ(Lines(), Texts());
}

TEST_F(FileStreamReadingContract, ALineWithoutItsEndIsReadWithTheEndOfTheFile) {
  Read("text");
  std::string line;
  EXPECT_TRUE(std::getline(stream_, line));
  EXPECT_EQ(line, "text");
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit);
}

TEST_F(FileStreamReadingContract, ReadsNothingBeyondTheEndTwice) {
  Read("a");
  char buffer[4] = "###";
  stream_.read(buffer, 3);
  EXPECT_EQ(stream_.gcount(), 1);
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
  stream_.clear();
  stream_.read(buffer, 3);
  EXPECT_EQ(stream_.gcount(), 0);
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST_F(FileStreamReadingContract, ABufferOf512TakesALineOf511) {
  const std::string line(511, 'x');
  Read(line + "\r\nnext\r\n");
  char buffer[512];
  EXPECT_TRUE(stream_.getline(buffer, sizeof buffer));
  EXPECT_EQ(buffer, line);
  EXPECT_EQ(stream_.gcount(), 512);
  EXPECT_TRUE(stream_.getline(buffer, sizeof buffer));
  EXPECT_STREQ(buffer, "next");
}

TEST_F(FileStreamReadingContract, ABufferOf512FailsOnALineOf512) {
  Read(std::string(512, 'x') + "\r\nnext\r\n");
  char buffer[512];
  EXPECT_FALSE(stream_.getline(buffer, sizeof buffer));
  EXPECT_EQ(stream_.rdstate(), std::ios_base::failbit);
  EXPECT_EQ(buffer, std::string(511, 'x'));
  stream_.clear();
  EXPECT_TRUE(stream_.getline(buffer, sizeof buffer));
  EXPECT_STREQ(buffer, "x");
}

TEST_F(FileStreamReadingContract, ABufferOf512TakesTheLast511WithTheEndOfTheFile) {
  Read(std::string(511, 'x'));
  char buffer[512];
  stream_.getline(buffer, sizeof buffer);
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit);
  EXPECT_EQ(buffer, std::string(511, 'x'));
}

TEST_F(FileStreamReadingContract, ABufferTakesAnEmptyLine) {
  Read("\r\n");
  char buffer[512] = "before";
  EXPECT_TRUE(stream_.getline(buffer, sizeof buffer));
  EXPECT_STREQ(buffer, "");
  stream_.getline(buffer, sizeof buffer);
  EXPECT_EQ(stream_.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST_F(FileStreamReadingContract, PutsTheLastCharacterBack) {
  Read("ab");
  EXPECT_EQ(stream_.get(), 'a');
  stream_.unget();
  EXPECT_EQ(stream_.get(), 'a');
  EXPECT_EQ(stream_.peek(), 'b');
  EXPECT_EQ(stream_.get(), 'b');
}

}  // namespace
}  // namespace tests
