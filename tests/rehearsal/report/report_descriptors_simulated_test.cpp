#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_descriptors.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

TEST(DescriptorReport, WritesThousandsWithCommas) {
  EXPECT_EQ(DescriptorReport({999, {}}), "descriptors: 999 of 999 equal to the source\n");
  EXPECT_EQ(DescriptorReport({1000, {}}), "descriptors: 1,000 of 1,000 equal to the source\n");
  EXPECT_EQ(DescriptorReport({1234567, {}}),
            "descriptors: 1,234,567 of 1,234,567 equal to the source\n");
}

TEST(DescriptorReport, ClaimsNothingOverNothing) {
  DescriptorOutcome outcome;
  EXPECT_EQ(DescriptorReport(outcome), "descriptors: nothing to compare\n");
  outcome.objects = outcome.roots = 2;
  EXPECT_EQ(DescriptorReport(outcome), "descriptors: nothing but roots to compare\n");
  outcome.differences.push_back({"D:\\", "O:BA", "O:SY"});
  EXPECT_TRUE(DescriptorReport(outcome).starts_with("descriptors: 1 of 2 equal to the source\n"));
}

TEST(DescriptorReport, NamesWhatIsComparedWithWhat) {
  EXPECT_EQ(DescriptorReport({3, {}}, "descriptors of D", "as its own list says"),
            "descriptors of D: 3 of 3 as its own list says\n");
}

TEST(DescriptorReport, ShowsWhatWasWantedAndFound) {
  EXPECT_EQ(DescriptorReport({3, {{"C:\\a b.txt", "O:BA", "O:SY"}, {"C:\\c", "O:BA", ""}}}),
            "descriptors: 1 of 3 equal to the source\n"
            "  C:\\a b.txt\n"
            "    wanted  O:BA\n"
            "    found   O:SY\n"
            "  C:\\c\n"
            "    wanted  O:BA\n"
            "    found   nothing there\n");
}

TEST(DescriptorReport, ShowsTenDifferencesAndCountsTheOthers) {
  DescriptorOutcome outcome{2000, {}};
  std::string shown;
  for (int i = 0; i < 1011; ++i) {
    outcome.differences.push_back({"C:\\" + std::to_string(i), "O:BA", "O:SY"});
    if (i < 10) {
      shown += "  C:\\" + std::to_string(i) + "\n    wanted  O:BA\n    found   O:SY\n";
    }
  }
  EXPECT_EQ(DescriptorReport(outcome),
            "descriptors: 989 of 2,000 equal to the source\n" + shown + "  and 1,001 more\n");
  outcome.differences.resize(10);
  EXPECT_EQ(DescriptorReport(outcome), "descriptors: 1,990 of 2,000 equal to the source\n" + shown);
}

TEST(DescriptorReport, CountsWhatCannotComeBack) {
  DescriptorOutcome outcome{60, {{"C:\\a", "O:BA", "O:SY"}}, 0, {1, 0, 0}};
  const std::string line = "descriptors: 59 of 60 equal to the source; cannot come back: ";
  const std::string rest = "\n  C:\\a\n    wanted  O:BA\n    found   O:SY\n";
  EXPECT_EQ(DescriptorReport(outcome), line + "1 mandatory label" + rest);
  outcome.lost_entries = {1000, 1, 2};
  EXPECT_EQ(DescriptorReport(outcome),
            line + "1,000 mandatory labels, 1 resource attribute, 2 central policies" + rest);
  outcome.differences[0].is_unnamed = true;
  outcome.code_page = 936;
  outcome.lost_entries = {0, 0, 0};
  EXPECT_EQ(DescriptorReport(outcome), line + "1 not in code page 936" + rest);
  outcome.differences[0].is_unnamed = false;
  outcome.lost_entries = {0, 2, 1};
  EXPECT_EQ(DescriptorReport(outcome), line + "2 resource attributes, 1 central policy" + rest);
}

class GatherDescriptorsTest : public tests::ScenarioTest {};

TEST_F(GatherDescriptorsTest, ComparesEveryObjectWithTheServers) {
  Server server;
  const std::vector<SourceVolume> sources = Build(Read(WithVolume(R"json("source": {
      "sddl": "O:BAG:SYD:PAI(A;OICI;FA;;;BA)",
      "folders": [{"path": "a", "sddl": "O:SYG:SYD:PAI(A;;FA;;;BA)"}],
      "files": [{"path": "a\\label", "sddl": "O:SYG:SYD:PAI"},
                {"path": "b", "sddl": "O:SYG:SYD:PAI(A;;FA;;;BA)"}],
      "junctions": [{"path": "j", "target": "C:\\Users", "sddl": "O:SYG:SYD:PAI"}]
},
      "lost": ["junctions"])json")),
                                                  server);
  tests::Secure(server, "E:\\a\\label", "O:SYG:SYD:PAIS:(ML;;NW;;;LW)");
  tests::Secure(server, "E:\\b", "O:SYG:SYD:AI(A;;FA;;;BA)");
  const DescriptorOutcome outcome = GatherDescriptors(sources, server);
  EXPECT_EQ(outcome.objects, 5u);
  ASSERT_EQ(outcome.differences.size(), 3u);
  EXPECT_EQ(outcome.differences[0].path, "D:\\a\\label");
  EXPECT_EQ(outcome.differences[0].wanted, "O:SYG:SYD:PAI");
  EXPECT_EQ(outcome.differences[0].found, "O:SYG:SYD:PAIS:(ML;;NW;;;LW)");
  EXPECT_EQ(outcome.differences[1].path, "D:\\b");
  EXPECT_EQ(outcome.differences[1].wanted, "O:SYG:SYD:PAI(A;;FA;;;BA)");
  EXPECT_EQ(outcome.differences[1].found, "O:SYG:SYD:AI(A;;FA;;;BA)");
  EXPECT_EQ(outcome.differences[2].path, "D:\\j");
  EXPECT_EQ(outcome.differences[2].wanted, "O:SYG:SYD:PAI");
  EXPECT_EQ(outcome.differences[2].found, "");
  EXPECT_EQ(outcome.lost_entries.labels, 0u);
}

TEST_F(GatherDescriptorsTest, CountsTheLabelsAttributesAndPoliciesThatTheServerLacks) {
  Server server;
  const std::vector<SourceVolume> sources = Build(Read(WithVolume(R"json("source": {
      "files": [{"path": "kept", "sddl": "D:PAI(A;;FA;;;BA)S:AI(ML;;NW;;;LW)"},
                {"path": "lost", "sddl": "D:PAI(A;;FA;;;BA)S:AI(AU;SA;FA;;;WD)(ML;;NW;;;LW)"},
                {"path": "attributes", "sddl": "S:AI(RA;;;;;WD;(\"A\",TI,0x0,1))(RA;;;;;WD;(\"B\",TI,0x0,1))"},
                {"path": "policy", "sddl": "S:AI(SP;;;;;S-1-17-1)"}]})json")),
                                                  server);
  tests::Secure(server, "E:\\kept", "O:BAG:SYD:PAI(A;;FA;;;SY)S:AI(ML;;NW;;;LW)");
  const DescriptorOutcome outcome = GatherDescriptors(sources, server);
  EXPECT_EQ(outcome.lost_entries.labels, 1u);
  EXPECT_EQ(outcome.lost_entries.attributes, 2u);
  EXPECT_EQ(outcome.lost_entries.policies, 1u);
}

}  // namespace
}  // namespace simulator
