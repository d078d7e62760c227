// The boot entries of a scenario's server, in the BCD store in use. The keys are as follows; those
// in brackets are optional:
//
//   boot:    loaders in the order in which they are displayed, [manager]
//   manager: [locale] "en-US", [device] "partition=C:" as the boot tools print it
//   loaders: description, [type] "loader", "legacy" or "sector", [locale] "en-US" (for a
//            "loader" only), [device] "partition=C:", [current] for the entry that the running
//            Windows was started from, [default], and [displayed], which is true by default
//
// At most one loader is current, at most one is the default, and at most one is a "legacy" loader.
#ifndef REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_
#define REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_

#include "rehearsal/description/scenario_json.h"
#include "simulator/model/boot/boot_store.h"

namespace simulator {

// `uefi` is the server's firmware. Throws ScenarioError.
Boot ReadBoot(const JsonPlace& place, bool uefi);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_
