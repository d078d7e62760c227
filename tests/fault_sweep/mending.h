// What a second run brings right, and what it does not by the program's design.
#ifndef TESTS_FAULT_SWEEP_MENDING_H_
#define TESTS_FAULT_SWEEP_MENDING_H_

#include <string>
#include <vector>

#include "fault_sweep/reference.h"
#include "fault_sweep/server_state.h"

namespace fault_sweep {

struct Mending {
  std::vector<std::string> unmended;  // the names of what is not as in the reference
  std::vector<std::string> excuses;   // those that some of it has; it is not among the unmended
};

// `left` is what the first run has left, `after` what the second one has made of it.
//
//   "second volume": the disk's first volume has lost its letter and its second one has one. The
//       disk shows that one, which has no backup information of its own, and so the letters stay as
//       they are: the volumes at wrong letters fail, and so do the junctions to them.
//   "roll-back": a deletion in the boot store fails, and what is brought back is the export of the
//       run that fails: what an earlier run has deleted is gone.
Mending CompareMended(const Reference& reference, const ServerState& left,
                      const ServerState& after);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_MENDING_H_
