// The common part of the rehearsal commands: the command line, the list of scenarios, error
// reports.
#ifndef REHEARSAL_COMMAND_H_
#define REHEARSAL_COMMAND_H_

#include <filesystem>

#include "rehearsal/description/scenario.h"
#include "rehearsal/options.h"
#include "rehearsal/report/report.h"

namespace simulator {

// Exit statuses.
inline constexpr int kSuccess = 0;
inline constexpr int kRunFailed = 1;  // or it was cancelled
inline constexpr int kWrongUsage = 2;
inline constexpr int kReportIsWrong = 3;  // with --strict

// Prints the help or the list if requested; otherwise reads the scenario and calls `rehearse`.
// Returns the exit status. Exceptions of `rehearse` are reported and not passed to the caller.
int RunCommand(int argc, char** argv, int (*rehearse)(const Scenario&, const Options&));

// Writes the report for machines and says on the standard output where it is. Does nothing if
// `file` is empty. Returns false if the file cannot be written, with the reason on standard error.
bool WriteJson(const Report& report, const std::filesystem::path& file);

// Returns the exit status of a run with that report, with the reason for one that is not kSuccess
// on standard error.
int ExitStatus(const Report& report, bool strict);

}  // namespace simulator

#endif  // REHEARSAL_COMMAND_H_
