// The pictures of the dialog: each shows the log box of its run, with the lines of that run's log.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/nls/code_page.h"
#include "support/log_box.h"
#include "wine/drive/pictured_run.h"
#include "wine/drive/wine_failure.h"
#include "wine/tests/wine_case.h"

namespace simulator {

void PrintTo(const PicturedRun& run, std::ostream* out) {
  for (const std::string& state : run.states) *out << run.PictureOf(state) << " ";
}

}  // namespace simulator

namespace tests {
namespace {

namespace fs = std::filesystem;
using simulator::PicturedRun;
using Names = std::vector<std::string>;

class Picture : public testing::TestWithParam<PicturedRun> {};

TEST_P(Picture, ShowsTheLinesOfItsRunsLog) {
  const PicturedRun& run = GetParam();
  const fs::path folder = PrefixFolder("pictured");
  Names states;
  const auto look = [&](const std::string& state, const simulator::WatchedDialog& dialog,
                        const simulator::WineServer& server) {
    states.push_back(state);
    EXPECT_TRUE(dialog.log.starts_with("Vantoro Restore Begin...\r\n")) << dialog.log;
    EXPECT_EQ(dialog.log, LogBoxText(simulator::Utf8FromAnsi(
                              server.Log(), simulator::AnsiCodePageOf(run.language))));
    const bool is_held = state == "running" || state == "cancelling";
    EXPECT_EQ(dialog.log.ends_with("Restore [e:\\]...\r\n"), is_held);
    EXPECT_EQ(dialog.title.find(" 40.00%") != std::string::npos, is_held) << dialog.title;
  };
  const auto perform = [&] {
    states.clear();
    simulator::Perform(run, folder, look);
  };
  simulator::RunAgainWhereWineFails(perform, std::cout);
  EXPECT_EQ(states, run.states);
  if (!HasFailure()) simulator::RemovePrefix(folder);
}

INSTANTIATE_TEST_SUITE_P(OfTheDialog, Picture, testing::ValuesIn(simulator::PicturedRuns()),
                         [](const auto& test) {
                           return test.param.PictureOf(test.param.states.back());
                         });

TEST(Pictures, AreThoseOfTheRuns) {
  Names expected;
  for (const PicturedRun& run : simulator::PicturedRuns()) {
    for (const std::string& state : run.states) expected.push_back(run.PictureOf(state) + ".png");
  }
  std::sort(expected.begin(), expected.end());
  Names found;
  for (const auto& file : fs::directory_iterator(VANTORO_PICTURE_DIR)) {
    found.push_back(file.path().filename().string());
  }
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace tests
