// Child processes: starting them, what they print, how they end.
#include <windows.h>

#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/child_commands.h"
#include "support/host.h"

namespace tests {
namespace {

class ProcessContract : public HostTest {
 protected:
  ProcessContract() { InstallChildCommands(); }

  // ERROR_SUCCESS, or why the program did not start. The child's output comes out of the read end.
  DWORD Start(const char* application, std::string command_line, BOOL inheritable = TRUE) {
    SECURITY_ATTRIBUTES attributes{};
    attributes.nLength = sizeof attributes;
    attributes.bInheritHandle = inheritable;
    common::UniqueHandle write_end;
    EXPECT_TRUE(::CreatePipe(read_end_.put(), write_end.put(), &attributes, 0));
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = write_end.get();
    startup.hStdError = write_end.get();
    information_ = {};
    const DWORD error = ErrorOf([&] {
      return ::CreateProcessA(application, command_line.data(), nullptr, nullptr, TRUE,
                              CREATE_NO_WINDOW, nullptr, nullptr, &startup, &information_);
    });
    process_.reset(information_.hProcess);
    thread_.reset(information_.hThread);
    return error;
  }

  // All that the child prints, up to the end of its output.
  std::string Output() const {
    std::string output;
    char buffer[100];
    DWORD count = 0;
    while (::ReadFile(read_end_.get(), buffer, sizeof buffer, &count, nullptr)) {
      output.append(buffer, count);
    }
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_BROKEN_PIPE});
    return output;
  }

  DWORD ExitCode() const {
    DWORD code = 0;
    EXPECT_TRUE(::GetExitCodeProcess(process_.get(), &code));
    return code;
  }

  static std::string InSystemDirectory(const std::string& name) {
    char path[MAX_PATH] = {};
    EXPECT_GT(::GetSystemDirectoryA(path, MAX_PATH), 0u);
    return std::string(path) + "\\" + name;
  }

  PROCESS_INFORMATION information_{};
  common::UniqueHandle read_end_;
  common::UniqueHandle process_;
  common::UniqueHandle thread_;
};

TEST_F(ProcessContract, GivesItsOutputAndItsExitCode) {
  ASSERT_EQ(Start(nullptr, Echo("text")), ERROR_SUCCESS);
  EXPECT_EQ(Output(), "text\r\n");
  EXPECT_EQ(ExitCode(), 0u);
}

TEST_F(ProcessContract, HasItsExitCodeOnceItsOutputHasEnded) {
  for (const int code : {0, 1, 3, 259, -1}) {
    ASSERT_EQ(Start(nullptr, ExitWith(code)), ERROR_SUCCESS);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(ExitCode(), static_cast<DWORD>(code));
  }
}

TEST_F(ProcessContract, HasHandlesAndNumbersOfItsOwn) {
  ASSERT_EQ(Start(nullptr, ExitWith(0)), ERROR_SUCCESS);
  EXPECT_NE(information_.hProcess, nullptr);
  EXPECT_NE(information_.hThread, nullptr);
  EXPECT_NE(information_.hProcess, information_.hThread);
  EXPECT_NE(information_.dwProcessId, 0u);
  EXPECT_NE(information_.dwThreadId, 0u);
  EXPECT_NE(information_.dwProcessId, information_.dwThreadId);
  Output();
}

TEST_F(ProcessContract, IsStillActiveUntilItIsTerminated) {
  ASSERT_EQ(Start(nullptr, RunForGood()), ERROR_SUCCESS);
  EXPECT_EQ(ExitCode(), DWORD{STILL_ACTIVE});
  EXPECT_TRUE(::TerminateProcess(process_.get(), 42));
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(ExitCode(), 42u);
}

TEST_F(ProcessContract, IsNotTerminatedOnceItHasEnded) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kTerminatedTwice;
  ASSERT_EQ(Start(nullptr, ExitWith(3)), ERROR_SUCCESS);
  Output();
  EXPECT_EQ(ErrorOf([this] { return ::TerminateProcess(process_.get(), 42); }),
            ERROR_ACCESS_DENIED);
  EXPECT_EQ(ExitCode(), 3u);
}

TEST_F(ProcessContract, RunsOnWithoutItsHandles) {
  ASSERT_EQ(Start(nullptr, Echo("text")), ERROR_SUCCESS);
  process_.reset();
  thread_.reset();
  EXPECT_EQ(Output(), "text\r\n");
}

