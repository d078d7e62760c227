// The rehearsal of the program of Windows, under Wine.
#ifndef WINE_DRIVE_REHEARSE_WINDOWS_H_
#define WINE_DRIVE_REHEARSE_WINDOWS_H_

#include "rehearsal/description/scenario.h"
#include "rehearsal/options.h"

namespace simulator {

// Shows the run and reports on the server as a rehearsal in memory does. What the screen showed at
// the end lies as a picture beside the log. Windows open on DISPLAY. False when the run failed;
// throws std::exception when there was none.
bool RehearseUnderWine(const Scenario& scenario, const Options& options);

}  // namespace simulator

#endif  // WINE_DRIVE_REHEARSE_WINDOWS_H_
