// The disk tool: lists the disks of the machine and moves drive letters, driven by a script.
//
// It knows list disk, select disk, select partition, detail disk, assign, assign letter=x, remove,
// rem and exit, spelt as laxly as the real tool allows: any case, any number of blanks, words
// shortened to three letters or more. A command or argument that only the real tool knows ends the
// process through Unsupported.
#ifndef SIMULATOR_TOOLS_DISKPART_H_
#define SIMULATOR_TOOLS_DISKPART_H_

#include <string>
#include <string_view>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// Runs the commands of a script (lines end with CR LF, LF, or further CRs before them) until one
// fails. Exit code 0, or 5 when a command is unknown, its arguments are wrong, or what it needs is
// not selected, not valid or not free.
ToolResult RunDiskpartScript(std::string_view script, Machine& machine);

// "/s PATH", the arguments behind the program. Exit code 2 for other arguments, 3 for a script that
// cannot be read, else the script's.
ToolResult RunDiskpart(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_H_
