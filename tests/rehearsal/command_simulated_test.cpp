// The rehearsal as its user runs it: exit status and files.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

namespace simulator {
namespace {

namespace fs = std::filesystem;

class RehearseCommand : public testing::Test {
 protected:
  RehearseCommand() { fs::create_directories(folder_); }
  ~RehearseCommand() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  // Returns the exit status. Output is appended to a file.
  int Run(const std::string& options) {
    const std::string command = std::string(REHEARSE_PROGRAM) + " --logs '" + folder_.string() +
                                "' " + options + " >>'" + Output() + "' 2>&1";
    const int result = std::system(command.c_str());  // NOLINT(concurrency-mt-unsafe)
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
  }

  std::string Output() const { return (folder_ / "output").string(); }

  static std::string TextOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  const fs::path folder_ =
      fs::path(testing::TempDir()) / ("rehearse_command." + std::to_string(::getpid()));
};

TEST_F(RehearseCommand, IsStrictOnRequestAlone) {
  EXPECT_EQ(Run("--scenario deny_everyone_later"), 0);
  EXPECT_EQ(Run("--scenario deny_everyone_later --strict"), 3);
  EXPECT_EQ(Run("--scenario letter_taken"), 1);
  EXPECT_EQ(Run("--scenario letter_taken --strict"), 3);
  EXPECT_TRUE(TextOf(Output()).ends_with("rehearse: the report is not all right\n"));
}

TEST_F(RehearseCommand, GivesNothingToComplainAboutForTheDefaultScenario) {
  EXPECT_EQ(Run("--strict"), 0) << TextOf(Output());
}

TEST_F(RehearseCommand, WritesTheReportForMachines) {
  const fs::path file = folder_ / "report.json";
  EXPECT_EQ(Run("--scenario boot_nothing_to_do --answer later --json '" + file.string() + "'"), 0);
  const nlohmann::json report = nlohmann::json::parse(TextOf(file));
  EXPECT_EQ(report.at("format"), 1);
  EXPECT_EQ(report.at("right"), true);
  EXPECT_EQ(report.at("run").at("outcome"), "succeeded");
  EXPECT_EQ(report.at("descriptors").at("equal"), 49);
}

TEST_F(RehearseCommand, FailsIfTheReportCannotBeWritten) {
  const std::string file = (folder_ / "none" / "report.json").string();
  EXPECT_EQ(Run("--scenario letter_taken --strict --json '" + file + "'"), 1);
  EXPECT_TRUE(TextOf(Output()).ends_with("rehearse: cannot write the report to " + file + "\n"));
}

TEST_F(RehearseCommand, RefusesAScenarioWithAToolCallThatTheRunDoesNotMake) {
  const fs::path file = folder_ / "unreached.json";
  nlohmann::json scenario =
      nlohmann::json::parse(TextOf(fs::path(VANTORO_SCENARIO_DIR) / "boot_nothing_to_do.json"));
  scenario["tools"] = {{{"name", "bcdedit"}, {"call", 9}, {"exit_code", 1}}};
  std::ofstream(file) << scenario;
  EXPECT_EQ(Run("--scenario '" + file.string() + "'"), 2);
  EXPECT_TRUE(TextOf(Output()).ends_with(
      file.string() +
      ": /tools/0/call: expected a call that the run makes; it made 1 of bcdedit\n"));
  // A cancelled run may not come to it.
  EXPECT_EQ(Run("--answer cancel-at 0 --scenario '" + file.string() + "'"), 1);
}

}  // namespace
}  // namespace simulator
