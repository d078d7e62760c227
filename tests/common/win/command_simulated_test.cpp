// Command execution against installed programs.
#include <gtest/gtest.h>

#include <future>
#include <string>
#include <thread>
#include <vector>

#include "common/win/child_process_list.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_command.h"

namespace common::win {
namespace {

using simulator::ChildProcess;
using simulator::Server;
using Lines = std::vector<std::string>;

class ExecCommand : public tests::SimulatedCommandTest {};

TEST_F(ExecCommand, GivesTheOutputOfATool) {
  Install("one\r\ntwo\r\n");
  EXPECT_EQ(Run("tool /s x"), 0U);
  EXPECT_EQ(output_, "one\r\ntwo\r\n");
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Debug: WinUtil::CreateProgressNoWait: tool /s x",
                   "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=0"}));
}

TEST_F(ExecCommand, GivesTheCodeOfAToolThatFailsWithItsFullOutput) {
  Install("no such disk\r\n", 5);
  EXPECT_EQ(Run("tool"), 5U);
  EXPECT_EQ(output_, "no such disk\r\n");
  EXPECT_EQ(logger_.Lines().back(),
            "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=5");
}

TEST_F(ExecCommand, LogsACodeAsASignedNumber) {
  Install("", 0xC0000135);
  EXPECT_EQ(Run("tool"), 0xC0000135U);
  EXPECT_EQ(logger_.Lines().back(),
            "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=-1073741515");
}

TEST_F(ExecCommand, TakesBothStreamsInTheOrderOfWriting) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("1 ");
    child.WriteError("2 ");
    child.WriteError("3 ");
    child.WriteOutput("4");
    return 0;
  });
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "1 2 3 4");
}

TEST_F(ExecCommand, GivesNothingForAToolThatWritesNothing) {
  Install("", 0);
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "");
}

TEST_F(ExecCommand, JoinsOddPieces) {
  std::string expected;
  for (size_t i = 0; i < 300; ++i)
    expected += std::string(i * 7 % 61, static_cast<char>('a' + i % 26));
  server_.processes().Install("tool", [expected](Server&, ChildProcess& child) -> DWORD {
    for (size_t at = 0, step = 1; at < expected.size(); at += step, step = step % 37 + 1) {
      child.WriteOutput(expected.substr(at, step));
    }
    return 0;
  });
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, expected);
}

TEST_F(ExecCommand, ReadsOnAfterAnEmptyWrite) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("");
    child.WriteOutput("a");
    child.WriteOutput("");
    child.WriteOutput("");
    child.WriteOutput("b");
    return 0;
  });
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "ab");
}

TEST_F(ExecCommand, ReadsPiecesOf1023Bytes) {
  Install(std::string(3000, 'x'));
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, std::string(3000, 'x'));
  for (const std::string& arguments : server_.calls().ArgumentsOf("ReadFile")) {
    EXPECT_TRUE(arguments.ends_with(", 1023")) << arguments;
  }
}

TEST_F(ExecCommand, LosesTheRestOfAPieceBehindAZeroByte) {
  Install(std::string(10, 'a') + '\0' + std::string(1012, 'b') + std::string(1023, 'c') +
          std::string(1022, 'd') + '\0' + '\0' + std::string(5, 'e'));
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, std::string(10, 'a') + std::string(1023, 'c') + std::string(1022, 'd'));
}

TEST_F(ExecCommand, KeepsEveryOtherByte) {
  std::string bytes;
  for (int value = 1; value < 256; ++value) bytes += static_cast<char>(value);
  Install(bytes);
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, bytes);
}

TEST_F(ExecCommand, TakesAHundredMegabytes) {
  constexpr size_t kPieces = 25600;
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    for (size_t i = 0; i < kPieces; ++i) child.WriteOutput(std::string(4096, 'x'));
    return 3;
  });
  EXPECT_EQ(Run("tool"), 3U);
  EXPECT_EQ(output_.size(), kPieces * 4096);
  EXPECT_EQ(output_.find_first_not_of('x'), std::string::npos);
}

TEST_F(ExecCommand, TakesTheEndOfTheOutputForTheEndOfTheTool) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("so far");
    child.CloseHandles();
    child.WriteOutput("too late");
    child.WaitUntilTerminated();
    return 7;
  });
  EXPECT_EQ(Run("tool"), static_cast<DWORD>(STILL_ACTIVE));
  EXPECT_EQ(output_, "so far");
  EXPECT_EQ(logger_.Lines().back(),
            "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=259");
}

