#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"

namespace {
using simulator::ChildProcess;
using simulator::Server;

class ProcessesTest : public testing::Test {
 protected:
  struct Pipe {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
  };

  static Pipe MakePipe(BOOL inheritable = TRUE) {
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), nullptr, inheritable};
    Pipe pipe;
    ::CreatePipe(&pipe.read, &pipe.write, &attributes, 0);
    return pipe;
  }

  // The error, 0 for none.
  DWORD Start(std::string command_line, HANDLE output = nullptr,
              const char* application = nullptr) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    if (output != nullptr) {
      startup.dwFlags = STARTF_USESTDHANDLES;
      startup.hStdOutput = output;
      startup.hStdError = output;
    }
    const BOOL started = ::CreateProcessA(application, command_line.data(), nullptr, nullptr, TRUE,
                                          CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child_);
    return started ? DWORD{ERROR_SUCCESS} : ::GetLastError();
  }

  static std::string ReadAll(HANDLE read) {
    std::string text;
    char buffer[1024];
    DWORD count = 0;
    while (::ReadFile(read, buffer, sizeof(buffer), &count, nullptr)) text.append(buffer, count);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_BROKEN_PIPE});
    return text;
  }

  // Starts the program with a pipe for its output and reads until it has ended.
  std::string Run(const std::string& command_line) {
    const Pipe pipe = MakePipe();
    EXPECT_EQ(Start(command_line, pipe.write), DWORD{ERROR_SUCCESS});
    ::CloseHandle(pipe.write);
    return ReadAll(pipe.read);
  }

  DWORD ExitCode() const {
    DWORD code = 0;
    EXPECT_TRUE(::GetExitCodeProcess(child_.hProcess, &code));
    return code;
  }

  // The options of CreateProcessA that the tests below turn to what is not honoured.
  void StartWith(STARTUPINFOA startup, BOOL inherit = TRUE, DWORD flags = CREATE_NO_WINDOW) {
    std::string command_line = "tool";
    ::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, inherit, flags, nullptr,
                     nullptr, &startup, &child_);
  }

  Server server_;
  PROCESS_INFORMATION child_ = {};
};

DWORD Hang(Server&, ChildProcess& child) {
  child.WaitUntilTerminated();
  return 0;
}

DWORD End(Server&, ChildProcess&) { return 0; }

TEST_F(ProcessesTest, CaptureOutputAndErrorsThroughOnePipe) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("out ");
    child.WriteError("err ");
    child.WriteOutput("out");
    return 0;
  });
  EXPECT_EQ(Run("tool"), "out err out");
}

TEST_F(ProcessesTest, GiveTheExitCodeToWhoSawTheEndOfTheOutput) {
  server_.processes().Install("tool", [](Server&, ChildProcess&) -> DWORD { return 42; });
  for (int i = 0; i < 100; ++i) {
    Run("tool");
    ASSERT_EQ(ExitCode(), 42u);
  }
}

TEST_F(ProcessesTest, AreStillActiveWhileTheyRun) {
  server_.processes().Install("tool", Hang);
  Start("tool");
  EXPECT_EQ(ExitCode(), DWORD{STILL_ACTIVE});
}

TEST_F(ProcessesTest, AreStillActiveAfterClosingTheirOwnHandles) {
  server_.processes().Install("tool", [](Server& server, ChildProcess& child) {
    child.WriteOutput("x");
    child.CloseHandles();
    return Hang(server, child);
  });
  EXPECT_EQ(Run("tool"), "x");
  EXPECT_EQ(ExitCode(), DWORD{STILL_ACTIVE});
}

TEST_F(ProcessesTest, KnowTheirCommandLine) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput(child.CommandLine());
    for (const std::string& argument : child.Arguments()) child.WriteOutput("|" + argument);
    return 0;
  });
  EXPECT_EQ(Run("tool /s \"a b\""), "tool /s \"a b\"|tool|/s|a b");
}

TEST_F(ProcessesTest, AreFoundByTheFirstTokenHoweverItIsWritten) {
  server_.processes().Install("DiskPart", End);
  for (const char* command_line :
       {"diskpart", "DISKPART.exe /s x", "\"diskpart\" x", "C:\\Windows\\system32\\diskpart.exe",
        "\"C:\\Windows\\system32\\diskpart.exe\" x"}) {
    EXPECT_EQ(Start(command_line), DWORD{ERROR_SUCCESS}) << command_line;
  }
}

