// What the boot manager of a scenario's server offers. The keys, those in brackets optional:
//
//   boot:    loaders in the order in which they are displayed, [manager]
//   manager: [locale] "en-US", [device] "partition=C:" and [uefi] false
//   loaders: description, [type] "loader", "legacy" or "sector", [locale] "en-US" of a "loader",
//            [device] "partition=C:", [current] for the one that the running Windows was started
//            by, [default], and [displayed], which is true unless said otherwise
//
// At most one loader is current, one default and one "legacy".
#ifndef REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_
#define REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_

#include "rehearsal/description/scenario_json.h"
#include "simulator/model/boot/boot_store.h"

namespace simulator {

// Throws ScenarioError.
Boot ReadBoot(const JsonPlace& place);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SCENARIO_BOOT_H_
