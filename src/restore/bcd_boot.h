// The boot configuration stage of the restore run.
#ifndef RESTORE_BCD_BOOT_H_
#define RESTORE_BCD_BOOT_H_

#include "logger/logger.h"

namespace restore {

// Runs on the restore worker's thread, logs its steps, and continues after a failure where it can.
//
// Deletes the boot entries that the boot manager displays besides its default entry, and rebuilds
// the boot files if the last listed locale other than the default "en-us" is not the boot
// manager's: en-GB, for example, leads to a rebuild. Before a change, exports the BCD store to the
// file BCD_BAK in the program's folder, where it remains. If a deletion fails, imports the export
// and returns false. Also returns false if the store cannot be read, is inconsistent or cannot be
// exported. A failed rebuild is logged and does not change the result.
[[nodiscard]] bool RestoreBCDBoot(logger::Logger& logger);

}  // namespace restore

#endif  // RESTORE_BCD_BOOT_H_