TEST_F(ProcessesTest, AreNotFoundWhenNothingOfThatNameIsInstalled) {
  server_.processes().Install("tool", End);
  for (const char* command_line : {"", " ", " tool", "toolbox", "tool.com", "\"tool x\""}) {
    EXPECT_EQ(Start(command_line), DWORD{ERROR_FILE_NOT_FOUND}) << command_line;
  }
  server_.processes().Uninstall("tool");
  EXPECT_EQ(Start("tool"), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(ProcessesTest, AreNamedByTheApplicationNameWhenThereIsOne) {
  server_.processes().Install("tool", End);
  EXPECT_EQ(Start("other x", nullptr, "C:\\Windows\\system32\\tool.exe"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(server_.processes().Started(), std::vector<std::string>{"other x"});
}

TEST_F(ProcessesTest, AreNotLookedForByAnApplicationNameThatIsNoPathToTheFile) {
  server_.processes().Install("tool", End);
  for (const char* application : {"tool", "tool.exe", "C:\\Windows\\system32\\tool"}) {
    EXPECT_EQ(Start("tool", nullptr, application), DWORD{ERROR_FILE_NOT_FOUND}) << application;
  }
}

TEST_F(ProcessesTest, TakeTheApplicationNameForAMissingCommandLine) {
  server_.processes().Install("tool", End);
  STARTUPINFOA startup = {};
  startup.cb = sizeof(startup);
  ASSERT_TRUE(::CreateProcessA("C:\\tool.exe", nullptr, nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                               nullptr, nullptr, &startup, &child_));
  EXPECT_EQ(server_.processes().Started(), std::vector<std::string>{"C:\\tool.exe"});
}

TEST_F(ProcessesTest, RefuseACommandLineThatIsTooLong) {
  server_.processes().Install("tool", End);
  const std::string longest = "tool " + std::string(32766 - 5, 'x');
  EXPECT_EQ(Start(longest), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Start(longest + "x"), DWORD{ERROR_FILENAME_EXCED_RANGE});
}

TEST_F(ProcessesTest, HaveIdsAndTwoHandles) {
  server_.processes().Install("tool", End);
  Start("tool");
  const DWORD first = child_.dwProcessId;
  EXPECT_NE(first, child_.dwThreadId);
  EXPECT_EQ(server_.OpenHandles(), (std::vector<std::string>{"process", "thread"}));
  Start("tool");
  EXPECT_NE(child_.dwProcessId, first);
}

TEST_F(ProcessesTest, InheritEveryInheritableHandleOfTheProgram) {
  server_.processes().Install("hang", Hang);
  server_.processes().Install("tool", End);
  const Pipe pipe = MakePipe();
  Start("hang");  // with a copy of the write end
  const HANDLE hanging = child_.hProcess;
  Start("tool", pipe.write);
  ::CloseHandle(pipe.write);
  std::atomic<bool> ended = false;
  std::thread reader([&] {
    ReadAll(pipe.read);
    ended = true;
  });
  server_.processes().Install("probe", End);
  EXPECT_EQ(Run("probe"), "");
  EXPECT_FALSE(ended);
  ::TerminateProcess(hanging, 1);
  reader.join();
}

TEST_F(ProcessesTest, CannotUseAStandardHandleThatIsNotInheritable) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("lost");
    return 0;
  });
  const Pipe pipe = MakePipe(FALSE);
  EXPECT_EQ(Start("tool", pipe.write), DWORD{ERROR_SUCCESS});
  ::CloseHandle(pipe.write);
  EXPECT_EQ(ReadAll(pipe.read), "");
}

TEST_F(ProcessesTest, LoseTheirHandlesAtOnceWhenTerminated) {
  server_.processes().Install("tool", Hang);
  const Pipe pipe = MakePipe();
  Start("tool", pipe.write);
  ::CloseHandle(pipe.write);
  EXPECT_TRUE(::TerminateProcess(child_.hProcess, 7));
  EXPECT_EQ(ExitCode(), 7u);
  EXPECT_EQ(ReadAll(pipe.read), "");
}

TEST_F(ProcessesTest, StopWritingWhenTerminated) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    while (!child.Terminated()) child.WriteOutput(std::string(10'000, 'x'));
    return 5;
  });
  const Pipe pipe = MakePipe();
  Start("tool", pipe.write);
  EXPECT_TRUE(::TerminateProcess(child_.hProcess, 1));
  server_.processes().WaitForAll();
  EXPECT_EQ(ExitCode(), 1u);
}

TEST_F(ProcessesTest, CannotBeTerminatedTwiceOrAfterTheirEnd) {
  server_.processes().Install("tool", End);
  Run("tool");
  EXPECT_FALSE(::TerminateProcess(child_.hProcess, 1));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(ExitCode(), 0u);
}

