#include <string>
#include <utility>
#include <vector>

#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_junctions.h"
#include "simulator/model/server.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

constexpr JunctionState kNone = JunctionState::kNone;
constexpr JunctionState kElsewhere = JunctionState::kElsewhere;
constexpr JunctionState kRight = JunctionState::kRight;

TEST(JunctionReport, GivesNoReasonsWhenAllWereMade) {
  EXPECT_EQ(JunctionReport({{kNone, kRight, true}, {kElsewhere, kRight, true}}),
            "junctions: 2 of 2\n");
}

TEST(JunctionReport, CountsTheOthersByReason) {
  EXPECT_EQ(JunctionReport({{kNone, kRight, true},
                            {kNone, kNone, false},
                            {kNone, kNone, false},
                            {kRight, kRight, true},
                            {kElsewhere, kElsewhere, true},
                            {kNone, kNone, true}}),
            "junctions: 1 of 6 (2 target missing, 1 already there, 1 wrong target, 1 not made)\n");
}

TEST(JunctionReport, TellsALostTargetFromOneThatTheSourceLackedToo) {
  EXPECT_EQ(JunctionReport({{kNone, kNone, false, "C:\\a", "D:\\", false},
                            {kNone, kNone, false, "C:\\b", "E:\\", true}}),
            "junctions: 0 of 2 (1 target missing, 1 target lost)\n");
}

TEST(JunctionReport, NamesWhatIsComparedWithWhat) {
  EXPECT_EQ(JunctionReport({{kNone, kRight, true}, {kRight, kRight, true}}, "junctions of D",
                           "as its own list says"),
            "junctions of D: 1 of 2 as its own list says (1 already there)\n");
}

TEST(JunctionVerdict, IsRightUnlessTheRunOwesTheJunction) {
  const std::pair<JunctionVerdict, bool> verdicts[] = {
      {JunctionVerdict::kMade, true},          {JunctionVerdict::kAlreadyThere, true},
      {JunctionVerdict::kTargetMissing, true}, {JunctionVerdict::kTargetLost, false},
      {JunctionVerdict::kWrongTarget, false},  {JunctionVerdict::kNotMade, false}};
  for (const auto& [verdict, is_right] : verdicts) {
    EXPECT_EQ(IsRight(verdict), is_right) << static_cast<int>(verdict);
  }
}

TEST(JunctionReport, TakesAJunctionThatIsGoneForNotMade) {
  EXPECT_EQ(JunctionReport({{kRight, kNone, true}}), "junctions: 0 of 1 (1 not made)\n");
}

TEST(JunctionReport, TakesAJunctionToNowhereThatStoodForAlreadyThere) {
  EXPECT_EQ(JunctionReport({{kRight, kRight, false}}), "junctions: 0 of 1 (1 already there)\n");
}

TEST(JunctionReport, NamesTheCodePageThatLacksACharacter) {
  EXPECT_EQ(JunctionReport({{kNone, kNone, true, "", "", false, 1252},
                            {kNone, kNone, false, "", "", true, 1252}}),
            "junctions: 0 of 2 (2 not in code page 1252)\n");
}

TEST(JunctionReport, HasALineWithoutJunctions) {
  EXPECT_EQ(JunctionReport({}), "junctions: 0 of 0\n");
}

class GatherJunctionsTest : public tests::ScenarioTest {};

TEST_F(GatherJunctionsTest, ComparesWhatStandsBeforeAndAfter) {
  Server server;
  const std::vector<SourceVolume> sources = Build(Read(WithVolume(R"("source": {"junctions": [
      {"path": "a", "target": "C:\\Users", "copy": "junction"},
      {"path": "b", "target": "C:\\users", "copy": "folder"},
      {"path": "c", "target": "X:\\", "copy": "file"},
      {"path": "d", "target": "C:\\Windows"}]})")),
                                                  server);
  const std::vector<JunctionState> before = JunctionStates(sources);
  EXPECT_EQ(before, (std::vector<JunctionState>{kRight, kNone, kNone, kNone}));
  server.files().MakeJunction("E:\\b", "C:\\Users");
  server.files().MakeJunction("E:\\d", "C:\\Users");
  const std::vector<JunctionOutcome> junctions = GatherJunctions(
      sources, before, [](const std::string& path) { return path == "X:\\"; }, server);
  ASSERT_EQ(junctions.size(), 4u);
  EXPECT_EQ(junctions[1].path, "D:\\b");
  EXPECT_EQ(junctions[1].target, "C:\\users");
  const JunctionState after[] = {kRight, kRight, kNone, kElsewhere};
  for (size_t i = 0; i < junctions.size(); ++i) {
    EXPECT_EQ(junctions[i].before, before[i]) << i;
    EXPECT_EQ(junctions[i].after, after[i]) << i;
    EXPECT_EQ(junctions[i].has_target, i != 2) << i;
    EXPECT_EQ(junctions[i].source_had_target, i == 2) << i;
  }
}

TEST_F(GatherJunctionsTest, TellsWhichAreNotInTheCodePage) {
  Server server;
  const std::vector<SourceVolume> sources = Build(Read(WithVolume(R"("source": {"junctions": [
      {"path": "\u00fc", "target": "C:\\Users"},
      {"path": "\u904b", "target": "C:\\Users"},
      {"path": "x", "target": "C:\\\u904b"}]})")),
                                                  server);
  const std::vector<JunctionOutcome> junctions = GatherJunctions(
      sources, JunctionStates(sources), [](const auto&) { return true; }, server);
  ASSERT_EQ(junctions.size(), 3u);
  size_t lacking = 0;
  for (const JunctionOutcome& junction : junctions) lacking += junction.lacking_code_page == 1252;
  EXPECT_EQ(lacking, 2u);
}

}  // namespace
}  // namespace simulator
