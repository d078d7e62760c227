// The run that nothing disturbs, which all others are compared with.
#ifndef TESTS_FAULT_SWEEP_REFERENCE_H_
#define TESTS_FAULT_SWEEP_REFERENCE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "fault_sweep/server_state.h"

namespace fault_sweep {

struct ReferenceCall {
  std::string name;
  std::string arguments;
  std::string phase;  // the text logged last before it, without time and level
  size_t logged = 0;  // characters in the log before it
};

struct Reference {
  std::string scenario;
  std::vector<ReferenceCall> calls;  // call number n is calls[n - 1]
  ServerState before;
  ServerState after;
  ServerState again;  // after a second run, in which no tool fails any more
  std::string log;    // lines end with "\n"

  const ReferenceCall& Call(int number) const { return calls.at(static_cast<size_t>(number) - 1); }
};

Reference MakeReference(const std::string& scenario);

// The text with "\n" at the ends of lines.
std::string WithPlainLineEnds(const std::string& text);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_REFERENCE_H_
