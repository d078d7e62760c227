// What the program leaves of descriptors under Wine.
#include <set>
#include <string>

#include "simulator/wine/wine_descriptors.h"
#include "wine/wine_case.h"

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

class DescriptorsUnderWine : public WineCase {};

// The scenario whose descriptors differ most from what Wine gives to new files.
TEST_F(DescriptorsUnderWine, AreWhatPlainCallsLeaveOfThem) {
  const Scenario scenario = Shipped("default");
  RunBoth(scenario);
  const simulator::KeptDescriptors kept =
      simulator::GatherKeptDescriptors(scenario, *server_, PrefixFolder("plain"));
  EXPECT_EQ(kept.outcome.objects, 6000U);
  // Else the comparison would say nothing.
  EXPECT_GT(kept.changed, 1000U);
  // Wine can make no junction, and the program takes away what stands in the place of one before it
  // tries.
  const std::set<std::string> junctions = Junctions(scenario);
  EXPECT_EQ(junctions.size(), 12U);
  for (const simulator::DescriptorDifference& difference : kept.outcome.differences) {
    EXPECT_EQ(junctions.count(difference.path), 1U)
        << difference.path << "\nwanted " << difference.wanted << "\nfound  " << difference.found;
  }
}

}  // namespace
}  // namespace tests
