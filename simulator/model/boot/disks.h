// The disks of a simulated server, as the disk tool sees them.
#ifndef SIMULATOR_MODEL_BOOT_DISKS_H_
#define SIMULATOR_MODEL_BOOT_DISKS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

struct Volume;

struct Partition {
  int number = 1;
  uint64_t size = 0;  // bytes
  // "System": the firmware boots from here. "Boot": Windows is here, and the firmware boots from
  // another partition. Else "Hidden" or empty.
  std::string info;
  std::shared_ptr<Volume> volume;  // null if none is shown, as for a reserved partition
};

struct Disk {
  int number = 0;
  std::string model = "Virtual HD SCSI Disk Device";
  std::string id = "00000000";  // eight hex digits, or a GUID in braces
  std::string bus = "SCSI";
  uint64_t size = 0;       // bytes
  uint64_t free = 0;       // bytes
  bool has_medium = true;  // false: a card reader without a card
  bool online = true;
  bool gpt = false;
  bool dynamic = false;  // a spanned volume is that of partitions of several dynamic disks
  std::vector<Partition> partitions;
};

// The partition that the firmware boots from. The BCD store in use is on its volume.
struct SystemPartition {
  int disk = 0;
  bool uefi = false;  // the firmware; the disk is then a GPT disk, otherwise an MBR disk
  Partition partition;
};

// Returns the first partition with the info "System". If there is none, the server boots from the
// partition of Windows, with a BIOS.
std::optional<SystemPartition> FindSystemPartition(const std::vector<Disk>& disks);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_BOOT_DISKS_H_
