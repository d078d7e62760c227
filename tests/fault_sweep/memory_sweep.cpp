// The program without memory: an allocation of its own fails.
//
// Nothing in it answers that, and so it ends at once, in front of the next call of the platform.
// What it leaves is what a run leaves that is broken off there: that sweep starts the program
// again.
#include <gtest/gtest.h>
#include <unistd.h>

#include <exception>
#include <new>
#include <string>

#include "fault_sweep/allocations.h"
#include "fault_sweep/child.h"
#include "fault_sweep/sweep.h"
#include "fault_sweep/swept_server.h"
#include "simulator/model/server.h"

namespace fault_sweep {
namespace {

class MemorySweep : public testing::TestWithParam<std::string> {};

int calls_at_failure = -1;

int CountCalls() { return simulator::Server::Current().calls().Count(); }

[[noreturn]] void EndWell() {
  const bool is_at_once = CountCalls() == calls_at_failure;
  try {
    if (std::exception_ptr thrown = std::current_exception()) std::rethrow_exception(thrown);
  } catch (const std::bad_alloc&) {
    ::_exit(is_at_once ? 0 : 2);
  } catch (...) {
    ::_exit(3);
  }
  ::_exit(4);
}

int CountOf(const std::string& scenario) {
  const ChildOutcome outcome = RunInChild([&scenario](Report& report) {
    SweptServer swept(scenario);
    swept.OnCall(&CountAllocationsOfThisThread);
    swept.Run();
    report.Fact(std::to_string(CountedAllocations()));
  });
  EXPECT_EQ(outcome.problems, "");
  return outcome.facts.empty() ? 0 : std::stoi(outcome.facts.front());
}

void RunWithout(int number, SweptServer& swept, const Report& report) {
  std::set_terminate(&EndWell);
  swept.OnCall(&CountAllocationsOfThisThread);
  FailAllocation(number, [] { calls_at_failure = CountCalls(); });
  swept.Run();
  report.Problem("has run on");
}

TEST_P(MemorySweep, EndsAtOnceWhereverAnAllocationFails) {
#if defined(VANTORO_CHECKS_THREADS)
  GTEST_SKIP() << "the thread checker's operator new cannot be replaced";
#endif
  const std::string& scenario = GetParam();
  const int count = CountOf(scenario);
  ASSERT_GT(count, 300);
  SweptServer swept(scenario);
  const Selection selection;
  for (int number = 1; number <= count; ++number) {
    if (!selection.Has(scenario, "memory", number)) continue;
    const ChildOutcome outcome =
        RunInChild([&](Report& report) { RunWithout(number, swept, report); });
    EXPECT_EQ(outcome.problems, "")
        << "Only this one: FAULT_SWEEP_ONLY=" << scenario << ":memory:" << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, MemorySweep,
                         testing::Values("default", "german_server", "letter_taken",
                                         "boot_deletion_fails"),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace fault_sweep
