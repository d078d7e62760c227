// Command execution when the platform refuses.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/errors.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_command.h"

namespace common::win {
namespace {

using simulator::ChildProcess;
using simulator::Server;
using Lines = std::vector<std::string>;

std::string LastErrorLine(DWORD error) {
  return "Last Error: [" + std::to_string(static_cast<int>(error)) + "] " + GetSystemMessage(error);
}

class ExecCommandFailure : public tests::SimulatedCommandTest {};

TEST_F(ExecCommandFailure, FailsWithoutAPipe) {
  Install("x");
  server_.calls().FailNext("CreatePipe", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Run("tool"), static_cast<DWORD>(ERROR_NOT_ENOUGH_MEMORY));
  EXPECT_EQ(output_, "before");
  EXPECT_EQ(logger_.Lines(), Lines{"Error: WinUtil::ExecCommandWithResults Create Pipe Failed: " +
                                   LastErrorLine(ERROR_NOT_ENOUGH_MEMORY)});
  EXPECT_EQ(server_.OpenHandles(), Lines{});
  EXPECT_EQ(NewChildren(), 0U);
}

TEST_F(ExecCommandFailure, FailsWithAllBitsWhenAMissingPipeHasNoCode) {
  server_.calls().FailNext("CreatePipe", 0);
  EXPECT_EQ(Run("tool"), 0xFFFFFFFFU);
  EXPECT_EQ(logger_.Lines(), Lines{"Error: WinUtil::ExecCommandWithResults Create Pipe Failed: " +
                                   LastErrorLine(0)});
}

TEST_F(ExecCommandFailure, FailsForAMissingToolAndKeepsThePipe) {
  EXPECT_EQ(Run("tool"), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(output_, "before");
  const std::string why = LastErrorLine(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(logger_.Lines(),
            (Lines{"Debug: WinUtil::CreateProgressNoWait: tool",
                   "Error: WinUtil::CreateProgressNoWait Failed: " + why,
                   "Error: WinUtil::ExecCommandWithResults Create Progress Failed: " + why}));
  EXPECT_EQ(server_.OpenHandles(), (Lines{"pipe read end", "pipe write end"}));
  EXPECT_EQ(NewChildren(), 0U);
}

TEST_F(ExecCommandFailure, FailsForAnEmptyCommandLine) {
  EXPECT_NE(Run(""), 0U);
  EXPECT_EQ(output_, "before");
}

TEST_F(ExecCommandFailure, FailsWithAllBitsWhenAToolDoesNotStartWithoutACode) {
  server_.calls().FailNext("CreateProcessA", 0);
  EXPECT_EQ(Run("tool"), 0xFFFFFFFFU);
  EXPECT_EQ(output_, "before");
  EXPECT_EQ(logger_.Lines().back(),
            "Error: WinUtil::ExecCommandWithResults Create Progress Failed: " + LastErrorLine(0));
}

TEST_F(ExecCommandFailure, RunsTheNextToolAfterOneThatCouldNotStart) {
  EXPECT_EQ(Run("tool"), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
  Install("x");
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "x");
}

TEST_F(ExecCommandFailure, SucceedsWithoutTheOutputWhenTheCodeCannotBeRead) {
  Install("x", 5);
  server_.calls().FailNext("GetExitCodeProcess", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run("tool"), 0U);
  EXPECT_EQ(output_, "before");
  EXPECT_EQ(logger_.Lines(), (Lines{"Debug: WinUtil::CreateProgressNoWait: tool",
                                    "Error: WinUtil::ExecCommandWithResult Get Exit Code Failed: " +
                                        LastErrorLine(ERROR_ACCESS_DENIED)}));
  EXPECT_EQ(server_.OpenHandles(), Lines{});
  EXPECT_EQ(NewChildren(), 1U);
}

TEST_F(ExecCommandFailure, StopsReadingAtTheFirstFailure) {
  server_.processes().Install("tool", [](Server&, ChildProcess& child) -> DWORD {
    child.WriteOutput("lost");
    child.WaitUntilTerminated();
    return 5;
  });
  server_.calls().FailNext("ReadFile", ERROR_GEN_FAILURE);
  EXPECT_EQ(Run("tool"), static_cast<DWORD>(STILL_ACTIVE));
  EXPECT_EQ(output_, "");
  EXPECT_EQ(server_.calls().ArgumentsOf("ReadFile").size(), 1U);
}

// A tool that nobody can be told the end of: every code of the platform passes through.
TEST_F(ExecCommandFailure, PassesEveryCodeThrough) {
  for (const DWORD code : {1U, 259U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    Install("x", code);
    EXPECT_EQ(Run("tool"), code);
  }
}

TEST_F(ExecCommandFailure, LeavesNothingOpenWhicheverCallFails) {
  Install("x");
  // Both pipe ends stay open behind a tool that does not start.
  const std::vector<std::pair<const char*, Lines>> kept = {
      {"CreatePipe", {}},
      {"ReadFile", {}},
      {"GetExitCodeProcess", {}},
      {"CreateProcessA", {"pipe read end", "pipe write end"}}};
  for (const auto& [name, kinds] : kept) {
    server_.calls().FailNext(name, ERROR_GEN_FAILURE);
    static_cast<void>(Run("tool"));
    EXPECT_EQ(server_.OpenHandles(), kinds) << name;
  }
}

}  // namespace
}  // namespace common::win