TEST_F(ProcessContract, WritesNothingToAHandleThatItDoesNotInherit) {
  ASSERT_EQ(Start(nullptr, Echo("text"), FALSE), ERROR_SUCCESS);
  EXPECT_EQ(Output(), "");
}

TEST_F(ProcessContract, KeepsEveryInheritableHandleOpen) {
  SECURITY_ATTRIBUTES attributes{};
  attributes.nLength = sizeof attributes;
  attributes.bInheritHandle = TRUE;
  common::UniqueHandle read_end;
  common::UniqueHandle write_end;
  ASSERT_TRUE(::CreatePipe(read_end.put(), write_end.put(), &attributes, 0));
  ASSERT_EQ(Start(nullptr, RunForGood()), ERROR_SUCCESS);
  read_end.reset();
  DWORD count = 0;
  EXPECT_TRUE(::WriteFile(write_end.get(), "a", 1, &count, nullptr));  // the child could read it
  ::TerminateProcess(process_.get(), 0);
  Output();
  EXPECT_EQ(ErrorOf([&] { return ::WriteFile(write_end.get(), "a", 1, &count, nullptr); }),
            ERROR_NO_DATA);
}

TEST_F(ProcessContract, IsNeitherAFileNorAToken) {
  ASSERT_EQ(Start(nullptr, ExitWith(0)), ERROR_SUCCESS);
  char byte = 0;
  DWORD count = 0;
  EXPECT_EQ(ErrorOf([&] { return ::ReadFile(process_.get(), &byte, 1, &count, nullptr); }),
            ERROR_INVALID_HANDLE);
  EXPECT_EQ(ErrorOf([&] { return ::GetExitCodeProcess(thread_.get(), &count); }),
            ERROR_INVALID_HANDLE);
  Output();
}

TEST_F(ProcessContract, IsFoundByNameInTheSearchPath) {
  for (const char* program : {"cmd", "CMD", "cmd.exe", "\"cmd\"", "\"cmd.exe\""}) {
    EXPECT_EQ(Start(nullptr, std::string(program) + " /c exit 3"), ERROR_SUCCESS) << program;
    Output();
    EXPECT_EQ(ExitCode(), 3u) << program;
  }
}

TEST_F(ProcessContract, IsFoundByItsPath) {
  const std::string path = InSystemDirectory("cmd.exe");
  EXPECT_EQ(Start(nullptr, path + " /c exit 3"), ERROR_SUCCESS);
  Output();
  EXPECT_EQ(ExitCode(), 3u);
  EXPECT_EQ(Start(path.c_str(), "any /c exit 4"), ERROR_SUCCESS);
  Output();
  EXPECT_EQ(ExitCode(), 4u);
}

TEST_F(ProcessContract, AnApplicationNameIsAPathToTheFileItself) {
  EXPECT_EQ(Start("cmd.exe", ExitWith(0)), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(Start(InSystemDirectory("cmd").c_str(), ExitWith(0)), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(Start(PathOf("missing.exe").c_str(), ExitWith(0)), ERROR_FILE_NOT_FOUND);
}

TEST_F(ProcessContract, AnApplicationInAMissingFolderHasNoPath) {
  EXPECT_EQ(Start(PathOf("missing\\cmd.exe").c_str(), ExitWith(0)), ERROR_PATH_NOT_FOUND);
}

TEST_F(ProcessContract, AProgramThatIsNotThereIsNotFound) {
  for (const char* command_line : {"no_such_program", "no_such_program.exe argument", "",
                                   " cmd /c exit 0", "\"cmd /c exit 0\""}) {
    EXPECT_EQ(Start(nullptr, command_line), ERROR_FILE_NOT_FOUND) << command_line;
    EXPECT_EQ(process_.get(), nullptr);
  }
}

TEST_F(ProcessContract, ACommandLineHasAtMost32766Characters) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLongCommandLine;
  const std::string command = ExitWith(3);
  EXPECT_EQ(Start(nullptr, command + std::string(32'766 - command.size(), ' ')), ERROR_SUCCESS);
  Output();
  EXPECT_EQ(ExitCode(), 3u);
}

TEST_F(ProcessContract, ALongerCommandLineIsRefused) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLongCommandLine;
  EXPECT_EQ(Start(nullptr, ExitWith(3) + std::string(32'767, ' ')), ERROR_FILENAME_EXCED_RANGE);
}

}  // namespace
}  // namespace tests
