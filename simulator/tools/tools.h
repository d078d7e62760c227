// The system's tools as functions of a machine, and their results.
#ifndef SIMULATOR_TOOLS_TOOLS_H_
#define SIMULATOR_TOOLS_TOOLS_H_

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class Machine;

struct ToolResult {
  std::string output;
  DWORD exit_code = 0;
  std::string error_output = {};
};

// A call of a tool that has ended.
struct ToolCall {
  std::string name;         // "diskpart"
  std::string script = {};  // what the disk tool was told to do: lines that end with LF alone
  DWORD exit_code = 0;
  friend bool operator==(const ToolCall&, const ToolCall&) = default;
};

// The disk tool: lists the disks of the machine and moves drive letters, driven by a script.
//
// The tool supports list disk, select disk, select partition, detail disk, assign, assign letter=x,
// remove, rem and exit, with the variations that the real tool accepts: any case, any number of
// spaces, and words shortened to three letters or more. A command or argument that only the real
// tool supports aborts the process through Unsupported.
//
// Runs the commands of a script until one fails. Lines end with LF, which any number of CRs may
// precede. The exit code is 0, or 5 if a command is unknown, its arguments are wrong, or the object
// that it needs is not selected, not valid or not free.
ToolResult RunDiskpartScript(std::string_view script, Machine& machine);

// `arguments` are those after the program's name: "/s PATH". The exit code is 2 for other
// arguments, 3 if the script cannot be read, or else that of the script.
ToolResult RunDiskpart(const std::vector<std::string>& arguments, Machine& machine);

// The boot configuration tool: lists the machine's BCD store in use, exports and imports it, and
// deletes entries.
//
// The tool supports the command lines below. It answers every other one as an invalid command line,
// even one that the real tool supports. Apart from the listing, its texts are English whatever the
// system's language.
//
// `arguments` are those after the program's name: none, "/export FILE", "/import FILE" or "/delete
// ID". The ID is a GUID in braces, {current}, {default}, or a well-known name such as {bootmgr}.
// Entries with a well-known name are not deleted. References to a deleted entry are removed. The
// exit code is 0, or 1 with the reason in the error output. A failed command leaves the store
// unchanged.
ToolResult RunBcdedit(const std::vector<std::string>& arguments, Machine& machine);

// The tool that rebuilds the boot files and the BCD store of a volume, on Windows 6.1 and later.
// `arguments` are those after the program's name: "SOURCE /s DRIVE /l LOCALE". Both switches are
// required, in either order. The store is that of DRIVE ("c:"): the one in use only if the firmware
// boots from this volume. Afterwards it consists of a boot manager on DRIVE and one loader: that of
// the running Windows or, if the store has none, a new one for the Windows in the folder SOURCE. A
// new store is for the firmware of the machine. The exit code is 1 if the folder or drive does not
// exist, or if there are other arguments; the stores then remain unchanged.
ToolResult RunBcdboot(const std::vector<std::string>& arguments, Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_TOOLS_H_
