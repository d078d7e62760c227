// Parser for the output of diskpart, by the columns of its English output. Accepts any text of any
// length; skips lines of another form. Pure.
#ifndef COMMON_WIN_DISKPART_OUTPUT_H_
#define COMMON_WIN_DISKPART_OUTPUT_H_

#include <cstdint>
#include <string_view>
#include <vector>

namespace common::win {

// One disk as listed by diskpart.
struct DiskpartInfo {
  int32_t DiskNumber = 0;
  int32_t SizeGB = 0;
  char Letter = 0;         // the first drive letter on the disk, "c" to "z"; 0 if there is none
  bool HasVolume = false;  // at least one volume is listed in GB
};

// Returns the disks of `list disk` in their order, with number and size only. A disk whose line
// does not contain "GB" is omitted.
std::vector<DiskpartInfo> ParseDiskList(std::string_view text);

// Evaluates the volumes of `detail disk` that are listed in GB: `has_volume` is true if there is
// one; `letter` is the drive letter of the first one that has a drive letter, otherwise 0. If a
// volume has no drive letter and its label is one letter, the label is read as its drive letter.
void ParseDiskDetail(std::string_view text, char& letter, bool& has_volume);

}  // namespace common::win

#endif  // COMMON_WIN_DISKPART_OUTPUT_H_
