// Command execution against the command interpreter of a real Windows.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "common/win/child_process_list.h"
#include "common/win/win_util.h"
#include "support/hang.h"
#include "support/recording_logger.h"

namespace common::win {
namespace {

using Lines = std::vector<std::string>;

class RealCommand : public testing::Test {
 protected:
  RealCommand() { tools_.SetLogger(&logger_); }

  DWORD Run(const std::string& command_line) {
    return tools_.ExecCommandWithResults("", command_line, output_);
  }

  tests::RecordingLogger logger_;
  WinUtil tools_{"", "", ""};
  std::string output_ = "before";
};

TEST_F(RealCommand, GivesItsOutput) {
  EXPECT_EQ(Run("cmd /c echo one&echo two"), 0U);
  EXPECT_EQ(output_, "one\r\ntwo\r\n");
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Debug: WinUtil::CreateProgressNoWait: cmd /c echo one&echo two",
                   "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=0"}));
}

TEST_F(RealCommand, GivesItsExitCode) {
  EXPECT_EQ(Run("cmd /c echo why&exit 5"), 5U);
  EXPECT_EQ(output_, "why\r\n");
}

TEST_F(RealCommand, GivesBothStreamsInTheOrderOfWriting) {
  EXPECT_EQ(Run("cmd /c echo 1&echo 2 1>&2&echo 3"), 0U);
  EXPECT_EQ(output_, "1\r\n2 \r\n3\r\n");
}

TEST_F(RealCommand, GivesNothingWhenItWritesNothing) {
  EXPECT_EQ(Run("cmd /c exit 0"), 0U);
  EXPECT_EQ(output_, "");
}

TEST_F(RealCommand, GivesMoreThanAPipeHolds) {
  EXPECT_EQ(Run("cmd /c for /L %i in (1,1,3000) do @echo 0123456789"), 0U);
  EXPECT_EQ(output_.size(), 3000U * 12U);
  EXPECT_EQ(output_.find("0123456789\r\n"), 0U);
  EXPECT_EQ(output_.rfind("0123456789\r\n"), 2999U * 12U);
}

TEST_F(RealCommand, FailsWhenThereIsNoSuchTool) {
  EXPECT_EQ(Run("no_such_tool_of_any_name /x"), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(output_, "before");
  const std::string why = "Last Error: [2] " + GetSystemMessage(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Debug: WinUtil::CreateProgressNoWait: no_such_tool_of_any_name /x",
                   "Error: WinUtil::CreateProgressNoWait Failed: " + why,
                   "Error: WinUtil::ExecCommandWithResults Create Progress Failed: " + why}));
}

TEST_F(RealCommand, CutsTheCommandLineBehind2047Characters) {
  const std::string start = "cmd /c echo ";
  EXPECT_EQ(Run(start + std::string(3000 - start.size(), 'x')), 0U);
  EXPECT_EQ(output_, std::string(2047 - start.size(), 'x') + "\r\n");
}

TEST_F(RealCommand, IsListedWithItsHandle) {
  size_t before = 0;
  ChildProcessList::Instance().ForEach([&](HANDLE) { ++before; });
  EXPECT_EQ(Run("cmd /c exit 0"), 0U);
  size_t after = 0;
  ChildProcessList::Instance().ForEach([&](HANDLE) { ++after; });
  EXPECT_EQ(after, before + 1);
}

TEST_F(RealCommand, IsStartedWithoutWaiting) {
  HANDLE process = nullptr;
  HANDLE thread = nullptr;
  ASSERT_TRUE(WinUtil::CreateProgressNoWait(logger_, "", "cmd /c exit 7", nullptr, nullptr, process,
                                            thread));
  EXPECT_EQ(::WaitForSingleObject(process, tests::kHangMilliseconds),
            static_cast<DWORD>(WAIT_OBJECT_0));
  DWORD code = 0;
  EXPECT_TRUE(::GetExitCodeProcess(process, &code));
  EXPECT_EQ(code, 7U);
  EXPECT_TRUE(::CloseHandle(process));
  EXPECT_TRUE(::CloseHandle(thread));
}

}  // namespace
}  // namespace common::win
