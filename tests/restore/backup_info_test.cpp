#include "restore/backup_info.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <climits>
#include <ostream>
#include <string>
#include <vector>

#include "support/drive.h"
#include "support/host.h"
#include "support/recording_logger.h"
#include "support/test_names.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

constexpr char kMissing[] = "Warn: ReadBackupInfoLine Backup Info File doesn't Exist.";
constexpr char kWrongLine[] = "Error: ReadBackupInfoLine Backup Info Wrong Line Number.";
constexpr char kOpenFailed[] = "Error: ReadBackupInfoLine Backup Info Open Failed.";

// What one reading of a line gave.
struct LineRead {
  bool success;
  std::string line;
  bool operator==(const LineRead&) const = default;
};

std::ostream& operator<<(std::ostream& out, const LineRead& read) {
  return out << (read.success ? "success \"" : "failure \"") << read.line << "\"";
}

class BackupInfoHost : public tests::HostTest {
 protected:
  // The drive's backup information, bytes as they lie on the disk.
  void Write(const std::string& bytes) {
    MakeFolder(root_ + "vantoro_prepare");
    WriteBytes(path_, bytes);
  }

  LineRead Read(int line_number) {
    LineRead read{false, ""};
    read.success = ReadBackupInfoLine(logger_, drive_.letter(), line_number, read.line);
    return read;
  }

  tests::Drive drive_;
  const std::string root_ = drive_.Root();
  const std::string path_ = root_ + "vantoro_prepare\\backup_info";
  tests::RecordingLogger logger_;
};

using ReadBackupInfoLineTest = BackupInfoHost;
using ReadBackupInfoTest = BackupInfoHost;

struct LineCase {
  const char* what;
  std::string bytes;
  int line_number;
  LineRead expected;
};

std::ostream& operator<<(std::ostream& out, const LineCase& test) { return out << test.what; }

class BackupInfoLine : public BackupInfoHost, public testing::WithParamInterface<LineCase> {};

TEST_P(BackupInfoLine, IsReadAsTextMode) {
  Write(GetParam().bytes);
  EXPECT_EQ(Read(GetParam().line_number), GetParam().expected);
  EXPECT_EQ(logger_.Lines(), GetParam().expected.success ? Lines{} : Lines{kWrongLine});
}

constexpr char kFour[] = "E\r\none\r\ntwo\r\n 12abc\r\n";

INSTANTIATE_TEST_SUITE_P(
    Lines, BackupInfoLine,
    testing::Values(LineCase{"the first", kFour, 0, {true, "E"}},
                    LineCase{"the second", kFour, 1, {true, "one"}},
                    LineCase{"the third", kFour, 2, {true, "two"}},
                    LineCase{"the fourth", kFour, 3, {true, " 12abc"}},
                    LineCase{"just behind the final line end", kFour, 4, {true, ""}},
                    LineCase{"two behind the final line end", kFour, 5, {false, ""}},
                    LineCase{"far behind the final line end", kFour, INT_MAX, {false, ""}},
                    LineCase{"the last without a line end", "E\r\none", 1, {true, "one"}},
                    LineCase{"behind a last without a line end", "E\r\none", 2, {false, "one"}},
                    LineCase{"two behind one without a line end", "E\r\none", 3, {false, "one"}},
                    LineCase{"of an empty file", "", 0, {true, ""}},
                    LineCase{"behind an empty file", "", 1, {false, ""}},
                    LineCase{"before a lone line end", "\r\n", 0, {true, ""}},
                    LineCase{"behind a lone line end", "\r\n", 1, {true, ""}},
                    LineCase{"two behind a lone line end", "\r\n", 2, {false, ""}},
                    LineCase{"minus one", kFour, -1, {true, ""}},
                    LineCase{"the least number", kFour, INT_MIN, {true, ""}}),
    tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    LineEnds, BackupInfoLine,
    testing::Values(LineCase{"a line feed", "E\nb\n", 1, {true, "b"}},
                    LineCase{"two carriage returns and a line feed", "E\r\r\nb", 0, {true, "E\r"}},
                    LineCase{"a lone carriage return ends nothing", "E\rb\r\n", 0, {true, "E\rb"}},
                    LineCase{"a final carriage return", "E\r", 0, {true, "E\r"}},
                    LineCase{"a line feed and a carriage return", "E\n\rb", 1, {true, "\rb"}},
                    LineCase{"Ctrl-Z ends the file", "E\x1a\r\nb\r\n", 0, {true, "E"}},
                    LineCase{"nothing behind Ctrl-Z", "E\x1a\r\nb\r\n", 1, {false, "E"}},
                    LineCase{"Ctrl-Z at the start",
                             "\x1a"
                             "E\r\n",
                             0,
                             {true, ""}},
                    LineCase{"Ctrl-Z behind a line end",
                             "E\r\n\x1a"
                             "b\r\n",
                             1,
                             {true, ""}}),
    tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    Bytes, BackupInfoLine,
    testing::Values(
        LineCase{"up to a zero byte", {"E\0F\r\nb", 6}, 0, {true, "E"}},
        LineCase{"behind a line with a zero byte", {"E\0F\r\nb", 6}, 1, {true, "b"}},
        LineCase{"of zero bytes alone", std::string(300, '\0'), 0, {true, ""}},
        LineCase{"of bytes above 0x7F", "\xff\xc3\x28\x80\r\n", 0, {true, "\xff\xc3\x28\x80"}},
        LineCase{"of blanks and tabs", " \t \v\f \r\n", 0, {true, " \t \v\f "}}),
    tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    Lengths, BackupInfoLine,
    testing::Values(
        LineCase{"of 511", std::string(511, 'x') + "\r\nb", 0, {true, std::string(511, 'x')}},
        LineCase{"behind 511", std::string(511, 'x') + "\r\nb", 1, {true, "b"}},
        LineCase{"511 at the end", std::string(511, 'x'), 0, {true, std::string(511, 'x')}},
        LineCase{"behind 511 at the end", std::string(511, 'x'), 1, {false, std::string(511, 'x')}},
        LineCase{"of 512", std::string(512, 'x') + "\r\nb", 0, {true, std::string(511, 'x')}},
        LineCase{"behind 512", std::string(512, 'x') + "\r\nb\r\n", 1, {true, ""}},
        LineCase{"two behind 512", std::string(512, 'x') + "\r\nb\r\n", 2, {true, ""}},
        LineCase{"far behind 512", std::string(512, 'x') + "\r\nb\r\n", 100000, {true, ""}},
        LineCase{"behind 512 at the end", std::string(512, 'x'), 1, {true, ""}},
        LineCase{"before 512", "E\r\n" + std::string(512, 'x'), 0, {true, "E"}},
        LineCase{"megabytes without a line end",
                 std::string(3000000, 'x'),
                 0,
                 {true, std::string(511, 'x')}},
        LineCase{
            "megabytes of short lines", std::string(2000000, '\n') + "b", 2000000, {true, "b"}}),
    tests::NamedAsPrinted());

