// The program broken off at every call, as by a power cut, and started again.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fault_sweep/sweep.h"
#include "simulator/model/processes/console.h"

namespace fault_sweep {
namespace {

constexpr char kStartupLink[] = "StartUp\\vantoro_restore.exe.lnk";

bool IsLink(const std::string& name) { return name.ends_with(".lnk"); }

// The console is told first, and so its last line may lack.
void CheckLogHasConsole(const std::string& console, const std::string& log, const Report& report) {
  std::istringstream lines(console);
  std::vector<std::string> logged;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("[2024-")) logged.push_back(line);
  }
  if (!logged.empty()) logged.pop_back();
  for (const std::string& line : logged) {
    if (log.find(line) == std::string::npos) report.Problem("the log lacks: " + line);
  }
}

// That the next boot starts the program again as long as there is something left to do.
void CheckLink(const Reference& reference, const ServerState& left, const Report& report) {
  const bool has_link = std::any_of(left.begin(), left.end(), [](const auto& fact) {
    return fact.first.ends_with(kStartupLink);
  });
  const std::vector<std::string> undone = Differences(reference.after, left);
  if (!has_link && !std::all_of(undone.begin(), undone.end(), &IsLink)) {
    report.Problem("the link that starts the program is gone too early");
  }
}

class BreakSweep : public testing::TestWithParam<std::string> {};

void RunBroken(Sweep& sweep, int number, SweptServer& swept, Report& report) {
  report.AllowLeaks();  // what a process had goes with it
  const Reference& reference = sweep.reference();
  swept.BreakOffAt(number);
  swept.Run();
  // Every line that was logged before is there, and nothing else.
  const std::string log = WithPlainLineEnds(swept.Log());
  const std::string wanted = reference.log.substr(0, reference.Call(number).logged);
  if (log != wanted) {
    report.Problem("the log holds " + std::to_string(log.size()) + " characters, and not " +
                   std::to_string(wanted.size()) + ":\n" + log);
  }
  CheckLogHasConsole(WithPlainLineEnds(swept.server().console().Text()), log, report);
  const ServerState left = swept.State();
  CheckLink(reference, left, report);
  sweep.CheckMended(swept, left, report);
}

TEST_P(BreakSweep, AtEveryCall) {
  Sweep sweep(GetParam());
  sweep.RunCases("broken_off", [&sweep](int number) {
    return Sweep::Cases{{"not made", [&sweep, number](SweptServer& swept, Report& report) {
                           RunBroken(sweep, number, swept, report);
                         }}};
  });
  const std::map<std::string, std::set<std::string>> excuses = {
      {"default", {"second volume"}}, {"boot_deletion_fails", {"roll-back"}}};
  const auto found = excuses.find(GetParam());
  sweep.ExpectExcuses(found == excuses.end() ? std::set<std::string>() : found->second);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, BreakSweep,
                         testing::Values("default", "german_server", "letter_taken",
                                         "boot_deletion_fails"),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace fault_sweep
