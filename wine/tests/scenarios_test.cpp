// Every shipped scenario, under Wine and in a rehearsal.
#include <filesystem>
#include <string>
#include <vector>

#include "wine/tests/wine_case.h"

namespace tests {
namespace {

std::vector<std::string> AllShipped() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(VANTORO_SCENARIO_DIR)) {
    if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
  }
  return names;
}

class ScenarioUnderWine : public WineCase, public testing::WithParamInterface<std::string> {};

TEST_P(ScenarioUnderWine, EndsAsTheRehearsalDoes) {
  RunBoth(Shipped(GetParam()));
  ExpectAllTheSame();
}

INSTANTIATE_TEST_SUITE_P(Shipped, ScenarioUnderWine, testing::ValuesIn(AllShipped()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tests
