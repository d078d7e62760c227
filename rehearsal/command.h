// The common part of the rehearsal commands: the command line, the list of scenarios, error
// reports.
#ifndef REHEARSAL_COMMAND_H_
#define REHEARSAL_COMMAND_H_

#include "rehearsal/description/scenario.h"
#include "rehearsal/options.h"

namespace simulator {

// Exit statuses.
inline constexpr int kSuccess = 0;
inline constexpr int kRunFailed = 1;  // or it was cancelled
inline constexpr int kWrongUsage = 2;

// Prints the help or the list if requested; otherwise reads the scenario and calls `rehearse`.
// Returns the exit status. Exceptions of `rehearse` are reported and not passed to the caller.
int RunCommand(int argc, char** argv, int (*rehearse)(const Scenario&, const Options&));

}  // namespace simulator

#endif  // REHEARSAL_COMMAND_H_
