// The report of a rehearsal on the junctions.
#ifndef REHEARSAL_REPORT_REPORT_JUNCTIONS_H_
#define REHEARSAL_REPORT_REPORT_JUNCTIONS_H_

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"

namespace simulator {

class Server;
struct Volume;

enum class JunctionState { kNone, kElsewhere, kRight };

// A junction that the source server had.
struct JunctionOutcome {
  JunctionState before = JunctionState::kNone;
  JunctionState after = JunctionState::kNone;
  bool has_target = true;  // the target exists
  std::string path = {};   // with the source's drive letter
  std::string target = {};
  bool source_had_target = false;
  // The ANSI code page of the server if it lacks a character of the path or the target, so that
  // the line of the junction backup file has another; otherwise 0.
  UINT lacking_code_page = 0;
};

enum class JunctionVerdict {
  kMade,
  kTargetMissing,  // the source did not have the target, either
  kTargetLost,     // the source had the target
  kAlreadyThere,
  kWrongTarget,
  kNotMade,
  kNotInCodePage,  // its line in the junction backup file names something else
};

JunctionVerdict VerdictOn(const JunctionOutcome& junction);

// Returns true for a junction that the run made, or that it could not or need not make: its target
// was missing on the source, too, or it was there already.
bool IsRight(JunctionVerdict verdict);

// Returns whether the source server had a path: "D:\Data".
using TargetTest = std::function<bool(const std::string& path)>;

// Returns the state of a junction on the copy of a volume. `path` starts with the source's letter.
JunctionState StateOf(const Volume& copy, const std::string& path, const std::string& target);

// Returns the current state on the server of each junction of the sources, in the order of the
// sources.
std::vector<JunctionState> JunctionStates(const std::vector<SourceVolume>& sources);

// `before` is the result of JunctionStates before the run.
std::vector<JunctionOutcome> GatherJunctions(const std::vector<SourceVolume>& sources,
                                             const std::vector<JunctionState>& before,
                                             const TargetTest& source_had, Server& server);

// Returns the line "junctions: 10 of 12 (1 target missing, 1 already there)": the number of
// junctions that the run created, and why the others were not created, such as "1 not in code page
// 1252". A target that the source had is lost, another one missing. `standard` is what they were
// compared with, if that is not the source. The line ends with "\n".
std::string JunctionReport(const std::vector<JunctionOutcome>& junctions,
                           const std::string& subject = "junctions",
                           const std::string& standard = "");

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_JUNCTIONS_H_
