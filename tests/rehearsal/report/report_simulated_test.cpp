// The whole report on a run that leaves something wrong in every part, and what is right.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/report/report.h"
#include "simulator/model/server.h"
#include "support/whole_run_simulated.h"

namespace simulator {
namespace {

using nlohmann::json;

constexpr char kFolder[] = TEST_DATA_DIR "/report/";

std::string FileText(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

void CollectKeys(const json& value, std::set<std::string>& keys) {
  if (!value.is_structured()) return;
  for (const auto& [key, member] : value.items()) {
    if (value.is_object()) keys.insert(key);
    CollectKeys(member, keys);
  }
}

TEST(ReportForMachines, HasEverySectionOfTheRun) {
  tests::WholeRun run(std::string(kFolder) + "scenario.json");
  ASSERT_EQ(run.Run(), 1);
  EXPECT_NO_THROW(run.ExpectReached());
  EXPECT_EQ(json::parse(ReportJson(run.Report())).dump(2),
            json::parse(FileText(std::string(kFolder) + "report.json")).dump(2));
}

TEST(ReportForMachines, TellsOfTheRestart) {
  Report report;
  report.restart = ShutdownRequest{"In 30 s!", 30, false, true};
  EXPECT_EQ(json::parse(ReportJson(report)).at("restart"), json::parse(R"({"right": true,
      "request": {"reboot": true, "seconds": 30, "message": "In 30 s!",
                  "force_apps_closed": false}})"));
}

TEST(ReportForMachines, HasNoKeyThatItsPageDoesNotDescribe) {
  Report report;
  report.restart = ShutdownRequest{};
  std::set<std::string> keys;
  CollectKeys(json::parse(ReportJson(report)), keys);
  CollectKeys(json::parse(FileText(std::string(kFolder) + "report.json")), keys);
  EXPECT_GT(keys.size(), 30u);
  const std::string page = FileText(TEST_DATA_DIR "/../../docs/report.md");
  for (const std::string& key : keys) {
    EXPECT_NE(page.find("`" + key + "`"), std::string::npos) << key;
  }
}

TEST(ReportForMachines, IsJsonWhateverTheTextsAre) {
  Report report;
  report.title = "\xFF\"\n";
  EXPECT_EQ(json::parse(ReportJson(report)).at("title"), "\xEF\xBF\xBD\"\n");
}

TEST(ReportText, SaysThatAPrepareFolderWasComparedWithItsOwnLists) {
  tests::WholeRun run(std::string(kFolder) + "scenario.json");
  run.Run();
  const std::string text = ReportText(run.Report());
  EXPECT_NE(text.find("\njunctions: 1 of 3 (1 target missing, 1 target lost)\n"
                      "descriptors: 5 of 7 equal to the source\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("\njunctions of D: 1 of 2 as its own list says (1 target missing)\n"
                      "descriptors of D: 2 of 3 as its own list says\n"
                      "  D:\\b.txt\n"
                      "    wanted  O:SYG:SYD:PAI(A;;FA;;;SY)\n"
                      "    found   nothing there\n"
                      "restart: not asked for\n"),
            std::string::npos)
      << text;
}

// A report in which nothing is wrong.
Report RightReport() {
  Report report;
  report.letters = {{0, 1, "", 0, 'C', 'C', 'C'}};
  report.junctions = {{JunctionState::kNone, JunctionState::kRight, true},
                      {JunctionState::kRight, JunctionState::kRight, true},
                      {JunctionState::kNone, JunctionState::kNone, false}};
  report.descriptors.objects = 1;
  report.lists = {{'D', DescriptorOutcome{2, {}}, report.junctions}};
  report.run.wants_restart = true;
  report.restart = ShutdownRequest{};
  return report;
}

TEST(WholeReport, IsRightIfEveryPartIs) {
  EXPECT_TRUE(IsRight(RightReport()));
  EXPECT_TRUE(IsRight({}));
}

TEST(WholeReport, IsWrongIfAnyPartIs) {
  const std::pair<const char*, void (*)(Report&)> kChanges[] = {
      {"boot", [](Report& report) { report.boot.after.entries.emplace_back(); }},
      {"letter", [](Report& report) { report.letters[0].after = 'D'; }},
      {"junction", [](Report& report) { report.junctions[0].after = JunctionState::kNone; }},
      {"lost target", [](Report& report) { report.junctions[2].source_had_target = true; }},
      {"descriptor", [](Report& report) { report.descriptors.differences.emplace_back(); }},
      {"junction of a list",
       [](Report& report) { report.lists[0].junctions->front().after = JunctionState::kNone; }},
      {"descriptor of a list",
       [](Report& report) { report.lists[0].descriptors->differences.emplace_back(); }},
      {"missing junction list", [](Report& report) { report.lists[0].junctions.reset(); }},
      {"missing list", [](Report& report) { report.lists[0].descriptors.reset(); }},
      {"restart", [](Report& report) { report.restart.reset(); }},
  };
  for (const auto& [name, change] : kChanges) {
    Report report = RightReport();
    change(report);
    EXPECT_FALSE(IsRight(report)) << name;
  }
}

TEST(WholeReport, WantsNoRestartThatNobodyAgreedTo) {
  Report report = RightReport();
  report.restart.reset();
  report.run.wants_restart = false;
  EXPECT_TRUE(IsRight(report));
  report.run = {RunOutcome::kFailed, "", true};
  EXPECT_TRUE(IsRight(report));
}

}  // namespace
}  // namespace simulator
