// What the failure of each call is to lead to.
#ifndef TESTS_FAULT_SWEEP_RULES_H_
#define TESTS_FAULT_SWEEP_RULES_H_

#include <string>
#include <string_view>
#include <vector>

#include "fault_sweep/reference.h"

namespace fault_sweep {

// What a failure says.
enum class Said {
  kLine,    // one of the texts, separated by '|', is logged
  kBox,     // a message box shows the text
  kSilent,  // nothing by design; the text is the reason
  kLost,    // the log itself is what fails; the text says what is lost of it
  kWaits,   // nothing: the program then waits for ever by design, and is not run; the reason
};

// The most that a failure leaves undone.
enum class Undone {
  kNothing,
  kObjects,  // some files or junctions of volumes that count as finished
  kVolumes,  // volumes that count as errors, or are passed over
  kStages,   // drive letters or the boot store, and whatever builds on them
  kRun,      // everything
};

struct Rule {
  std::string_view call;
  std::string_view argument;  // found in the arguments; empty for any
  std::string_view phase;     // found in the line logged last; empty for any
  Undone undone;
  Said said;
  std::string_view text;
};

// The first one that fits the call. None when nobody has thought of such a call.
const Rule* RuleOf(const Reference& reference, int number);

// The rules that fit no call of these runs.
std::vector<std::string> RulesWithoutACall(const std::vector<const Reference*>& references);

// Of that call and all later ones of its name.
struct LastingRule {
  Undone undone = Undone::kNothing;  // the worst
  bool passes_over = false;          // whether it may be kObjects as well
  bool has_log = true;               // whether the log is safe from it
  const Rule* waits = nullptr;       // one by which the program waits
};
LastingRule LastingRuleOf(const Reference& reference, int number);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_RULES_H_
