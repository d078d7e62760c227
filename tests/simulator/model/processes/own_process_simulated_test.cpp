#include <windows.h>

#include <gtest/gtest.h>
#include <share.h>
#include <stdio.h>

#include <atomic>
#include <cerrno>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/processes/console.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace {

using simulator::ChildProcess;
using simulator::Server;

class OwnProcessTest : public testing::Test {
 protected:
  int Run(const std::function<int()>& entry) { return server_.own_process().Run(entry); }

  // Runs and ends a process that does nothing.
  void RunAndEnd() {
    EXPECT_EQ(Run([]() -> int { ::ExitProcess(0); }), 0);
  }

  static HANDLE StartThread(LPTHREAD_START_ROUTINE routine, void* parameter) {
    const HANDLE thread = ::CreateThread(nullptr, 0, routine, parameter, 0, nullptr);
    EXPECT_NE(thread, nullptr);
    return thread;
  }

  Server server_;
};

TEST_F(OwnProcessTest, EndsWithWhatTheEntryPointReturns) {
  EXPECT_FALSE(server_.own_process().HasEnded());
  EXPECT_EQ(Run([] { return 7; }), 7);
  EXPECT_TRUE(server_.own_process().HasEnded());
}

TEST_F(OwnProcessTest, EndsWithTheCodeOfExitProcess) {
  EXPECT_EQ(Run([]() -> int { ::ExitProcess(5); }), 5);
  EXPECT_TRUE(server_.own_process().HasEnded());
}

TEST_F(OwnProcessTest, IsNotHeldUpByHandlersOfExceptions) {
  EXPECT_EQ(Run([]() -> int {
              try {
                ::ExitProcess(5);
              } catch (const std::exception&) {
                return 1;
              }
            }),
            5);
}

TEST_F(OwnProcessTest, LeavesTheServerAloneOnceItHasEnded) {
  server_.files().Write("C:\\a.txt", "a");
  struct Late {
    ~Late() {
      EXPECT_FALSE(::DeleteFileA("C:\\a.txt"));
      EXPECT_EQ(::GetLastError(), DWORD{ERROR_PROCESS_ABORTED});
    }
  };
  Run([]() -> int {
    const Late late;
    ::ExitProcess(0);
  });
  EXPECT_TRUE(server_.files().Exists("C:\\a.txt"));
  EXPECT_TRUE(server_.calls().ArgumentsOf("DeleteFileA").empty());
}

TEST_F(OwnProcessTest, NeitherCountsNorFailsCallsByRuleOnceItHasEnded) {
  RunAndEnd();
  const int count = server_.calls().Count();
  server_.calls().FailNext("DeleteFileA", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(::DeleteFileA("C:\\a.txt"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_PROCESS_ABORTED});
  EXPECT_EQ(server_.calls().Count(), count);
}

TEST_F(OwnProcessTest, RefusesTheRuntimeOnceItHasEnded) {
  RunAndEnd();
  errno = 0;
  EXPECT_EQ(::_fsopen("C:\\a.txt", "w", _SH_DENYNO), nullptr);
  EXPECT_EQ(errno, EIO);
  EXPECT_FALSE(server_.files().Exists("C:\\a.txt"));
}

TEST_F(OwnProcessTest, KeepsToItselfWhatAStreamHeldAtItsEnd) {
  Run([]() -> int {
    struct Closer {
      FILE* stream;
      ~Closer() { std::fclose(stream); }
    };
    const Closer closer{::_fsopen("C:\\a.txt", "w", _SH_DENYNO)};
    std::fputs("never written", closer.stream);
    ::ExitProcess(0);
  });
  EXPECT_EQ(server_.files().Read("C:\\a.txt"), "");
}

TEST_F(OwnProcessTest, PrintsNothingOnceItHasEnded) {
  RunAndEnd();
  std::fputs("late", stdout);
  ::OutputDebugStringA("late");
  EXPECT_EQ(server_.console().Text(), "");
  EXPECT_TRUE(server_.console().DebuggerTexts().empty());
}

TEST_F(OwnProcessTest, StillGivesMemoryBackOnceItHasEnded) {
  const int before = simulator::LiveLocalBlocks();
  HLOCAL memory = nullptr;
  Run([&memory]() -> int {
    memory = ::LocalAlloc(LPTR, 8);
    ::ExitProcess(0);
  });
  EXPECT_EQ(simulator::LiveLocalBlocks(), before + 1);
  ::LocalFree(memory);
  EXPECT_EQ(simulator::LiveLocalBlocks(), before);
}

TEST_F(OwnProcessTest, LeavesItsHandlesToBeLookedAt) {
  Run([]() -> int {
    HANDLE token = nullptr;
    ::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token);
    ::ExitProcess(0);
  });
  EXPECT_EQ(server_.OpenHandles(), std::vector<std::string>{"token"});
}

