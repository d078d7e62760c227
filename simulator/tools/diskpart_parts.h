// The command lines of a disk tool script, and the output of the disk tool in the columns of the
// real tool. Lines end with CR LF. Lists and details are in the server's language as far as
// captures show them (diskpart_texts.h), all other texts are English.
#ifndef SIMULATOR_TOOLS_DISKPART_PARTS_H_
#define SIMULATOR_TOOLS_DISKPART_PARTS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"

namespace simulator {

struct System;
class Machine;

enum class DiskpartVerb {
  kNothing,  // a blank line or a remark
  kListDisk,
  kSelectDisk,
  kSelectPartition,
  kDetailDisk,
  kAssign,
  kRemove,
  kExit,
  kBadArguments,
  kUnknown,
};

struct DiskpartCommand {
  DiskpartVerb verb = DiskpartVerb::kNothing;
  int number = 0;                   // of the disk or partition to select
  std::optional<char> letter = {};  // to assign, in upper case
  std::string help_topic = {};      // for kBadArguments
};

// Parses one line, without its line feed.
DiskpartCommand ParseDiskpartCommand(std::string_view line);

// Returns "Microsoft DiskPart version 10.0.14393.0".
std::string DiskpartVersion(const System& system);

// Returns the lines with the version, the copyright and the computer name.
std::string DiskpartBanner(const System& system);

// Returns "Disk 1 is now the selected disk.".
std::string SelectedDiskText(int number, const System& system);

// Returns a size as the disk tool shows it: "127 GB".
std::string DiskSizeText(uint64_t bytes, const System& system);

// Returns the output of "list disk". The line of the selected disk is marked.
std::string DiskListing(const std::vector<Disk>& disks, std::optional<int> selected,
                        const System& system);

// Returns the output of "detail disk" for one of the machine's disks. Volumes are numbered over all
// disks, in the order of the disks and their partitions. The line of the selected volume is marked.
std::string DiskDetail(const Disk& disk, const Volume* selected, const Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_PARTS_H_
