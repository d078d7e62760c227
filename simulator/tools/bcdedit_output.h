// The listing that the boot configuration tool prints, in the layout of the real one.
//
// Headings and the name of the identifier's line are in the server's language: English, Simplified
// Chinese, German or Portuguese, English for all others and for headings that no capture shows.
#ifndef SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_
#define SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_

#include <windows.h>

#include <string>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// The boot manager and what it displays. The entry that the running Windows was started by is
// {current} wherever its identifier stands, the manager's default {default} if it is another.
std::string BootListing(const Boot& boot, LANGID language);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_
