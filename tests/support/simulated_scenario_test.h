// Scenarios written as JSON to a folder of the host.
#ifndef TESTS_SUPPORT_SIMULATED_SCENARIO_TEST_H_
#define TESTS_SUPPORT_SIMULATED_SCENARIO_TEST_H_

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "rehearsal/description/scenario.h"

namespace tests {

// A folder that holds the scenario under test, scenario.json.
class ScenarioTest : public testing::Test {
 protected:
  ScenarioTest() { std::filesystem::create_directories(folder_); }
  ~ScenarioTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path File() const { return folder_ / "scenario.json"; }

  void WriteHostFile(const std::string& name, const std::string& text) {
    std::filesystem::create_directories((folder_ / name).parent_path());
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  simulator::Scenario Read(const std::string& json) {
    WriteHostFile("scenario.json", json);
    return simulator::ReadScenario(File());
  }

  // Returns a scenario with a system disk, followed by this text: ", {disk}".
  static std::string WithDisks(const std::string& disks, const std::string& keys = "") {
    return R"({"title": "t", "disks": [{"size": "127 GB", "partitions": [{"size": "126 GB",
            "info": "Boot", "volume": {"letter": "C", "source_letter": "C"}}]})" +
           disks + "]" + keys + "}";
  }

  // Returns a scenario whose second disk has a volume with the letter E, and D on the source
  // server, with these further keys.
  static std::string WithVolume(const std::string& keys) {
    return WithDisks(R"(, {"size": "2 GB", "partitions": [{"size": "1 GB",
            "volume": {"letter": "E", "source_letter": "D", )" +
                     keys + "}}]}");
  }

  // Returns the error message without the file's name at its beginning.
  std::string ErrorOf(const std::string& json) {
    try {
      Read(json);
    } catch (const simulator::ScenarioError& error) {
      const std::string text = error.what();
      const std::string file = File().string();
      return text.starts_with(file) ? text.substr(file.size()) : "other file: " + text;
    }
    return "no error";
  }

  const std::filesystem::path folder_ =
      std::filesystem::path(testing::TempDir()) / ("scenario_test." + std::to_string(::getpid()));
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_SCENARIO_TEST_H_
