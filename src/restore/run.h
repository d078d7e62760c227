// The restore run on its worker thread, from the privileges to the totals.
#ifndef RESTORE_RUN_H_
#define RESTORE_RUN_H_

#include <windows.h>

#include <cstdint>
#include <string>

#include "logger/logger.h"

namespace restore {

// The argument of RestoreThreadProc, which owns it.
struct RunStart {
  HWND dialog;
  logger::Logger* logger;  // owned by the dialog; outlives the run
};

// The worker's thread function. `argument` is a RunStart from the heap. Posts WM_RESTORE_STATE to
// the dialog when the run has started and, with its result, when it has ended. Always returns 0.
uint32_t RestoreThreadProc(void* argument);

// Runs every stage. `owner` owns the message boxes that are shown if a privilege cannot be enabled,
// which ends the run. A `volume_root` such as "e:\" restricts the run to that volume; if it is
// empty, the run visits every fixed volume from c: upward. `prepare_dir` replaces each volume's
// prepare folder unless it is empty. Returns 0 if every volume succeeded; returns 1 if a volume
// failed, if there is none, or if a privilege cannot be enabled. Failures of boot configuration and
// drive letters are only logged.
[[nodiscard]] int32_t RestoreWorker(logger::Logger& logger, HWND owner,
                                    const std::string& volume_root, const std::string& prepare_dir);

}  // namespace restore

#endif  // RESTORE_RUN_H_
