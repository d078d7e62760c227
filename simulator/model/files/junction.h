// Junctions: folders that lead to another folder. A reparse point's buffer as the file system
// stores it.
// https://learn.microsoft.com/windows-hardware/drivers/ddi/ntifs/ns-ntifs-_reparse_data_buffer
#ifndef SIMULATOR_MODEL_FILES_JUNCTION_H_
#define SIMULATOR_MODEL_FILES_JUNCTION_H_

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// The longest target, in UTF-16 units, whose buffer the system takes.
inline constexpr size_t kLongestJunctionTarget = 8178;

// The buffer of a junction to a full path such as "D:\Data": substitute name "\??\D:\Data", empty
// print name.
std::string JunctionBuffer(std::string_view target);

// What FSCTL_SET_REPARSE_POINT says of a buffer. Ends the process for a well-formed buffer that
// makes no junction.
DWORD CheckReparseBuffer(std::string_view buffer);

// 0 for what is too short to have one.
DWORD ReparseTag(std::string_view buffer);

// The substitute name in UTF-8; nothing when the buffer is not a junction's.
std::optional<std::string> SubstituteName(std::string_view buffer);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_JUNCTION_H_
