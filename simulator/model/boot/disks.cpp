#include "simulator/model/boot/disks.h"

namespace simulator {

std::optional<SystemPartition> FindSystemPartition(const std::vector<Disk>& disks) {
  for (const Disk& disk : disks) {
    for (const Partition& partition : disk.partitions) {
      if (partition.info == "System") return SystemPartition{disk.number, disk.gpt, partition};
    }
  }
  return std::nullopt;
}

}  // namespace simulator
