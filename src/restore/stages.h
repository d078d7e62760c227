// The stages of the restore run. Each runs on the restore worker's thread, logs what it does and
// carries on past what it can.
#ifndef RESTORE_STAGES_H_
#define RESTORE_STAGES_H_

#include "logger/logger.h"

namespace restore {

// Deletes the boot loaders that the boot manager offers besides its default one, and makes the boot
// files anew when the last locale among the entries that is not English is not the boot manager's.
// What is changed is first
// exported to the file BCD_BAK in the program's folder, where it stays. A deletion that fails
// brings the export back and ends the stage: false, as when the store cannot be read, is not
// consistent or cannot be exported. A rebuild that fails is logged and does not count.
[[nodiscard]] bool RestoreBCDBoot(logger::Logger& logger);

// Gives every data volume the drive letter back that it had on the source server, as its backup
// information names it. True when every step succeeded. Nothing is undone on failure; a letter that
// another volume rightly holds is never taken away, its claimant gets a free one.
[[nodiscard]] bool RestoreDisks(logger::Logger& logger);

}  // namespace restore

#endif  // RESTORE_STAGES_H_
