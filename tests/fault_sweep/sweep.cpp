#include "fault_sweep/sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "fault_sweep/mending.h"

namespace fault_sweep {
namespace {

#if defined(VANTORO_CHECKS_ADDRESSES)
constexpr int kEvery = 11;
#elif defined(VANTORO_CHECKS_THREADS)
constexpr int kEvery = 37;
#else
constexpr int kEvery = 1;
#endif

constexpr char kMended[] = "mended ";
constexpr char kExcuse[] = "excuse ";

std::string DigestOf(const ServerState& state) {
  std::string text;
  for (const auto& [name, value] : state) {
    text.append(name).push_back('\0');
    text.append(value).push_back('\0');
  }
  return std::to_string(std::hash<std::string>()(text));
}

}  // namespace

Selection::Selection() : every_(kEvery) {
  if (const char* const only = std::getenv("FAULT_SWEEP_ONLY")) only_ = only;
  if (const char* const every = std::getenv("FAULT_SWEEP_EVERY")) every_ = std::stoi(every);
  every_ = std::max(every_, 1);
}

bool Selection::Has(const std::string& scenario, const std::string& kind, int number) const {
  if (!only_.empty()) return only_ == scenario + ":" + kind + ":" + std::to_string(number);
  return number % every_ == 0;
}

Sweep::Sweep(const std::string& scenario) : reference_(MakeReference(scenario)), swept_(scenario) {}

void Sweep::RunCases(const std::string& kind, const std::function<Cases(int number)>& cases_of) {
  const int count = static_cast<int>(reference_.calls.size());
  for (int number = 1; number <= count; ++number) {
    if (!selection_.Has(reference_.scenario, kind, number)) continue;
    for (const auto& [detail, run] : cases_of(number)) RunCase(kind, number, detail, run);
  }
}

void Sweep::RunCase(const std::string& kind, int number, const std::string& detail,
                    const Case& run) {
  const ChildOutcome outcome = RunInChild([&](Report& report) { run(swept_, report); });
  for (const std::string& fact : outcome.facts) {
    if (fact.starts_with(kMended)) mended_.insert(fact.substr(sizeof(kMended) - 1));
    if (fact.starts_with(kExcuse)) excuses_.insert(fact.substr(sizeof(kExcuse) - 1));
  }
  if (outcome.problems.empty()) return;
  const ReferenceCall& call = reference_.Call(number);
  ADD_FAILURE() << reference_.scenario << ", " << kind << ", call " << number << ": " << call.name
                << "(" << call.arguments << ") " << detail << ", behind \"" << call.phase << "\"\n"
                << outcome.problems << "Only this one: FAULT_SWEEP_ONLY=" << reference_.scenario
                << ":" << kind << ":" << number;
}

void Sweep::CheckMended(SweptServer& swept, const ServerState& left, const Report& report) {
  if (left == reference_.after && reference_.after == reference_.again) return;
  const std::string digest = DigestOf(left);
  if (mended_.contains(digest)) return;
  swept.server().calls().ClearFaults();
  swept.RepairTools();
  swept.Run();
  const ServerState state = swept.State();
  const Mending mending = CompareMended(reference_, left, state);
  for (const std::string& excuse : mending.excuses) report.Fact(kExcuse + excuse);
  for (const std::string& name : mending.unmended) {
    const auto wanted = reference_.again.find(name);
    const auto found = state.find(name);
    report.Problem("not mended by a second run: " + name + "\n  wanted: " +
                   (wanted == reference_.again.end() ? "nothing" : wanted->second) +
                   "\n  found:  " + (found == state.end() ? "nothing" : found->second));
  }
  if (mending.unmended.empty()) report.Fact(kMended + digest);
}

void Sweep::ExpectExcuses(const std::set<std::string>& excuses) const {
  if (selection_.IsAll()) {
    EXPECT_EQ(excuses_, excuses);
  }
}

}  // namespace fault_sweep
