// The report of a rehearsal on the restart.
#ifndef REHEARSAL_REPORT_REPORT_RESTART_H_
#define REHEARSAL_REPORT_REPORT_RESTART_H_

#include <optional>
#include <string>

#include "simulator/model/desktop/shutdown.h"

namespace simulator {

// Returns one of these lines, which end with "\n". The quoted text is the message that logged-on
// users see:
//
//   restart: not asked for
//   restart: asked for in 30 seconds, "Windows System Will Restart In 30 Seconds!"
//
// A request that forces programs to close ends with ", closing every program". A shutdown without a
// restart begins with "shutdown".
std::string RestartReport(const std::optional<ShutdownRequest>& request);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_RESTART_H_
