// The report of a rehearsal on the junctions.
#ifndef REHEARSAL_REPORT_REPORT_JUNCTIONS_H_
#define REHEARSAL_REPORT_REPORT_JUNCTIONS_H_

#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"

namespace simulator {

class Server;

enum class JunctionState { kNone, kElsewhere, kRight };

// A junction that the source server had.
struct JunctionOutcome {
  JunctionState before = JunctionState::kNone;
  JunctionState after = JunctionState::kNone;
  bool has_target = true;  // the target exists
};

// Returns the current state on the server of each junction of the sources, in the order of the
// sources.
std::vector<JunctionState> JunctionStates(const std::vector<SourceVolume>& sources);

// `before` is the result of JunctionStates before the run.
std::vector<JunctionOutcome> GatherJunctions(const std::vector<SourceVolume>& sources,
                                             const std::vector<JunctionState>& before,
                                             Server& server);

// Returns the line "junctions: 10 of 12 (1 target missing, 1 already there)": the number of
// junctions that the run created, and why the others were not created. The line ends with "\n".
std::string JunctionReport(const std::vector<JunctionOutcome>& junctions);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_JUNCTIONS_H_