TEST_F(ReadBackupInfoLineTest, KeepsEveryByteButThoseOfTextMode) {
  std::string bytes;
  for (int value = 1; value < 256; ++value) {
    if (value != '\n' && value != '\r' && value != 0x1a) bytes += static_cast<char>(value);
  }
  Write(bytes + "\r\n");
  EXPECT_EQ(Read(0), (LineRead{true, bytes}));
}

TEST_F(ReadBackupInfoLineTest, SucceedsWithoutTheFileAndLeavesTheText) {
  std::string line = "before";
  EXPECT_TRUE(ReadBackupInfoLine(logger_, drive_.letter(), 3, line));
  EXPECT_EQ(line, "before");
  EXPECT_EQ(logger_.Lines(), Lines{kMissing});
}

TEST_F(ReadBackupInfoLineTest, FailsForAFolderOfThatName) {
  MakeFolder(root_ + "vantoro_prepare");
  MakeFolder(path_);
  std::string line = "before";
  EXPECT_FALSE(ReadBackupInfoLine(logger_, drive_.letter(), 0, line));
  EXPECT_EQ(line, "before");
  EXPECT_EQ(logger_.Lines(), Lines{kOpenFailed});
}

TEST_F(ReadBackupInfoLineTest, FindsNoFileBehindWhatIsNoDriveLetter) {
  for (int value = CHAR_MIN; value <= CHAR_MAX; ++value) {
    const char letter = static_cast<char>(value);
    if ((letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z')) continue;
    tests::RecordingLogger logger;
    std::string line;
    EXPECT_TRUE(ReadBackupInfoLine(logger, letter, 0, line)) << value;
    EXPECT_EQ(logger.Lines(), Lines{kMissing}) << value;
  }
}

TEST_F(ReadBackupInfoLineTest, TakesALetterOfEitherCase) {
  Write("E\r\n");
  std::string line;
  const char upper = static_cast<char>(drive_.letter() - 'a' + 'A');
  EXPECT_TRUE(ReadBackupInfoLine(logger_, upper, 0, line));
  EXPECT_EQ(line, "E");
}

TEST_F(ReadBackupInfoLineTest, ClosesTheFile) {
  Write(kFour);
  EXPECT_TRUE(Read(0).success);
  EXPECT_FALSE(Read(5).success);
  EXPECT_TRUE(::DeleteFileA(path_.c_str()));
}

struct LetterCase {
  const char* what;
  std::string content;  // of line 0
  char letter;
};

std::ostream& operator<<(std::ostream& out, const LetterCase& test) { return out << test.what; }

class SourceLetter : public BackupInfoHost, public testing::WithParamInterface<LetterCase> {};

TEST_P(SourceLetter, IsTheFirstCharacterInLowerCase) {
  Write(GetParam().content + "\r\nx\r\n");
  char letter = 0;
  EXPECT_TRUE(ReadBackupInfo(logger_, drive_.letter(), letter));
  EXPECT_EQ(letter, GetParam().letter);
  EXPECT_EQ(logger_.Lines(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    All, SourceLetter,
    testing::Values(LetterCase{"upper case", "E", 'e'}, LetterCase{"lower case", "e", 'e'},
                    LetterCase{"a word", "Data", 'd'}, LetterCase{"the first", "c", 'c'},
                    LetterCase{"a root", "C:\\", 'c'}, LetterCase{"the last", "z", 'z'},
                    LetterCase{"a word of the last", "Zebra", 'z'},
                    LetterCase{"a byte above 0x7F behind it", "d\xff", 'd'},
                    LetterCase{"a zero byte behind it", {"d\0x", 3}, 'd'},
                    LetterCase{"words behind it", "G anything at all", 'g'},
                    LetterCase{"a line that is too long", std::string(600, 'f'), 'f'}),
    tests::NamedAsPrinted());

struct RefusedCase {
  const char* what;
  std::string content;
  std::string logged;
};

std::ostream& operator<<(std::ostream& out, const RefusedCase& test) { return out << test.what; }

class RefusedLetter : public BackupInfoHost, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedLetter, IsLoggedInLowerCaseAndLeavesTheResult) {
  Write(GetParam().content + "\r\nx\r\n");
  char letter = '?';
  EXPECT_FALSE(ReadBackupInfo(logger_, drive_.letter(), letter));
  EXPECT_EQ(letter, '?');
  EXPECT_EQ(logger_.Lines(), Lines{"Error: ReadBackupInfo Wrong Content: " + GetParam().logged});
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedLetter,
    testing::Values(
        RefusedCase{"nothing", "", ""}, RefusedCase{"a digit first", "1c", "1c"},
        RefusedCase{"a", "a", "a"}, RefusedCase{"upper case a", "A", "a"},
        RefusedCase{"a word of b", "Bcd", "bcd"}, RefusedCase{"the character behind z", "{", "{"},
        RefusedCase{"the character behind upper case z", "[", "["},
        RefusedCase{"the character before upper case a", "@", "@"},
        RefusedCase{"the character before a", "`", "`"}, RefusedCase{"a blank first", " E", " e"},
        RefusedCase{"a tab first", "\tE", "\te"}, RefusedCase{"a lone CR first", "\rE", "\re"},
        RefusedCase{"a zero byte first", {"\0E", 2}, ""},
        RefusedCase{"Ctrl-Z first",
                    "\x1a"
                    "E",
                    ""},
        RefusedCase{"0x80", "\x80", "\x80"},
        RefusedCase{"0xFF first",
                    "\xff"
                    "E",
                    "\xff"
                    "e"},
        RefusedCase{"an e with bit 7", "\xe5\xBA", "\xe5\xBA"},
        RefusedCase{"a template", "%s%n%d%%", "%s%n%d%%"},
        RefusedCase{"a line that is too long", std::string(600, '1'), std::string(511, '1')}),
    tests::NamedAsPrinted());

TEST_F(ReadBackupInfoTest, FailsWithoutTheFile) {
  char letter = '?';
  EXPECT_FALSE(ReadBackupInfo(logger_, drive_.letter(), letter));
  EXPECT_EQ(letter, '?');
  EXPECT_EQ(logger_.Lines(), (Lines{kMissing, "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(ReadBackupInfoTest, FailsForADiskWithoutALetter) {
  char letter = '?';
  EXPECT_FALSE(ReadBackupInfo(logger_, '\0', letter));
  EXPECT_EQ(letter, '?');
  EXPECT_EQ(logger_.Lines(), (Lines{kMissing, "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(ReadBackupInfoTest, LogsNothingMoreWhenTheLineCannotBeRead) {
  MakeFolder(root_ + "vantoro_prepare");
  MakeFolder(path_);
  char letter = '?';
  EXPECT_FALSE(ReadBackupInfo(logger_, drive_.letter(), letter));
  EXPECT_EQ(letter, '?');
  EXPECT_EQ(logger_.Lines(), Lines{kOpenFailed});
}

TEST_F(ReadBackupInfoTest, AcceptsExactlyTheLettersFromCToZ) {
  for (int value = 1; value < 256; ++value) {
    const char first = static_cast<char>(value);
    if (first == '\n') continue;
    Write(std::string(1, first) + "\r\n");
    tests::RecordingLogger logger;
    char letter = 0;
    const bool is_letter = (first >= 'c' && first <= 'z') || (first >= 'C' && first <= 'Z');
    EXPECT_EQ(ReadBackupInfo(logger, drive_.letter(), letter), is_letter) << value;
  }
}

}  // namespace
}  // namespace restore
