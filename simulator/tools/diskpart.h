// The disk tool: lists the disks of the machine and moves drive letters, driven by a script.
//
// The tool supports list disk, select disk, select partition, detail disk, assign, assign letter=x,
// remove, rem and exit, with the variations that the real tool accepts: any case, any number of
// spaces, and words shortened to three letters or more. A command or argument that only the real
// tool supports aborts the process through Unsupported.
#ifndef SIMULATOR_TOOLS_DISKPART_H_
#define SIMULATOR_TOOLS_DISKPART_H_

#include <string>
#include <string_view>
#include <vector>

#include "simulator/tools/tool_result.h"

namespace simulator {

class Machine;

// Runs the commands of a script until one fails. Lines end with LF, which any number of CRs may
// precede. The exit code is 0, or 5 if a command is unknown, its arguments are wrong, or the object
// that it needs is not selected, not valid or not free.
ToolResult RunDiskpartScript(std::string_view script, Machine& machine);

// `arguments` are those after the program's name: "/s PATH". The exit code is 2 for other
// arguments, 3 if the script cannot be read, or else that of the script.
ToolResult RunDiskpart(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_H_
