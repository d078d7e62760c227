#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

#include "simulator/model/boot/disks.h"

namespace simulator {
namespace {

Disk DiskOf(int number, bool gpt, std::vector<Partition> partitions) {
  Disk disk;
  disk.number = number;
  disk.gpt = gpt;
  disk.partitions = std::move(partitions);
  return disk;
}

TEST(SystemPartition, IsThatWithTheInfoOnWhicheverDisk) {
  const std::optional<SystemPartition> found = FindSystemPartition(
      {DiskOf(0, false, {{1, 1, "Boot", nullptr}}),
       DiskOf(1, true, {{1, 1, "Hidden", nullptr}, {2, 1, "System", nullptr}})});
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->disk, 1);
  EXPECT_EQ(found->partition.number, 2);
}

TEST(SystemPartition, TellsTheFirmwareByTheFormatOfItsDisk) {
  for (const bool gpt : {false, true}) {
    const auto found = FindSystemPartition({DiskOf(0, gpt, {{1, 1, "System", nullptr}})});
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->uefi, gpt);
  }
}

TEST(SystemPartition, IsNoneWithoutTheInfo) {
  EXPECT_FALSE(FindSystemPartition({DiskOf(0, true, {{1, 1, "Boot", nullptr}})}).has_value());
  EXPECT_FALSE(FindSystemPartition({}).has_value());
}

}  // namespace
}  // namespace simulator
