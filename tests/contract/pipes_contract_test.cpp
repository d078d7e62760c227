// Anonymous pipes within the process.
#include <windows.h>

#include <string>
#include <thread>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class PipeContract : public HostTest {
 protected:
  PipeContract() { EXPECT_TRUE(::CreatePipe(read_end_.put(), write_end_.put(), nullptr, 0)); }

  DWORD Write(const std::string& bytes) const {
    DWORD count = 77;
    const DWORD error = ErrorOf([&] {
      return ::WriteFile(write_end_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count,
                         nullptr);
    });
    EXPECT_EQ(count, error == ERROR_SUCCESS ? bytes.size() : 0u);
    return error;
  }

  // The bytes of one read, or the error in angle brackets.
  std::string Read(DWORD size) const {
    std::string buffer(size, '#');
    DWORD count = 77;
    const DWORD error =
        ErrorOf([&] { return ::ReadFile(read_end_.get(), buffer.data(), size, &count, nullptr); });
    if (error == ERROR_SUCCESS) return buffer.substr(0, count);
    EXPECT_EQ(count, 0u);
    return '<' + std::to_string(error) + '>';
  }

  common::UniqueHandle read_end_;
  common::UniqueHandle write_end_;
};

const std::string kBroken = '<' + std::to_string(ERROR_BROKEN_PIPE) + '>';

TEST_F(PipeContract, GivesWhatWasWritten) {
  EXPECT_EQ(Write("abc"), ERROR_SUCCESS);
  EXPECT_EQ(Read(100), "abc");
}

TEST_F(PipeContract, GivesAtMostWhatIsAskedFor) {
  Write("abcde");
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(Read(3), "cde");
}

TEST_F(PipeContract, KnowsNoBoundsBetweenWrites) {
  Write("abc");
  Write("def");
  EXPECT_EQ(Read(4), "abcd");
  EXPECT_EQ(Read(100), "ef");
}

TEST_F(PipeContract, GivesEveryByteAsItIs) {
  const std::string bytes("\0\r\n\x1A\xFF", 5);
  Write(bytes);
  EXPECT_EQ(Read(100), bytes);
}

TEST_F(PipeContract, ClosedByTheWriterItGivesTheRestThenBreaks) {
  Write("abc");
  write_end_.reset();
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(Read(100), "c");
  EXPECT_EQ(Read(1), kBroken);
  EXPECT_EQ(Read(1), kBroken);
}

TEST_F(PipeContract, ClosedByTheReaderItTakesNothing) {
  read_end_.reset();
  EXPECT_EQ(Write("a"), ERROR_NO_DATA);
  EXPECT_EQ(Write("a"), ERROR_NO_DATA);
}

TEST_F(PipeContract, ClosedByTheReaderItTakesNoEmptyWrite) {
  read_end_.reset();
  EXPECT_EQ(Write(""), ERROR_NO_DATA);
}

TEST_F(PipeContract, AnEmptyWriteIsAnEmptyRead) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kEmptyWrite;
  EXPECT_EQ(Write(""), ERROR_SUCCESS);
  EXPECT_EQ(Read(100), "");
  Write("abc");
  EXPECT_EQ(Read(100), "abc");
}

TEST_F(PipeContract, AnEmptyWriteShowsBeforeTheEnd) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kEmptyWrite;
  Write("");
  write_end_.reset();
  EXPECT_EQ(Read(100), "");
  EXPECT_EQ(Read(100), kBroken);
}

TEST_F(PipeContract, EmptyWritesTakeNothingFromTheBytesAround) {
  for (const char* bytes : {"abc", "", "def", "", "", "ghi"})
    EXPECT_EQ(Write(bytes), ERROR_SUCCESS);
  write_end_.reset();
  std::string read;
  for (std::string piece = Read(100); piece != kBroken; piece = Read(100)) read += piece;
  EXPECT_EQ(read, "abcdefghi");
}

TEST_F(PipeContract, ReadingWaitsForTheWriter) {
  std::thread writer([this] { Write("abc"); });
  EXPECT_EQ(Read(100), "abc");
  writer.join();
}

TEST_F(PipeContract, ReadingWaitsForTheEnd) {
  std::thread writer([this] { write_end_.reset(); });
  EXPECT_EQ(Read(100), kBroken);
  writer.join();
}

TEST_F(PipeContract, WritingMoreThanItHoldsWaitsForTheReader) {
  std::string bytes;
  for (int i = 0; i < 20'000; ++i) bytes += std::to_string(i);
  std::thread writer([this, &bytes] {
    EXPECT_EQ(Write(bytes), ERROR_SUCCESS);
    write_end_.reset();
  });
  std::string read;
  for (std::string piece = Read(1000); piece != kBroken; piece = Read(1000)) read += piece;
  writer.join();
  EXPECT_EQ(read, bytes);
}

TEST_F(PipeContract, TheReadEndIsNotWrittenTo) {
  DWORD count = 77;
  EXPECT_EQ(ErrorOf([&] { return ::WriteFile(read_end_.get(), "a", 1, &count, nullptr); }),
            ERROR_ACCESS_DENIED);
}

TEST_F(PipeContract, TheWriteEndIsNotReadFrom) {
  DWORD count = 77;
  char byte = 0;
  EXPECT_EQ(ErrorOf([&] { return ::ReadFile(write_end_.get(), &byte, 1, &count, nullptr); }),
            ERROR_ACCESS_DENIED);
}

TEST_F(PipeContract, HasTwoEndsOfItsOwn) {
  common::UniqueHandle other_read_end;
  common::UniqueHandle other_write_end;
  ASSERT_TRUE(::CreatePipe(other_read_end.put(), other_write_end.put(), nullptr, 0));
  EXPECT_NE(read_end_.get(), write_end_.get());
  EXPECT_NE(other_read_end.get(), read_end_.get());
  Write("abc");
  other_write_end.reset();
  char byte = 0;
  DWORD count = 0;
  EXPECT_EQ(ErrorOf([&] { return ::ReadFile(other_read_end.get(), &byte, 1, &count, nullptr); }),
            ERROR_BROKEN_PIPE);
}

}  // namespace
}  // namespace tests
