// Junctions, which are folders that lead to another folder, and the reparse point buffer as the
// file system stores it.
// https://learn.microsoft.com/windows-hardware/drivers/ddi/ntifs/ns-ntifs-_reparse_data_buffer
#ifndef SIMULATOR_MODEL_FILES_JUNCTION_H_
#define SIMULATOR_MODEL_FILES_JUNCTION_H_

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// The length, in UTF-16 units, of the longest target whose buffer the system accepts.
inline constexpr size_t kLongestJunctionTarget = 8178;

// Returns the buffer of a junction to a full path such as "D:\Data": the substitute name is
// "\??\D:\Data", and the print name is empty.
std::string JunctionBuffer(std::string_view target);

// Returns the error code with which FSCTL_SET_REPARSE_POINT answers a buffer. Aborts if the buffer
// is well-formed but is not that of a junction.
DWORD CheckReparseBuffer(std::string_view buffer);

// Returns 0 if the buffer is too short to contain a tag.
DWORD ReparseTag(std::string_view buffer);

// Returns the substitute name in UTF-8, or nothing if the buffer is not that of a junction.
std::optional<std::string> SubstituteName(std::string_view buffer);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_JUNCTION_H_
