#include <string>
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

TEST(JunctionReport, TakesAJunctionThatIsGoneForNotMade) {
  EXPECT_EQ(JunctionReport({{kRight, kNone, true}}), "junctions: 0 of 1 (1 not made)\n");
}

TEST(JunctionReport, TakesAJunctionToNowhereThatStoodForAlreadyThere) {
  EXPECT_EQ(JunctionReport({{kRight, kRight, false}}), "junctions: 0 of 1 (1 already there)\n");
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
  const std::vector<JunctionOutcome> junctions = GatherJunctions(sources, before, server);
  ASSERT_EQ(junctions.size(), 4u);
  const JunctionState after[] = {kRight, kRight, kNone, kElsewhere};
  for (size_t i = 0; i < junctions.size(); ++i) {
    EXPECT_EQ(junctions[i].before, before[i]) << i;
    EXPECT_EQ(junctions[i].after, after[i]) << i;
    EXPECT_EQ(junctions[i].has_target, i != 2) << i;
  }
}

}  // namespace
}  // namespace simulator