// What the dialog does when the user cancels.
TEST_F(ExecCommand, EndsWhenAnotherThreadTerminatesTheListedChildren) {
  std::promise<void> hangs;
  server_.processes().Install("tool", [&](Server&, ChildProcess& child) -> DWORD {
    // More than a pipe holds: behind it the child is listed.
    child.WriteOutput(std::string(5000, 'x'));
    hangs.set_value();
    child.WaitUntilTerminated();
    return 7;
  });
  std::thread canceller([&] {
    hangs.get_future().wait();
    size_t index = 0;
    ChildProcessList::Instance().ForEach([&](HANDLE child) {
      if (index++ < known_children_) return;
      EXPECT_TRUE(::TerminateProcess(child, 1));
    });
  });
  EXPECT_EQ(Run("tool"), 1U);
  canceller.join();
  EXPECT_EQ(output_, std::string(5000, 'x'));
}

TEST_F(ExecCommand, TakesWhatACancelledToolHadInThePipe) {
  std::promise<void> hangs;
  server_.processes().Install("tool", [&](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput(std::string(5000, 'x'));
    hangs.set_value();
    while (!child.Terminated()) child.WriteOutput(std::string(4096, 'x'));
    return 7;
  });
  std::thread canceller([&] {
    hangs.get_future().wait();
    EXPECT_TRUE(::TerminateProcess(Children().back(), 1));
  });
  EXPECT_EQ(Run("tool"), 1U);
  canceller.join();
  EXPECT_GE(output_.size(), 5000U);
  EXPECT_EQ(output_.find_first_not_of('x'), std::string::npos);
}

TEST_F(ExecCommand, ReplacesTheText) {
  Install("new");
  output_ = std::string(5000, 'o');
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "new");
}

TEST_F(ExecCommand, ClosesWhatItOpened) {
  Install("x");
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

TEST_F(ExecCommand, CallsThePlatformInThisOrder) {
  Install("x");
  EXPECT_EQ(Run("tool"), 0U);
  Lines events = logger_.Events();
  // How many pieces the output comes in is not the point.
  std::erase(events, "ReadFile");
  EXPECT_EQ(events, (Lines{"CreatePipe", "Debug: WinUtil::CreateProgressNoWait: tool",
                           "CreateProcessA", "CloseHandle", "CloseHandle", "GetExitCodeProcess",
                           "Debug: WinUtil::ExecCommandWithResult Get Exit Code Successed: code=0",
                           "CloseHandle", "CloseHandle"}));
}

TEST_F(ExecCommand, MakesBothPipeEndsInheritable) {
  Install("x");
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(server_.calls().ArgumentsOf("CreatePipe"), Lines{"\"inheritable\", 0"});
}

TEST_F(ExecCommand, ListsEveryChildEvenAfterItsHandleIsClosed) {
  Install("x", 5);
  EXPECT_EQ(Run("tool"), 5U);
  EXPECT_EQ(Run("tool"), 5U);
  ASSERT_EQ(NewChildren(), 2U);
  DWORD code = 0;
  EXPECT_FALSE(::GetExitCodeProcess(Children().back(), &code));
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
  EXPECT_FALSE(::TerminateProcess(Children().back(), 1));
}

TEST_F(ExecCommand, CutsTheCommandLineBehind2047Characters) {
  Install("");
  const std::string command_line = "tool " + std::string(2995, 'x');
  EXPECT_EQ(Run(command_line), 0U);
  EXPECT_EQ(server_.processes().Started(), Lines{command_line.substr(0, 2047)});
}

TEST_F(ExecCommand, KeepsACommandLineOf2047Characters) {
  Install("");
  const std::string command_line = "tool " + std::string(2042, 'x');
  EXPECT_EQ(Run(command_line), 0U);
  EXPECT_EQ(server_.processes().Started(), Lines{command_line});
}

TEST_F(ExecCommand, LogsACommandLineThatLooksLikeATemplate) {
  Install("");
  EXPECT_EQ(Run("tool %s%n%d%%"), 0U);
  EXPECT_EQ(logger_.Lines().front(), "Debug: WinUtil::CreateProgressNoWait: tool %s%n%d%%");
}

TEST_F(ExecCommand, LogsTheCommandLineUncutButForTheLogger) {
  Install("");
  const std::string command_line = "tool " + std::string(2025, 'x');
  EXPECT_EQ(Run(command_line), 0U);
  // The logger keeps 2,046 characters of the message.
  EXPECT_EQ(logger_.Lines().front(),
            "Debug: " + ("WinUtil::CreateProgressNoWait: " + command_line).substr(0, 2046));
}

TEST_F(ExecCommand, StartsAProgramByItsPath) {
  Install("by path");
  EXPECT_EQ(tools_.ExecCommandWithResults("C:\\Windows\\system32\\tool.exe", "any text", output_),
            0U);
  EXPECT_EQ(output_, "by path");
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateProcessA"),
            Lines{"\"C:\\Windows\\system32\\tool.exe\", \"any text\""});
}

TEST_F(ExecCommand, PassesNullForAnEmptyApplicationName) {
  Install("");
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateProcessA"), Lines{"null, \"tool\""});
}

}  // namespace
}  // namespace common::win
