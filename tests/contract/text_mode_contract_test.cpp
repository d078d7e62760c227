// Streams of the C runtime: modes, and the translation of line ends and Ctrl-Z.
#include <windows.h>

#include <share.h>
#include <stdio.h>

#include <cerrno>
#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/host.h"

namespace tests {
namespace {

using common::UniqueFile;

class TextModeContract : public HostTest {
 protected:
  TextModeContract() : path_(PathOf("file.txt")) {}

  UniqueFile Open(const char* mode) const {
    return UniqueFile(::_fsopen(path_.c_str(), mode, _SH_DENYNO));
  }

  // What a stream reads, `size` characters at a time.
  std::string ReadAs(const char* mode, const std::string& bytes, size_t size) const {
    WriteBytes(path_, bytes);
    const UniqueFile file = Open(mode);
    std::string text;
    std::string buffer(size, '\0');
    while (const size_t count = fread(buffer.data(), 1, size, file.get())) {
      text.append(buffer, 0, count);
    }
    EXPECT_TRUE(feof(file.get()));
    EXPECT_FALSE(ferror(file.get()));
    return text;
  }

  // What lies on the disk behind writing to a file that holds `before`.
  std::string WriteAs(const char* mode, const std::string& before, const std::string& text) const {
    WriteBytes(path_, before);
    UniqueFile file = Open(mode);
    EXPECT_EQ(fwrite(text.data(), 1, text.size(), file.get()), text.size());
    EXPECT_EQ(fclose(file.release()), 0);
    return ReadBytes(path_);
  }

  const std::string path_;
};

TEST_F(TextModeContract, ReadsCrLfAsLf) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"a\r\nb\r\n", "a\nb\n"},
      {"a\nb", "a\nb"},
      {"a\rb", "a\rb"},
      {"a\r\r\nb", "a\r\nb"},
      {"a\n\rb", "a\n\rb"},
      {"\r\n", "\n"},
      {"a\r", "a\r"},
      {"\r", "\r"},
      {"", ""},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
      {"\xEF\xBB\xBF"
       "a",
       "\xEF\xBB\xBF"
       "a"},
  };
  for (const auto& [bytes, text] : cases) {
    for (const size_t size : {1, 2, 3, 100}) {
      EXPECT_EQ(ReadAs("r", bytes, size), text) << size;
      EXPECT_EQ(ReadAs("rt", bytes, size), text) << size;
    }
  }
}

TEST_F(TextModeContract, CtrlZEndsTheText) {
  EXPECT_EQ(ReadAs("r",
                   "a\x1A"
                   "b",
                   1),
            "a");
  EXPECT_EQ(ReadAs("r",
                   "a\x1A"
                   "b",
                   100),
            "a");
  EXPECT_EQ(ReadAs("r", "\x1A", 100), "");
  EXPECT_EQ(ReadAs("r", "a\r\x1A\n", 100), "a\r");
}

TEST_F(TextModeContract, BinaryReadsEveryByte) {
  const std::string bytes("a\r\n\x1A\0b\r", 7);
  EXPECT_EQ(ReadAs("rb", bytes, 1), bytes);
  EXPECT_EQ(ReadAs("rb", bytes, 100), bytes);
}

TEST_F(TextModeContract, ReadsPairsAtEveryPlace) {
  for (size_t length = 4090; length < 4100; ++length) {
    const std::string line(length, 'x');
    EXPECT_EQ(ReadAs("r", line + "\r\n" + line + "\r\r\n", 8192), line + "\n" + line + "\r\n");
  }
}

TEST_F(TextModeContract, WritesLfAsCrLf) {
  EXPECT_EQ(WriteAs("w", "", "a\nb"), "a\r\nb");
  EXPECT_EQ(WriteAs("w", "", "\n\n"), "\r\n\r\n");
  EXPECT_EQ(WriteAs("w", "", "a\r\nb\r"), "a\r\r\nb\r");
  EXPECT_EQ(WriteAs("wt", "", "\n"), "\r\n");
  EXPECT_EQ(WriteAs("w", "", "\x1A"), "\x1A");
}

TEST_F(TextModeContract, BinaryWritesEveryByte) {
  EXPECT_EQ(WriteAs("wb", "", std::string("a\n\0\r\n", 5)), std::string("a\n\0\r\n", 5));
}

TEST_F(TextModeContract, WritingEmptiesTheFile) { EXPECT_EQ(WriteAs("w", "before", "a"), "a"); }

