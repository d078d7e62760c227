// The rehearsal of the program of Windows, under Wine.
#ifndef SIMULATOR_REHEARSE_WINDOWS_H_
#define SIMULATOR_REHEARSE_WINDOWS_H_

#include "simulator/rehearse_options.h"
#include "simulator/scenario.h"

namespace simulator {

// Shows the run and reports on the server as a rehearsal in memory does. What the screen showed at
// the end lies as a picture beside the log. Windows open on DISPLAY. False when the run failed;
// throws std::exception when there was none.
bool RehearseUnderWine(const Scenario& scenario, const Options& options);

}  // namespace simulator

#endif  // SIMULATOR_REHEARSE_WINDOWS_H_
