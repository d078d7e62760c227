// What the disk tool prints: its English texts in the columns of the real one, lines ended by
// CR LF.
//
// English whatever the server's language is: the language of a simulated server is that of its
// locale, which an English Windows has as well.
#ifndef SIMULATOR_TOOLS_DISKPART_OUTPUT_H_
#define SIMULATOR_TOOLS_DISKPART_OUTPUT_H_

#include <optional>
#include <string>
#include <vector>

#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"

namespace simulator {

struct System;

class Machine;

// "Microsoft DiskPart version 10.0.14393.0".
std::string DiskpartVersion(const System& system);

// Version, copyright and computer.
std::string DiskpartBanner(const System& system);

// The answer to "list disk". The selected disk's line is marked.
std::string DiskListing(const std::vector<Disk>& disks, std::optional<int> selected,
                        const System& system);

// The answer to "detail disk" for one of the machine's disks. Volumes are counted over all disks,
// in the order of the disks and their partitions; the selected one's line is marked.
std::string DiskDetail(const Disk& disk, const Volume* selected, const Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_OUTPUT_H_
