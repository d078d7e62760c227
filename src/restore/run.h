// The restore run: what the worker thread does, from the privileges to the totals.
#ifndef RESTORE_RUN_H_
#define RESTORE_RUN_H_

#include <windows.h>

#include <cstdint>
#include <string>

#include "logger/logger.h"

namespace restore {

// What a run starts from. Owned by RestoreThreadProc.
struct RunStart {
  HWND dialog;
  logger::Logger* logger;  // the dialog's; outlives the run
};

// The worker's thread function. `argument` is a RunStart from the heap. Tells the dialog by
// WM_RESTORE_STATE that the run has started and, with its result, that it has ended. Always 0.
uint32_t RestoreThreadProc(void* argument);

// Runs every stage. `owner` owns the message boxes that tell of a missing privilege, which ends the
// run. A `volume_root` such as "e:\" restricts the volumes to that one; empty for every fixed
// volume from c: upward. `prepare_dir` takes the place of each volume's prepare folder unless it is
// empty. 0 when everything succeeded, 1 when a volume failed or there was none; the stages for boot
// and drive letters are logged but do not enter the result.
[[nodiscard]] int32_t RestoreWorker(logger::Logger& logger, HWND owner,
                                    const std::string& volume_root, const std::string& prepare_dir);

}  // namespace restore

#endif  // RESTORE_RUN_H_
