// The cases of a sweep, one after the other.
#ifndef TESTS_FAULT_SWEEP_SWEEP_H_
#define TESTS_FAULT_SWEEP_SWEEP_H_

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "fault_sweep/child.h"
#include "fault_sweep/reference.h"
#include "fault_sweep/swept_server.h"

namespace fault_sweep {

// Which cases are run: all, those of every n-th call (the environment variable FAULT_SWEEP_EVERY),
// or the one that FAULT_SWEEP_ONLY names, "default:once:117".
class Selection {
 public:
  Selection();
  bool IsAll() const { return only_.empty() && every_ == 1; }
  bool Has(const std::string& scenario, const std::string& kind, int number) const;

 private:
  std::string only_;
  int every_ = 1;
};

// A scenario, its reference, and what is known of the states that runs have left.
class Sweep {
 public:
  explicit Sweep(const std::string& scenario);

  const Reference& reference() const { return reference_; }

  // Runs a case in a child of its own, on the server as it was before any run.
  using Case = std::function<void(SweptServer& swept, Report& report)>;
  // The cases of a call by what is to be said of each besides the call: "code 5".
  using Cases = std::map<std::string, Case>;

  // Runs the cases of each selected call and fails the test with what they have for problems.
  void RunCases(const std::string& kind, const std::function<Cases(int number)>& cases_of);

  // Runs the program once more, without faults, on a server that a run has left, unless that state
  // is known already. The server is then to be as an undisturbed run leaves it, but for what has an
  // excuse in mending.h.
  void CheckMended(SweptServer& swept, const ServerState& left, const Report& report);

  // Fails the test when the cases, all having been run, have needed other excuses.
  void ExpectExcuses(const std::set<std::string>& excuses) const;

 private:
  void RunCase(const std::string& kind, int number, const std::string& detail, const Case& run);

  const Reference reference_;
  SweptServer swept_;
  const Selection selection_;
  std::set<std::string> mended_;   // digests of states
  std::set<std::string> excuses_;  // that were needed
};

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_SWEEP_H_