struct PipeEnds {
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  std::atomic<bool> is_at_work = false;
  std::atomic<DWORD> error = 0;
};

DWORD ReadFromPipe(LPVOID parameter) {
  PipeEnds& pipe = *static_cast<PipeEnds*>(parameter);
  char byte = 0;
  DWORD count = 0;
  pipe.is_at_work = true;
  ::ReadFile(pipe.read, &byte, 1, &count, nullptr);
  pipe.error = ::GetLastError();
  return 0;
}

DWORD FillPipe(LPVOID parameter) {
  PipeEnds& pipe = *static_cast<PipeEnds*>(parameter);
  const std::string text(10'000, 'x');
  DWORD count = 0;
  pipe.is_at_work = true;
  ::WriteFile(pipe.write, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
  pipe.error = ::GetLastError();
  return 0;
}

TEST_F(OwnProcessTest, EndsThreadsThatWaitForAPipe) {
  for (const LPTHREAD_START_ROUTINE routine : {ReadFromPipe, FillPipe}) {
    PipeEnds pipe;
    Run([&]() -> int {
      EXPECT_TRUE(::CreatePipe(&pipe.read, &pipe.write, nullptr, 0));
      StartThread(routine, &pipe);
      while (!pipe.is_at_work) ::Sleep(1);
      ::ExitProcess(0);
    });
    EXPECT_NE(pipe.error, 0u);
  }
}

TEST_F(OwnProcessTest, WaitsForThreadsThatPoll) {
  std::atomic<bool> has_ended = false;
  const auto poll = [](LPVOID parameter) -> DWORD {
    // Until the first call that the end of the process makes fail.
    while (::SetFileAttributesA("C:\\a.txt", FILE_ATTRIBUTE_HIDDEN)) ::Sleep(1);
    *static_cast<std::atomic<bool>*>(parameter) = true;
    return 0;
  };
  server_.files().Write("C:\\a.txt", "");
  Run([&]() -> int {
    StartThread(poll, &has_ended);
    return 3;
  });
  EXPECT_TRUE(has_ended);
}

TEST_F(OwnProcessTest, EndsThreadsThatWaitForMessages) {
  const auto wait = [](LPVOID parameter) -> DWORD {
    *static_cast<std::atomic<bool>*>(parameter) = true;
    MSG message;
    ::GetMessageW(&message, nullptr, 0, 0);
    return 0;
  };
  std::atomic<bool> is_at_work = false;
  Run([&]() -> int {
    StartThread(wait, &is_at_work);
    while (!is_at_work) ::Sleep(1);
    ::ExitProcess(0);
  });
  EXPECT_TRUE(server_.own_process().HasEnded());
}

TEST_F(OwnProcessTest, TerminatesItsChildren) {
  std::atomic<bool> has_ended = false;
  server_.processes().Install("tool", [&has_ended](Server&, ChildProcess& child) -> DWORD {
    child.WaitUntilTerminated();
    has_ended = true;
    return 0;
  });
  Run([]() -> int {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION child = {};
    std::string command_line = "tool";
    EXPECT_TRUE(::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                 CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child));
    ::ExitProcess(0);
  });
  EXPECT_TRUE(has_ended);
}

TEST_F(OwnProcessTest, IsANewOneAtEveryRun) {
  Run([]() -> int {
    HANDLE token = nullptr;
    LUID luid{};
    ::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY | TOKEN_ADJUST_PRIVILEGES, &token);
    ::LookupPrivilegeValueW(nullptr, L"SeBackupPrivilege", &luid);
    TOKEN_PRIVILEGES privileges{1, {{luid, SE_PRIVILEGE_ENABLED}}};
    ::AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    ::SetThreadUILanguage(2052);
    return 0;
  });
  EXPECT_TRUE(server_.security().Enabled("SeBackupPrivilege"));
  EXPECT_EQ(Run([this] {
              EXPECT_FALSE(server_.own_process().HasEnded());
              EXPECT_TRUE(server_.OpenHandles().empty());
              EXPECT_FALSE(server_.security().Enabled("SeBackupPrivilege"));
              char text[512];
              EXPECT_GT(::LoadStringA(nullptr, 117, text, 512), 0);
              EXPECT_STREQ(text, "Progress");
              return 9;
            }),
            9);
}

