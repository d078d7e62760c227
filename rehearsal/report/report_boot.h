// The report of a rehearsal on the boot configuration.
#ifndef REHEARSAL_REPORT_REPORT_BOOT_H_
#define REHEARSAL_REPORT_REPORT_BOOT_H_

#include <string>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// Returns a table of the entries of both stores, with the state of each entry before and after the
// run, and a closing line:
//
//   "boot: nothing to do"  the store was in order and is unchanged
//   "boot: repaired"       the store was not in order and now is
//   "boot: not repaired"   the store is not in order, or it was in order and has changed
//
// A store is in order if its boot manager displays only its default entry, and the locale of the
// boot manager is that of the loader unless the loader's locale is English or missing. A store
// without entries is in order, too. Lines end with "\n".
std::string BootReport(const BootStore& before, const BootStore& after);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_BOOT_H_
