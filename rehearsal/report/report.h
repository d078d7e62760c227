// The whole report of a rehearsal: gathered before and after the run, then judged, and printed as
// text or as JSON.
#ifndef REHEARSAL_REPORT_REPORT_H_
#define REHEARSAL_REPORT_REPORT_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rehearsal/report/report_boot.h"
#include "rehearsal/report/report_descriptors.h"
#include "rehearsal/report/report_junctions.h"
#include "rehearsal/report/report_letters.h"
#include "rehearsal/report/report_lists.h"
#include "simulator/model/desktop/shutdown.h"

namespace simulator {

class Server;
class ToolHistory;
struct Scenario;

enum class RunOutcome { kSucceeded, kFailed, kCancelled };

// How the run ended.
struct RunEnd {
  RunOutcome outcome = RunOutcome::kSucceeded;
  std::string reason = {};     // one line; empty if it succeeded
  bool wants_restart = false;  // the user agrees to the restart, if the run offers it
};

struct Report {
  std::string title;
  RunEnd run;
  BootChange boot;
  std::vector<VolumeLetters> letters;
  std::vector<JunctionOutcome> junctions;
  DescriptorOutcome descriptors;
  std::vector<ListOutcome> lists;
  std::optional<ShutdownRequest> restart;
};

// What the report needs of a server in memory on which the program has not run yet. The scenario
// and the sources must outlive it.
class ReportStart {
 public:
  ReportStart(const Scenario& scenario, const std::vector<SourceVolume>& sources, Server& server);

  // Call this after the run. `tool_calls` are those of the run.
  Report Finish(const RunEnd& run, const std::vector<ToolCall>& tool_calls, Server& server) const;

 private:
  bool SourceHad(const std::string& path) const;

  const Scenario& scenario_;
  const std::vector<SourceVolume>& sources_;
  const BootStore boot_;
  const std::vector<DiskFacts> disks_;
  const std::vector<JunctionState> junctions_;
  const std::vector<ImportedVolume> imports_;
};

// Each of these returns true if nothing in that part of the report is wrong. What the report does
// not compare is not wrong.
bool AreLettersRight(const std::vector<VolumeLetters>& volumes);
bool AreJunctionsRight(const std::vector<JunctionOutcome>& junctions);
bool AreListsRight(const std::vector<ListOutcome>& lists);  // a missing backup file is wrong
bool IsRestartRight(const Report& report);                  // a run that succeeded may ask for it
bool IsRight(const Report& report);

// Returns the sections one after another. Lines end with "\n".
std::string ReportText(const Report& report);

// Returns the report for machines, one JSON document; docs/report.md describes its keys.
std::string ReportJson(const Report& report);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_H_
