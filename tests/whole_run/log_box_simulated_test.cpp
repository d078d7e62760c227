// The log box in whole runs of the program on shipped scenarios.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <regex>
#include <string>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"
#include "support/log_box.h"
#include "support/program_simulated.h"
#include "ui/resource.h"

namespace restore {
namespace {

struct BoxCase {
  const char* scenario;
  LANGID language;
  int lines;
};

void PrintTo(const BoxCase& test, std::ostream* out) { *out << test.scenario << test.language; }

class LogBoxRun : public tests::ProgramTest, public testing::WithParamInterface<BoxCase> {};

// Every line has the console as its second witness: there it has its stamp and level.
TEST_P(LogBoxRun, ShowsTheMessagesOfTheLogThatTheConsoleHas) {
  simulator::Scenario scenario = simulator::ReadScenario(
      std::filesystem::path(VANTORO_SCENARIO_DIR) / (std::string(GetParam().scenario) + ".json"));
  scenario.language = GetParam().language;
  const std::vector<simulator::SourceVolume> sources = simulator::Build(scenario, server_);
  EXPECT_EQ(Run(), 0);

  const std::string box = Dialog().Control(IDC_LOG).text;
  EXPECT_EQ(std::count(box.begin(), box.end(), '\n'), GetParam().lines);
  const std::string log =
      server_.files().Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log").value_or("");
  EXPECT_EQ(box, tests::LogBoxText(log));
  // The second line of the beginning is followed by an empty one on the console.
  const std::string console =
      std::regex_replace(server_.console().Text(), std::regex(R"(\[[^\]]*\] \[\w+\] {1,2})"), "");
  EXPECT_EQ(box, std::regex_replace(console, std::regex("\n\r\n"), "\r\n"));
}

// Lines of "default": the beginning; the boot stage's 2; of the letters the beginning, a free one
// for the disk without one, three removed, three assigned, and the end, 9 in all; the beginning of
// the volumes, six fixed volumes, the totals and the result. Of "acl_list_missing": no letter is
// wrong and there are two volumes.
INSTANTIATE_TEST_SUITE_P(Scenarios, LogBoxRun,
                         testing::Values(BoxCase{"default", 1033, 21}, BoxCase{"default", 2052, 21},
                                         BoxCase{"acl_list_missing", 1033, 10},
                                         BoxCase{"acl_list_missing", 2052, 10}),
                         [](const auto& test) {
                           return std::string(test.param.scenario) + "_" +
                                  std::to_string(test.param.language);
                         });

}  // namespace
}  // namespace restore
