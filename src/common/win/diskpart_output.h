// What diskpart prints, read by the columns of its English output. Any text of any length may come
// in; lines that do not fit are passed over. Pure.
#ifndef COMMON_WIN_DISKPART_OUTPUT_H_
#define COMMON_WIN_DISKPART_OUTPUT_H_

#include <cstdint>
#include <string_view>
#include <vector>

namespace common::win {

// One disk as diskpart shows it.
struct DiskpartInfo {
  int32_t DiskNumber = 0;
  int32_t SizeGB = 0;
  char Letter = 0;         // the first drive letter on the disk, "c" to "z"; 0 when there is none
  bool HasVolume = false;  // at least one volume whose size is given in GB
};

// The disks of `list disk` in their order, number and size alone. A disk whose size is given in
// another unit than GB, with no "GB" on its line, is not among them.
std::vector<DiskpartInfo> ParseDiskList(std::string_view text);

// The volumes of `detail disk`: whether one has a size in GB, and the letter of the first such one
// that has a letter, 0 when none has. A letterless volume whose label is one letter long is taken
// to have that letter.
void ParseDiskDetail(std::string_view text, char& letter, bool& has_volume);

}  // namespace common::win

#endif  // COMMON_WIN_DISKPART_OUTPUT_H_