TEST_F(ProcessesTest, AreUnknownByClosedAndByForeignHandles) {
  server_.processes().Install("tool", End);
  Start("tool");
  ::CloseHandle(child_.hProcess);
  DWORD code = 0;
  EXPECT_FALSE(::GetExitCodeProcess(child_.hProcess, &code));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
  EXPECT_FALSE(::TerminateProcess(child_.hThread, 1));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(ProcessesTest, RunOnWhenTheirReaderIsGone) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("x");
    return 3;
  });
  const Pipe pipe = MakePipe();
  ::CloseHandle(pipe.read);
  Start("tool", pipe.write);
  server_.processes().WaitForAll();
  EXPECT_EQ(ExitCode(), 3u);
}

TEST_F(ProcessesTest, WriteMuchInOnePiece) {
  constexpr size_t kSize = 8'000'000;
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput(std::string(kSize, 'x'));
    return 0;
  });
  EXPECT_EQ(Run("tool").size(), kSize);
}

TEST_F(ProcessesTest, WriteByteByByte) {
  constexpr size_t kSize = 100'000;
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    for (size_t i = 0; i < kSize; ++i) child.WriteOutput("x");
    return 0;
  });
  EXPECT_EQ(Run("tool").size(), kSize);
}

TEST_F(ProcessesTest, AreTracedByWhatTheyWereStartedWith) {
  server_.processes().Install("tool", End);
  Start("tool x");
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateProcessA"),
            std::vector<std::string>{"null, \"tool x\""});
}

TEST_F(ProcessesTest, DoNotStartWhenAFaultIsDue) {
  server_.processes().Install("tool", End);
  server_.calls().FailNext("CreateProcessA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Start("tool"), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  EXPECT_TRUE(server_.processes().Started().empty());
}

TEST_F(ProcessesTest, AbortForWhatIsNotHonoured) {
  STARTUPINFOA startup = {};
  startup.cb = sizeof(startup);
  EXPECT_DEATH(StartWith(startup, FALSE), "no handles inherited");
  EXPECT_DEATH(StartWith(startup, TRUE, 0), "creation flags");
  STARTUPINFOA wrong = startup;
  wrong.cb = 68;
  EXPECT_DEATH(StartWith(wrong), "STARTUPINFOA::cb");
  wrong = startup;
  wrong.dwFlags = 0x80;
  EXPECT_DEATH(StartWith(wrong), "dwFlags");
  wrong = startup;
  wrong.dwFlags = STARTF_USESHOWWINDOW;
  wrong.wShowWindow = 5;
  EXPECT_DEATH(StartWith(wrong), "wShowWindow");
}

TEST(Server, EndsChildrenAndThreadsThatStillRun) {
  {
    Server server;
    server.processes().Install("tool", Hang);
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ASSERT_TRUE(::CreatePipe(&read, &write, &attributes, 0));
    std::string command_line = "tool";
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION child = {};
    ASSERT_TRUE(::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                 CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child));
    ::CloseHandle(write);
    const auto read_to_the_end = [](LPVOID handle) -> DWORD {
      char byte = 0;
      DWORD count = 0;
      while (::ReadFile(handle, &byte, 1, &count, nullptr)) continue;
      return 0;
    };
    ASSERT_NE(::CreateThread(nullptr, 0, read_to_the_end, read, 0, nullptr), nullptr);
  }
  SUCCEED();
}

TEST(Server, TerminatesAtOnceWhatStartsDuringItsEnd) {
  Server server;
  server.processes().Install("tool", Hang);
  server.processes().TerminateAll();
  simulator::ChildStart start;
  start.program = "tool";
  EXPECT_TRUE(server.processes().Start(start)->Terminated());
}

TEST(Server, StandsAlone) {
  const Server server;
  EXPECT_DEATH(Server(), "a second server");
}

TEST(Server, MustStandWhenTheProgramCalls) {
  HANDLE handle = nullptr;
  EXPECT_DEATH(::CloseHandle(handle), "no server stands");
}

TEST(Server, HasTheUsualFolders) {
  Server server;
  const simulator::System& system = server.system();
  for (const std::string& path : {system.system_directory, system.temp_directory,
                                  system.common_startup_directory, system.program_path}) {
    EXPECT_TRUE(server.files().Exists(path)) << path;
  }
  EXPECT_EQ(server.files().VolumeAt('C')->label, "Windows");
  EXPECT_EQ(server.files().VolumeAt('C')->size, UINT64_C(127) << 30);
}

}  // namespace
