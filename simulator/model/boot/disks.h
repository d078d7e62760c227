// The disks of a simulated server, as the disk tool sees them.
#ifndef SIMULATOR_MODEL_BOOT_DISKS_H_
#define SIMULATOR_MODEL_BOOT_DISKS_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace simulator {

struct Volume;

struct Partition {
  int number = 1;
  uint64_t size = 0;               // bytes
  std::string info;                // "System", "Boot", "Hidden" or empty
  std::shared_ptr<Volume> volume;  // null if none is shown, as for a reserved partition
};

struct Disk {
  int number = 0;
  std::string model = "Virtual HD SCSI Disk Device";
  std::string id = "00000000";  // eight hex digits, or a GUID in braces
  std::string bus = "SCSI";
  uint64_t size = 0;  // bytes
  uint64_t free = 0;  // bytes
  bool online = true;
  bool gpt = false;
  std::vector<Partition> partitions;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_BOOT_DISKS_H_
