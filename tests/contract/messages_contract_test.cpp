// Texts for errors: the system's and the C runtime's.
#include <windows.h>

#include <string.h>

#include <cerrno>
#include <string>
#include <vector>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr DWORD kNoSuchCode = 0x2000'0001;

class MessageContract : public HostTest {
 protected:
  // Null, with the last error set, when there is no text.
  static common::UniqueLocal<char> Message(DWORD code, DWORD* length) {
    constexpr DWORD kFlags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    char* block = nullptr;
    *length = ::FormatMessageA(kFlags, nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                               reinterpret_cast<LPSTR>(&block), 0, nullptr);
    return common::UniqueLocal<char>(block);
  }

  static std::string Text(DWORD code) {
    DWORD length = 0;
    const common::UniqueLocal<char> block = Message(code, &length);
    return block ? block.get() : "";
  }

  // A whole line, as long as the call says.
  static void ExpectLine(DWORD code) {
    DWORD length = 0;
    const common::UniqueLocal<char> block = Message(code, &length);
    ASSERT_TRUE(block) << code;
    const std::string text = block.get();
    EXPECT_EQ(text.size(), length) << code;
    ASSERT_GT(text.size(), 2u) << code;
    EXPECT_EQ(text.find("\r\n"), text.size() - 2) << text;
  }
};

TEST_F(MessageContract, EveryCodeOfTheHeadersHasATextWithALineEnd) {
  for (const DWORD code :
       {0,    1,    2,    3,    4,    5,    6,    8,    14,   19,   21,   31,   32,
        38,   39,   50,   53,   80,   87,   109,  112,  122,  123,  126,  127,  145,
        161,  183,  193,  206,  232,  267,  317,  1113, 1300, 1305, 1307, 1313, 1314,
        1332, 1336, 1337, 1338, 1361, 1400, 1814, 1816, 1920, 1921}) {
    ExpectLine(code);
  }
}

TEST_F(MessageContract, CodesOfReparsePointsHaveTexts) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparseMessages;
  for (const DWORD code :
       {ERROR_INVALID_REPARSE_DATA, ERROR_REPARSE_TAG_INVALID, ERROR_REPARSE_TAG_MISMATCH}) {
    ExpectLine(code);
  }
}

TEST_F(MessageContract, InsertsStayAsTheyAre) {
  EXPECT_NE(Text(ERROR_BAD_EXE_FORMAT).find("%1"), std::string::npos);
}

TEST_F(MessageContract, TextsAreThoseOfWindows) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kSystemMessages;
  EXPECT_EQ(Text(ERROR_SUCCESS), "The operation completed successfully.\r\n");
  EXPECT_EQ(Text(ERROR_FILE_NOT_FOUND), "The system cannot find the file specified.\r\n");
  EXPECT_EQ(Text(ERROR_PATH_NOT_FOUND), "The system cannot find the path specified.\r\n");
  EXPECT_EQ(Text(ERROR_ACCESS_DENIED), "Access is denied.\r\n");
  EXPECT_EQ(Text(ERROR_INVALID_HANDLE), "The handle is invalid.\r\n");
  EXPECT_EQ(Text(ERROR_INVALID_PARAMETER), "The parameter is incorrect.\r\n");
  EXPECT_EQ(Text(ERROR_BROKEN_PIPE), "The pipe has been ended.\r\n");
}

TEST_F(MessageContract, AnUnknownCodeHasNoText) {
  for (const DWORD code : {kNoSuchCode, DWORD{0xFFFF'FFFF}, DWORD{999'999}}) {
    DWORD length = 77;
    ::SetLastError(kNobodysError);
    const common::UniqueLocal<char> block = Message(code, &length);
    const DWORD error = ::GetLastError();
    EXPECT_EQ(length, 0u);
    EXPECT_FALSE(block);
    EXPECT_EQ(error, DWORD{ERROR_MR_MID_NOT_FOUND});
  }
}

TEST_F(MessageContract, LocalFreeTakesABlockAndNull) {
  DWORD length = 0;
  common::UniqueLocal<char> block = Message(ERROR_ACCESS_DENIED, &length);
  EXPECT_EQ(::LocalFree(block.release()), nullptr);
  EXPECT_EQ(::LocalFree(nullptr), nullptr);
}

TEST_F(MessageContract, TheLastErrorIsWhatWasSetLast) {
  for (const DWORD error : {DWORD{0}, DWORD{ERROR_DISK_FULL}, DWORD{0xFFFF'FFFF}}) {
    ::SetLastError(error);
    EXPECT_EQ(::GetLastError(), error);
    EXPECT_EQ(::GetLastError(), error);
  }
}

struct ErrnoText {
  int error;
  std::string text;
};

std::string TextOfErrno(int error) {
  char buffer[94] = "before";
  EXPECT_EQ(::strerror_s(buffer, sizeof buffer, error), 0) << error;
  return buffer;
}

TEST_F(MessageContract, ErrnoHasTexts) {
  for (const auto& [error, text] : std::vector<ErrnoText>{
           {EPERM, "Operation not permitted"},
           {ENOENT, "No such file or directory"},
           {EIO, "Input/output error"},
           {EBADF, "Bad file descriptor"},
           {EAGAIN, "Resource temporarily unavailable"},
           {EACCES, "Permission denied"},
           {EEXIST, "File exists"},
           {ENOTDIR, "Not a directory"},
           {EISDIR, "Is a directory"},
           {EINVAL, "Invalid argument"},
           {EMFILE, "Too many open files"},
           {ENOSPC, "No space left on device"},
           {EROFS, "Read-only file system"},
           {EPIPE, "Broken pipe"},
           {ENOTEMPTY, "Directory not empty"},
           {9999, "Unknown error"},
           {-1, "Unknown error"},
       }) {
    EXPECT_EQ(TextOfErrno(error), text) << error;
  }
}

TEST_F(MessageContract, ErrnoTextsAreThoseOfWindows) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kErrnoTexts;
  for (const auto& [error, text] : std::vector<ErrnoText>{
           {0, "No error"},
           {EINTR, "Interrupted function call"},
           {E2BIG, "Arg list too long"},
           {ENOMEM, "Not enough space"},
           {EBUSY, "Resource device"},
           {EXDEV, "Improper link"},
           {ESPIPE, "Invalid seek"},
           {EDOM, "Domain error"},
           {ERANGE, "Result too large"},
           {ENAMETOOLONG, "Filename too long"},
           {EILSEQ, "Illegal byte sequence"},
       }) {
    EXPECT_EQ(TextOfErrno(error), text) << error;
  }
}

TEST_F(MessageContract, ErrnoTextsAreCutToTheBuffer) {
  char buffer[5] = {};
  EXPECT_EQ(::strerror_s(buffer, 5, ENOENT), 0);
  EXPECT_STREQ(buffer, "No s");
  EXPECT_EQ(::strerror_s(buffer, 1, ENOENT), 0);
  EXPECT_STREQ(buffer, "");
}

TEST_F(MessageContract, ErrnoTextsNeedABuffer) {
  char buffer[5] = "####";
  EXPECT_EQ(::strerror_s(buffer, 0, ENOENT), EINVAL);
  EXPECT_EQ(::strerror_s(nullptr, 5, ENOENT), EINVAL);
  EXPECT_STREQ(buffer, "####");
}

}  // namespace
}  // namespace tests
