// Starting a process without waiting for it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "common/owner.h"
#include "common/win/child_process_list.h"
#include "common/win/win_util.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"

namespace common::win {
namespace {

using simulator::ChildProcess;
using simulator::Server;
using Lines = std::vector<std::string>;

HANDLE const kUntouched = reinterpret_cast<HANDLE>(uintptr_t{0x5555});

class StartProcess : public testing::Test {
 protected:
  StartProcess() {
    server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
      child.WriteOutput("output");
      child.WriteError("error");
      return 5;
    });
  }

  bool Start(const std::string& application, const std::string& command_line,
             HANDLE output = nullptr, HANDLE error = nullptr) {
    return WinUtil::CreateProgressNoWait(logger_, application, command_line, output, error,
                                         process_, thread_);
  }

  // Everything that is written into a new pipe by a tool that is given its write end so.
  std::string OutputOf(bool as_output, bool as_error) {
    SECURITY_ATTRIBUTES inheritable{};
    inheritable.nLength = sizeof(inheritable);
    inheritable.bInheritHandle = TRUE;
    UniqueHandle read_end;
    UniqueHandle write_end;
    EXPECT_TRUE(::CreatePipe(read_end.put(), write_end.put(), &inheritable, 0));
    EXPECT_TRUE(Start("", "tool", as_output ? write_end.get() : nullptr,
                      as_error ? write_end.get() : nullptr));
    write_end.reset();
    std::string text;
    char piece = 0;
    DWORD count = 0;
    while (::ReadFile(read_end.get(), &piece, 1, &count, nullptr)) text += piece;
    return text;
  }

  struct ToldToShow {
    DWORD flags;
    WORD show_window;
  };

  // What a tool that is given those handles is told of its window and its handles.
  ToldToShow ToldToTool(HANDLE output, HANDLE error) {
    ToldToShow told{};
    server_.processes().Install("tool", [&told](Server&, ChildProcess& child) -> DWORD {
      told = {child.StartFlags(), child.ShowWindow()};
      return 0;
    });
    EXPECT_TRUE(Start("", "tool", output, error));
    server_.processes().WaitForAll();
    return told;
  }

  Server server_;
  tests::RecordingLogger logger_;
  HANDLE process_ = kUntouched;
  HANDLE thread_ = kUntouched;
};

TEST_F(StartProcess, HandsOutTheHandlesOfProcessAndThread) {
  EXPECT_TRUE(Start("", "tool x"));
  EXPECT_NE(process_, kUntouched);
  EXPECT_NE(thread_, kUntouched);
  EXPECT_EQ(server_.OpenHandles(), (Lines{"process", "thread"}));
  EXPECT_EQ(logger_.Lines(), Lines{"Debug: WinUtil::CreateProgressNoWait: tool x"});
}

TEST_F(StartProcess, GivesTheProcessFirst) {
  EXPECT_TRUE(Start("", "tool"));
  server_.processes().WaitForAll();
  DWORD code = 0;
  EXPECT_TRUE(::GetExitCodeProcess(process_, &code));
  EXPECT_EQ(code, 5U);
  EXPECT_FALSE(::GetExitCodeProcess(thread_, &code));
}

TEST_F(StartProcess, DoesNotListTheChild) {
  size_t before = 0;
  ChildProcessList::Instance().ForEach([&](HANDLE) { ++before; });
  EXPECT_TRUE(Start("", "tool"));
  size_t after = 0;
  ChildProcessList::Instance().ForEach([&](HANDLE) { ++after; });
  EXPECT_EQ(after, before);
}

TEST_F(StartProcess, StartsAToolWithoutStandardHandles) { EXPECT_EQ(OutputOf(false, false), ""); }

TEST_F(StartProcess, GivesTheOutputHandleAlone) { EXPECT_EQ(OutputOf(true, false), "output"); }

TEST_F(StartProcess, GivesTheErrorHandleAlone) { EXPECT_EQ(OutputOf(false, true), "error"); }

TEST_F(StartProcess, GivesBothHandles) { EXPECT_EQ(OutputOf(true, true), "outputerror"); }

TEST_F(StartProcess, HidesTheWindowOfAToolWithoutHandles) {
  const ToldToShow told = ToldToTool(nullptr, nullptr);
  EXPECT_EQ(told.flags, DWORD{STARTF_USESHOWWINDOW});
  EXPECT_EQ(told.show_window, SW_HIDE);
}

TEST_F(StartProcess, ReplacesTheFlagOfTheWindowByThatOfTheHandles) {
  const HANDLE handle = reinterpret_cast<HANDLE>(uintptr_t{0x77});
  EXPECT_EQ(ToldToTool(handle, handle).flags, DWORD{STARTF_USESTDHANDLES});
  EXPECT_EQ(ToldToTool(handle, nullptr).flags, DWORD{STARTF_USESTDHANDLES});
  EXPECT_EQ(ToldToTool(nullptr, handle).flags, DWORD{STARTF_USESTDHANDLES});
}

TEST_F(StartProcess, LeavesTheHandlesWhenItFails) {
  EXPECT_FALSE(Start("", "missing"));
  EXPECT_EQ(process_, kUntouched);
  EXPECT_EQ(thread_, kUntouched);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Debug: WinUtil::CreateProgressNoWait: missing",
                   "Error: WinUtil::CreateProgressNoWait Failed: Last Error: [2] " +
                       GetSystemMessage(ERROR_FILE_NOT_FOUND)}));
}

TEST_F(StartProcess, LeavesTheLastErrorOfTheFailure) {
  server_.calls().FailNext("CreateProcessA", ERROR_BAD_EXE_FORMAT);
  EXPECT_FALSE(Start("", "tool"));
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT));
}

TEST_F(StartProcess, CutsTheCommandLine) {
  EXPECT_TRUE(Start("", "tool " + std::string(100000, 'x')));
  EXPECT_EQ(server_.processes().Started(), Lines{"tool " + std::string(2042, 'x')});
}

TEST_F(StartProcess, EndsTheCommandLineAtAZeroByte) {
  EXPECT_TRUE(Start("", std::string("tool a\0b", 8)));
  EXPECT_EQ(server_.processes().Started(), Lines{"tool a"});
}

TEST_F(StartProcess, PassesTheApplicationNameOn) {
  server_.files().MakeDirectories("C:\\tools");
  EXPECT_TRUE(Start("C:\\tools\\tool.exe", "x y"));
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateProcessA"),
            Lines{"\"C:\\tools\\tool.exe\", \"x y\""});
}

}  // namespace
}  // namespace common::win