TEST_F(TextModeContract, UpdatingWritesOverTheStart) {
  EXPECT_EQ(WriteAs("r+", "before", "a\n"), "a\r\nore");
}

TEST_F(TextModeContract, AppendingWritesBehindTheEnd) {
  EXPECT_EQ(WriteAs("a", "before", "a\n"), "beforea\r\n");
  EXPECT_EQ(WriteAs("ab", "before", "a\n"), "beforea\n");
}

TEST_F(TextModeContract, AppendingWritesBehindCtrlZ) {
  EXPECT_EQ(WriteAs("a", "before\x1A", "a"),
            "before\x1A"
            "a");
}

TEST_F(TextModeContract, AppendingAndReadingDropsAFinalCtrlZ) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kFinalCtrlZ;
  EXPECT_EQ(WriteAs("a+", "before\x1A", "a"), "beforea");
  EXPECT_EQ(WriteAs("a+b", "before\x1A", "a"),
            "before\x1A"
            "a");
}

TEST_F(TextModeContract, AppendsWhereverOthersHaveWritten) {
  WriteBytes(path_, "");
  const UniqueFile one = Open("a");
  const UniqueFile other = Open("a");
  fputs("1", one.get());
  fflush(one.get());
  fputs("2", other.get());
  fflush(other.get());
  fputs("3", one.get());
  fflush(one.get());
  EXPECT_EQ(ReadBytes(path_), "123");
}

TEST_F(TextModeContract, WritesNothingBeforeItIsFlushed) {
  const UniqueFile file = Open("w");
  fputs("text", file.get());
  EXPECT_EQ(ReadBytes(path_), "");
  EXPECT_EQ(fflush(file.get()), 0);
  EXPECT_EQ(ReadBytes(path_), "text");
}

TEST_F(TextModeContract, FgetsTakesAtMostOneLine) {
  WriteBytes(path_, "line1\r\nline2\x1Aline3");
  const UniqueFile file = Open("r");
  char buffer[5];
  std::string pieces;
  while (fgets(buffer, sizeof buffer, file.get()) != nullptr) pieces += std::string(buffer) + '|';
  EXPECT_EQ(pieces, "line|1\n|line|2|");
  EXPECT_TRUE(feof(file.get()));
}

TEST_F(TextModeContract, AFileOpenForReadingTakesNoText) {
  WriteBytes(path_, "before");
  const UniqueFile file = Open("r");
  EXPECT_EQ(fwrite("x", 1, 1, file.get()), 0u);
  EXPECT_TRUE(ferror(file.get()));
}

TEST_F(TextModeContract, AFileOpenForWritingGivesNoText) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReadingWriteOnly;
  const UniqueFile file = Open("w");
  char c = 0;
  EXPECT_EQ(fread(&c, 1, 1, file.get()), 0u);
  EXPECT_TRUE(ferror(file.get()));
}

TEST_F(TextModeContract, RefusesWhatIsNoMode) {
  WriteBytes(path_, "before");
  for (const char* mode : {"", "x", "b", "+r"}) {
    errno = 0;
    EXPECT_FALSE(Open(mode)) << mode;
    EXPECT_EQ(errno, EINVAL) << mode;
  }
}

TEST_F(TextModeContract, RefusesNoPath) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNoPath;
  errno = 0;
  EXPECT_EQ(::_fsopen(nullptr, "r", _SH_DENYNO), nullptr);
  EXPECT_EQ(errno, EINVAL);
}

TEST_F(TextModeContract, TheWideOpenIsTheSame) {
  const std::wstring wide(path_.begin(), path_.end());
  errno = 0;
  EXPECT_EQ(::_wfsopen(wide.c_str(), L"r", _SH_DENYNO), nullptr);
  EXPECT_EQ(errno, ENOENT);
  UniqueFile file(::_wfsopen(wide.c_str(), L"w", _SH_DENYNO));
  fputs("a\n", file.get());
  file.reset();
  EXPECT_EQ(ReadBytes(path_), "a\r\n");
}

TEST_F(TextModeContract, SeveralStreamsShareAFile) {
  const UniqueFile writer = Open("w");
  const UniqueFile reader = Open("r");
  ASSERT_TRUE(reader);
  fputs("a\n", writer.get());
  fflush(writer.get());
  char buffer[10] = {};
  EXPECT_STREQ(fgets(buffer, sizeof buffer, reader.get()), "a\n");
}

}  // namespace
}  // namespace tests
