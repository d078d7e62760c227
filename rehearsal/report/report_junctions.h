// What a rehearsal tells about the junctions.
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
  bool has_target = true;  // what it leads to is there
};

// What stands on the server now for each junction of the sources, in their order.
std::vector<JunctionState> JunctionStates(const std::vector<SourceVolume>& sources);

// `before` is what JunctionStates told before the run.
std::vector<JunctionOutcome> GatherJunctions(const std::vector<SourceVolume>& sources,
                                             const std::vector<JunctionState>& before,
                                             Server& server);

// "junctions: 10 of 12 (1 target missing, 1 already there)": those that the run made, and why the
// others were not. Ends with "\n".
std::string JunctionReport(const std::vector<JunctionOutcome>& junctions);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_JUNCTIONS_H_
