// The stages of the restore run. Each runs on the restore worker's thread, logs what it does and
// carries on past what it can.
#ifndef RESTORE_STAGES_H_
#define RESTORE_STAGES_H_

#include "logger/logger.h"

namespace restore {

// Gives every data volume the drive letter back that it had on the source server, as its backup
// information names it. True when every step succeeded. Nothing is undone on failure; a letter that
// another volume rightly holds is never taken away, its claimant gets a free one.
[[nodiscard]] bool RestoreDisks(logger::Logger& logger);

}  // namespace restore

#endif  // RESTORE_STAGES_H_