TEST_F(OwnProcessTest, StartsChildrenInALaterRun) {
  server_.processes().Install(
      "tool", [](Server&, ChildProcess& child) -> DWORD { return child.Terminated() ? 1 : 0; });
  RunAndEnd();
  Run([this] {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION child = {};
    std::string command_line = "tool";
    EXPECT_TRUE(::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                 CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child));
    server_.processes().WaitForAll();
    DWORD code = 99;
    EXPECT_TRUE(::GetExitCodeProcess(child.hProcess, &code));
    EXPECT_EQ(code, 0u);
    return 0;
  });
}

TEST_F(OwnProcessTest, KeepsTheHandlesOfTheTestAtItsFirstRun) {
  HANDLE token = nullptr;
  ASSERT_TRUE(::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token));
  Run([token] {
    EXPECT_TRUE(::CloseHandle(token));
    return 0;
  });
}

TEST_F(OwnProcessTest, AbortsForAnEndThatIsNotHonoured) {
  EXPECT_DEATH(::ExitProcess(0), "ExitProcess elsewhere");
  EXPECT_DEATH(Run([this] { return Run([] { return 0; }); }), "a run of the program within");
}

TEST_F(OwnProcessTest, IsBrokenOffByACallThatThenChangesNothing) {
  server_.files().Write("C:\\a.txt", "a");
  server_.files().Write("C:\\b.txt", "b");
  server_.calls().Watch([this](std::string_view, const std::string& arguments) {
    if (arguments == "\"C:\\b.txt\"") server_.own_process().BreakOff();
  });
  Run([] {
    EXPECT_TRUE(::DeleteFileA("C:\\a.txt"));
    EXPECT_FALSE(::DeleteFileA("C:\\b.txt"));
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_PROCESS_ABORTED});
    return 0;
  });
  EXPECT_FALSE(server_.files().Exists("C:\\a.txt"));
  EXPECT_TRUE(server_.files().Exists("C:\\b.txt"));
  EXPECT_EQ(server_.calls().Count(), 1);
}

TEST_F(OwnProcessTest, LeavesTheMessageLoopWhenAnotherThreadBreaksItOff) {
  Run([this]() -> int {
    StartThread(
        [](LPVOID server) -> DWORD {
          static_cast<Server*>(server)->own_process().BreakOff();
          return 0;
        },
        &server_);
    for (MSG message{};;) ::GetMessageW(&message, nullptr, 0, 0);
  });
  EXPECT_TRUE(server_.own_process().HasEnded());
}

TEST_F(OwnProcessTest, TerminatesItsChildrenWhenItIsBrokenOff) {
  bool was_terminated = false;
  server_.processes().Install("tool", [&](Server&, ChildProcess& child) -> DWORD {
    child.WaitUntilTerminated();
    was_terminated = true;
    return 0;
  });
  Run([this] {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION child = {};
    std::string command_line = "tool";
    EXPECT_TRUE(::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                 CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child));
    server_.own_process().BreakOff();
    return 0;
  });
  EXPECT_TRUE(was_terminated);
}

TEST_F(OwnProcessTest, RunsAgainAfterItWasBrokenOff) {
  Run([this] {
    server_.own_process().BreakOff();
    return 0;
  });
  server_.files().Write("C:\\a.txt", "a");
  Run([] {
    EXPECT_TRUE(::DeleteFileA("C:\\a.txt"));
    return 0;
  });
}

}  // namespace
