// What a run that was disturbed is to have said and done.
#ifndef TESTS_FAULT_SWEEP_OUTCOME_H_
#define TESTS_FAULT_SWEEP_OUTCOME_H_

#include <string>
#include <vector>

#include "fault_sweep/child.h"
#include "fault_sweep/reference.h"
#include "fault_sweep/rules.h"
#include "fault_sweep/swept_server.h"

namespace simulator {
struct ScenarioVolume;
}  // namespace simulator

namespace fault_sweep {

// Looks at a server on which one run has ended, in which call `number` of the reference failed.
class Outcome {
 public:
  Outcome(const Reference& reference, int number, SweptServer& swept, const Report& report);

  // What the run has left open: nothing that an undisturbed run closes, but for what the call that
  // failed was to close or leaves open by design.
  void CheckResources(int local_blocks);
  // That it says what failed.
  void CheckSaid(const Rule& rule);
  // That nothing is undone beyond `undone`.
  void CheckUndone(Undone undone);
  // That it is one file, folder or junction and what inherits from it, or links.
  void CheckOneUndone();
  // That the totals and the result tell what is undone.
  void CheckTotals(const LastingRule& rule);

  const ServerState& state() const { return state_; }

 private:
  bool AsksForRestart() const;
  bool HasLetters() const;
  bool HasUndone(const std::string& volume) const;  // of what its lists hold
  // Between the line that begins the volume and the next one.
  std::string LogOf(const std::string& text, const std::string& root) const;
  // Whether the volume counts as an error.
  bool CheckVolume(const simulator::ScenarioVolume& volume, char letter, const LastingRule& rule);

  const Reference& reference_;
  const ReferenceCall& call_;
  SweptServer& swept_;
  const Report& report_;
  const ServerState state_;
  const std::vector<std::string> differences_;  // from the reference
  const std::string log_;
  const std::string console_;
};

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_OUTCOME_H_
