// The program with one call of the platform failing, once or for good.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "fault_sweep/fault_codes.h"
#include "fault_sweep/outcome.h"
#include "fault_sweep/sweep.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace fault_sweep {
namespace {

using simulator::Lasting;

class FaultSweep : public testing::TestWithParam<std::string> {};

// The how-many-th call of its name this is.
int OccurrenceOf(const Reference& reference, int number) {
  int occurrence = 0;
  for (int earlier = 1; earlier <= number; ++earlier) {
    if (reference.Call(earlier).name == reference.Call(number).name) ++occurrence;
  }
  return occurrence;
}

void CheckClock(SweptServer& swept, int64_t begin, const Report& report) {
  constexpr int64_t kLongest = 600'000;  // milliseconds
  const int64_t duration = swept.server().clock().Milliseconds() - begin;
  if (duration > kLongest) report.Problem("took " + std::to_string(duration) + " ms");
}

// What the failure is to lead to. `waits` is set where the program is not to be run.
LastingRule ExpectedOf(const Reference& reference, int number, const Rule& rule, Lasting lasting) {
  if (lasting == Lasting::kForGood) return LastingRuleOf(reference, number);
  return {rule.undone, rule.undone == Undone::kObjects, rule.said != Said::kLost,
          rule.said == Said::kWaits ? &rule : nullptr};
}

// Whether something on the C++ heap has lost its owner: what a thread that was not made was to get,
// or what was posted to a dialog that has lost sight of its object.
bool LeavesMemory(const ReferenceCall& call) {
  return call.name == "CreateThread" || call.name == "GetWindowLongPtrW";
}

void RunFault(Sweep& sweep, int number, uint32_t code, Lasting lasting, SweptServer& swept,
              Report& report) {
  const Reference& reference = sweep.reference();
  const Rule& rule = *RuleOf(reference, number);
  if (LeavesMemory(reference.Call(number))) report.AllowLeaks();
  const LastingRule expected = ExpectedOf(reference, number, rule, lasting);
  swept.server().calls().FailNext(reference.Call(number).name, code,
                                  OccurrenceOf(reference, number), lasting);
  const int64_t begin = swept.server().clock().Milliseconds();
  const int blocks = simulator::LiveLocalBlocks();
  swept.Run();
  CheckClock(swept, begin, report);
  Outcome outcome(reference, number, swept, report);
  outcome.CheckResources(simulator::LiveLocalBlocks() - blocks);
  outcome.CheckSaid(rule);
  outcome.CheckUndone(expected.undone);
  if (lasting == Lasting::kOnce && expected.undone == Undone::kObjects) outcome.CheckOneUndone();
  outcome.CheckTotals(expected);
  sweep.CheckMended(swept, outcome.state(), report);
}

void RunFaults(const std::string& scenario, const std::string& kind, Lasting lasting) {
  Sweep sweep(scenario);
  sweep.RunCases(kind, [&](int number) {
    const Reference& reference = sweep.reference();
    const std::string& name = reference.Call(number).name;
    Sweep::Cases cases;
    const Rule* const rule = RuleOf(reference, number);
    if (rule == nullptr) {
      ADD_FAILURE() << "no rule says what a failing " << name << "("
                    << reference.Call(number).arguments << ") is to lead to";
      return cases;
    }
    if (ExpectedOf(reference, number, *rule, lasting).waits != nullptr) return cases;
    const std::vector<uint32_t> codes = CodesOf(name);
    // What fails for good fails with one code: the next call of that name has the next one.
    const auto occurrence = static_cast<size_t>(OccurrenceOf(reference, number));
    const size_t first = lasting == Lasting::kForGood ? occurrence % codes.size() : 0;
    const size_t count = lasting == Lasting::kForGood ? 1 : codes.size();
    for (size_t i = first; i < first + count; ++i) {
      const uint32_t code = codes.at(i);
      cases["code " + std::to_string(code)] = [&sweep, number, code, lasting](SweptServer& swept,
                                                                              Report& report) {
        RunFault(sweep, number, code, lasting, swept, report);
      };
    }
    return cases;
  });
}

TEST_P(FaultSweep, OfEveryCallThatFailsOnce) { RunFaults(GetParam(), "once", Lasting::kOnce); }

TEST_P(FaultSweep, OfEveryCallThatFailsForGood) {
  RunFaults(GetParam(), "for_good", Lasting::kForGood);
}

const std::array<std::string, 4> kScenarios = {"default", "german_server", "letter_taken",
                                               "boot_deletion_fails"};

TEST(FaultRules, FitEachACallOfTheRuns) {
  std::vector<Reference> made;
  for (const std::string& scenario : kScenarios) made.push_back(MakeReference(scenario));
  std::vector<const Reference*> references;
  for (const Reference& reference : made) references.push_back(&reference);
  EXPECT_EQ(RulesWithoutACall(references), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultSweep, testing::ValuesIn(kScenarios),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace fault_sweep
