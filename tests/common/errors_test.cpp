#include "common/errors.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "support/host.h"
#include "support/printed_text.h"

namespace common {
namespace {

using ErrorsTest = tests::HostTest;

TEST_F(ErrorsTest, TheSystemsMessageKeepsItsLineEnd) {
  const std::string message = GetSystemMessage(ERROR_ACCESS_DENIED);
  ASSERT_GT(message.size(), 2u);
  EXPECT_EQ(message.substr(message.size() - 2), "\r\n");
}

TEST_F(ErrorsTest, TheLastErrorTextHasTheThreadsLastErrorAndItsMessage) {
  const std::string message = GetSystemMessage(ERROR_FILE_NOT_FOUND);
  ::SetLastError(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(GetLastErrorText(), "Last Error: [2] " + message);
}

TEST_F(ErrorsTest, TheLastErrorTextOfACodeDoesNotAskTheThread) {
  ::SetLastError(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(GetLastErrorText(ERROR_ACCESS_DENIED),
            "Last Error: [5] " + GetSystemMessage(ERROR_ACCESS_DENIED));
}

TEST_F(ErrorsTest, TheErrnoTextIsTheRuntimes) {
  errno = ENOENT;
  EXPECT_EQ(GetErrnoText(), "No such file or directory");
  errno = EACCES;
  EXPECT_EQ(GetErrnoText(), "Permission denied");
  errno = EEXIST;
  EXPECT_EQ(GetErrnoText(), "File exists");
}

TEST_F(ErrorsTest, TheErrnoTextStandsForNumbersThatNobodyKnows) {
  for (const int number : {-1, 9999, 0x7FFFFFFF}) {
    errno = number;
    EXPECT_EQ(GetErrnoText(), "Unknown error") << number;
  }
}

TEST_F(ErrorsTest, AReportOfTheSystemHasTheCodeAndTheMessage) {
  tests::PrintedText printed;
  ReportLastError("GetTempDir", "", ERROR_ACCESS_DENIED);
  EXPECT_EQ(printed.Take(), "common::GetTempDir [], LastError: [5] " +
                                GetSystemMessage(ERROR_ACCESS_DENIED) + "\r\n");
}

TEST_F(ErrorsTest, AReportOfTheRuntimeHasItsMessage) {
  tests::PrintedText printed;
  errno = ENOENT;
  ReportErrno("CreateDir", "C:\\a b\\");
  EXPECT_EQ(printed.Take(), "common::CreateDir [C:\\a b\\], Error: No such file or directory\r\n");
}

TEST_F(ErrorsTest, AReportDoesNotReadItsArgumentAsATemplate) {
  tests::PrintedText printed;
  errno = EACCES;
  ReportErrno("CreateDir", "C:\\100%% %s%n\\");
  EXPECT_EQ(printed.Take(), "common::CreateDir [C:\\100%% %s%n\\], Error: Permission denied\r\n");
}

}  // namespace
}  // namespace common
