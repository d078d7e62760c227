// ./run --windows, but for what it installs and builds.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "wine/drive/host_process.h"
#include "wine/tests/wine_case.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

TEST(RehearsalUnderWine, ReportsAsTheOtherOneAndLeavesALogAndAPicture) {
  const fs::path logs = PrefixFolder("logs");
  const std::string text =
      simulator::Run({.arguments = {REHEARSE_PROGRAM, "--windows", "--scenario", "letterless_disk",
                                    "--answer", "later", "--logs", logs.string(), "--strict",
                                    "--json", (logs / "report.json").string()},
                      .environment = {},
                      .folder = "."});
  const std::string declined = std::string("message box [Vantoro Restore Tool]: ") +
                               "Vantoro Restore Finish, Do you want to restart! -> Cancel\n";
  for (const std::string& line :
       {std::string("[Done]  Vantoro Restore Finished! time: "), declined,
        std::string("boot: nothing to do\n"), std::string("letters: 2 of 2 right\n"),
        std::string("junctions: 0 of 0\n"),
        std::string("descriptors: 89 of 89 equal to the source\n"),
        std::string("restart: not asked for\n")}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << "is missing in\n" << text;
  }
  std::ifstream report(logs / "report.json");
  EXPECT_EQ(nlohmann::json::parse(report, nullptr, false).value("right", false), true);
  std::ifstream picture(logs / "vantoro_restore.png", std::ios::binary);
  std::string signature(8, '\0');
  picture.read(signature.data(), 8);
  EXPECT_EQ(signature, "\x89PNG\r\n\x1a\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(logs), fs::directory_iterator()), 3);
  fs::remove_all(logs);
}

}  // namespace
}  // namespace tests
