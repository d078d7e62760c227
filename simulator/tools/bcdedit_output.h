// The listing of the boot configuration tool, in the layout of the real tool.
//
// The headings and the label of the identifier are in the server's language if it is English,
// Simplified Chinese, German or Portuguese. They are in English for all other languages, and for
// headings of which no capture exists.
#ifndef SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_
#define SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_

#include <windows.h>

#include <string>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// Returns the listing of the boot manager and the entries that it displays. The identifier of the
// entry that started the running Windows is printed as {current} throughout. The manager's default
// entry is printed as {default} if it is another entry.
std::string BootListing(const Boot& boot, LANGID language);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BCDEDIT_OUTPUT_H_
