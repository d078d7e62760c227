// Which failures of a run under Wine are Wine's own, and what is then run again.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "support/test_names.h"
#include "wine/drive/wine_failure.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

constexpr char kNoSharedData[] =
    "0024:err:virtual:virtual_alloc_first_teb wine: failed to map the shared user data: c0000018\n";

// A run that came to its end.
RunEvidence Ended() { return {.trace = "", .log = "", .is_watched = true, .start_error = {}}; }

TEST(FailureOfWine, IsNoneOfARunThatCameToItsEnd) {
  EXPECT_EQ(FailureOfWine(Ended()), std::nullopt);
}

TEST(FailureOfWine, IsALoaderThatDidNotComeToTheProgram) {
  RunEvidence run = Ended();
  run.trace = std::string("fixme:progress:ProgressWindowProc state 2 not yet\n") + kNoSharedData;
  EXPECT_EQ(
      FailureOfWine(run),
      "Wine could not run one of its processes (0024:err:virtual:virtual_alloc_first_teb wine: "
      "failed to map the shared user data: c0000018)");
}

TEST(FailureOfWine, IsAProgramThatEndedBeforeItBegan) {
  RunEvidence run = Ended();
  run.start_error = 1359;
  EXPECT_EQ(FailureOfWine(run), "Wine could not start a process (1359)");
}

TEST(FailureOfWine, IsAToolThatEndedBeforeItBegan) {
  RunEvidence run = Ended();
  run.log =
      "[Debug] WinUtil::CreateProgressNoWait: bcdedit\r\n"
      "[Error] WinUtil::CreateProgressNoWait Failed: Last Error: [1359] Internal error.\r\n";
  EXPECT_EQ(FailureOfWine(run), "Wine could not start a process (1359)");
}

TEST(FailureOfWine, IsAWatchThatNeverCameUp) {
  EXPECT_EQ(FailureOfWine({}), "Wine did not start the program that watches the run");
}

struct Code {
  const char* name;
  DWORD value;

  friend void PrintTo(const Code& code, std::ostream* out) { *out << code.name; }
};

class NoFailureOfWine : public testing::TestWithParam<Code> {};

TEST_P(NoFailureOfWine, IsAnErrorOfTheProgramsOwn) {
  RunEvidence run = Ended();
  run.start_error = GetParam().value;
  run.log = "[Error] WinUtil::CreateProgressNoWait Failed: Last Error: [" +
            std::to_string(GetParam().value) + "] why\r\n";
  EXPECT_EQ(FailureOfWine(run), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Codes, NoFailureOfWine,
                         testing::Values(Code{"none", 0}, Code{"no such file", 2},
                                         Code{"access denied", 5}, Code{"no memory", 8},
                                         Code{"no program", 193}, Code{"wrong processor", 216},
                                         Code{"1359 less a digit", 135},
                                         Code{"1359 and a digit", 13590}),
                         tests::NamedAsPrinted());

struct Line {
  const char* name;
  const char* text;

  friend void PrintTo(const Line& line, std::ostream* out) { *out << line.name; }
};

class NoFailureInTrace : public testing::TestWithParam<Line> {};

TEST_P(NoFailureInTrace, IsWhatAProgramCanBringAbout) {
  EXPECT_EQ(FailureInTrace(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, NoFailureInTrace,
    testing::Values(
        Line{"nothing", ""},
        Line{"a shutdown that quotes a failure",
             "fixme:advapi:InitiateSystemShutdownExW (null) L\"wine client error:\" 30 0 1 0x0\n"},
        Line{"a crash",
             "wine: Unhandled page fault on read access to 0000000000000000 at address "
             "0000000140001000 (thread 0024), starting debugger...\n"},
        Line{"a missing program",
             "wine: failed to open L\"C:\\\\vantoro_restore.exe\": c0000135\n"},
        Line{"an image that cannot be mapped", "err:virtual:virtual_map_image failed to map\n"},
        Line{"a missing library", "err:module:import_dll Library other.dll not found\n"}),
    tests::NamedAsPrinted());

TEST(FailureInTrace, IsWhatTheLoaderTells) {
  for (const char* const line :
       {"wine: could not exec wineserver\n", "wine: could not exec the wine loader\n",
        "wine: could not load ntdll.so: no such file\n",
        "wine client error:24: write: Bad file descriptor\n", kNoSharedData}) {
    EXPECT_NE(FailureInTrace(line), std::nullopt) << line;
  }
}

// Fails as often as it is told, then succeeds.
struct Runs {
  int failures;
  int made = 0;

  void operator()() {
    if (++made <= failures) throw WineFailure("Wine failed " + std::to_string(made));
  }
};

TEST(RunAgainWhereWineFails, RunsOnceWhenNothingFails) {
  Runs runs{0};
  std::ostringstream out;
  RunAgainWhereWineFails(std::ref(runs), out);
  EXPECT_EQ(runs.made, 1);
  EXPECT_EQ(out.str(), "");
}

TEST(RunAgainWhereWineFails, RunsTwiceMoreAtMostAndSaysSo) {
  constexpr char kTwice[] =
      "Wine failed 1; once more in a fresh prefix\nWine failed 2; once more in a fresh prefix\n";
  Runs runs{2};
  std::ostringstream out;
  RunAgainWhereWineFails(std::ref(runs), out);
  EXPECT_EQ(runs.made, 3);
  EXPECT_EQ(out.str(), kTwice);

  Runs more{3};
  out.str("");
  EXPECT_THROW(RunAgainWhereWineFails(std::ref(more), out), WineFailure);
  EXPECT_EQ(more.made, 3);
  EXPECT_EQ(out.str(), kTwice);
}

TEST(RunAgainWhereWineFails, RunsNothingAgainAfterAnotherFailure) {
  int made = 0;
  std::ostringstream out;
  const auto run = [&made] {
    ++made;
    throw std::runtime_error("the program did not end");
  };
  EXPECT_THROW(RunAgainWhereWineFails(run, out), std::runtime_error);
  EXPECT_EQ(made, 1);
  EXPECT_EQ(out.str(), "");
}

TEST(WineTrace, IsWhatComesToTheFileAfterwards) {
  const fs::path file = fs::temp_directory_path() / ("wine_trace" + std::to_string(::getpid()));
  fs::remove(file);
  EXPECT_EQ(WineTrace(file).Text(), "");
  std::ofstream(file) << "before\n";
  const WineTrace trace(file);
  EXPECT_EQ(trace.Text(), "");
  std::ofstream(file, std::ios::app) << kNoSharedData;
  EXPECT_EQ(trace.Text(), kNoSharedData);
  fs::remove(file);
  EXPECT_EQ(trace.Text(), "");
}

}  // namespace
}  // namespace simulator
