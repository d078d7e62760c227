// What a rehearsal tells about the boot configuration.
#ifndef REHEARSAL_REPORT_REPORT_BOOT_H_
#define REHEARSAL_REPORT_REPORT_BOOT_H_

#include <string>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// A table of the entries of both stores with what each one is before and after, and a closing line:
//
//   "boot: nothing to do"  the store was in order and is as it was
//   "boot: repaired"       it was not in order and is now
//   "boot: not repaired"   it is not in order, or is in order but not as it was
//
// In order is a store whose boot manager offers its default alone and has the locale of the loader
// unless that is English or has none; and one without any entry. Lines end with "\n".
std::string BootReport(const BootStore& before, const BootStore& after);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_BOOT_H_
