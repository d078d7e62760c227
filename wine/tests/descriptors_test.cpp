// What the program leaves of descriptors under Wine.
#include <ostream>
#include <set>
#include <string>

#include "wine/drive/wine_descriptors.h"
#include "wine/tests/wine_case.h"

namespace tests {
namespace {

using simulator::Scenario;

std::set<std::string> Junctions(const Scenario& scenario) {
  std::set<std::string> junctions;
  for (const simulator::ScenarioDisk& disk : scenario.disks) {
    for (const simulator::ScenarioPartition& partition : disk.partitions) {
      if (!partition.volume || !partition.volume->source) continue;
      for (const simulator::ScenarioJunction& junction : partition.volume->source->junctions) {
        junctions.insert(std::string(1, *partition.volume->source_letter) + ":\\" +
                         junction.object.path);
      }
    }
  }
  return junctions;
}

struct Expected {
  const char* scenario;
  size_t objects;
  size_t junctions;
  size_t changed;  // at the least; else the comparison would say nothing

  friend void PrintTo(const Expected& expected, std::ostream* out) { *out << expected.scenario; }
};

// Scenarios in which every volume comes to its letter.
class DescriptorsUnderWine : public WineCase, public testing::WithParamInterface<Expected> {};

TEST_P(DescriptorsUnderWine, AreWhatPlainCallsLeaveOfThem) {
  const Scenario scenario = Shipped(GetParam().scenario);
  RunBoth(scenario);
  const simulator::KeptDescriptors kept =
      simulator::GatherKeptDescriptors(scenario, *server_, PrefixFolder("plain"));
  EXPECT_EQ(kept.outcome.objects, GetParam().objects);
  EXPECT_GE(kept.changed, GetParam().changed);
  // Wine can make no junction, and the program takes away what stands in the place of one before it
  // tries.
  const std::set<std::string> junctions = Junctions(scenario);
  EXPECT_EQ(junctions.size(), GetParam().junctions);
  for (const simulator::DescriptorDifference& difference : kept.outcome.differences) {
    EXPECT_EQ(junctions.count(difference.path), 1U)
        << difference.path << "\nwanted " << difference.wanted << "\nfound  " << difference.found;
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, DescriptorsUnderWine,
                         testing::Values(Expected{"default", 1500, 12, 250},
                                         Expected{"german_server", 112, 0, 1},
                                         Expected{"deny_everyone_later", 109, 0, 1}),
                         [](const auto& test) { return std::string(test.param.scenario); });

}  // namespace
}  // namespace tests
