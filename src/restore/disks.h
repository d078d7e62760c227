// The drive letter stage of the restore run.
#ifndef RESTORE_DISKS_H_
#define RESTORE_DISKS_H_

#include "logger/logger.h"

namespace restore {

// Runs on the restore worker's thread, logs its steps, and continues after a failure where it can.
//
// Assigns every data volume the drive letter that it had on the source server, according to its
// backup information. Returns true if every step succeeded. Nothing is undone on failure. A drive
// letter that is correct is never removed: another volume that claims it gets a free one.
[[nodiscard]] bool RestoreDisks(logger::Logger& logger);

}  // namespace restore

#endif  // RESTORE_DISKS_H_
