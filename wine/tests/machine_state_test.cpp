#include "wine/machine_state.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"

namespace simulator {
namespace {

MachineState Sample() {
  MachineState state;
  state.system.major_version = 6;
  state.system.minor_version = 3;
  state.system.build = 9600;
  state.system.language = 2052;
  state.system.computer_name = "WEB-01";
  state.system.disk_tool_texts = {{"Healthy", "Fehlerfrei"}};
  const auto data = std::make_shared<Volume>();
  data->label = "Größe \"1\"";
  data->file_system = "ReFS";
  data->size = UINT64_C(3) << 40;
  data->drive_type = DRIVE_REMOVABLE;
  Disk disk;
  disk.number = 2;
  disk.model = "Model";
  disk.id = "{00000000-0000-0000-0000-000000000001}";
  disk.bus = "SAS";
  disk.size = UINT64_C(3) << 40;
  disk.free = 5;
  disk.has_medium = false;
  disk.online = false;
  disk.gpt = true;
  disk.dynamic = true;
  disk.partitions = {{1, 7, "", nullptr}, {2, 8, "Boot", data}};
  Disk other;
  other.number = 3;
  other.partitions = {{1, 9, "", data}};
  state.disks = {disk, other};
  state.letters['G'] = data;
  state.letters['H'] = std::make_shared<Volume>();
  state.letters['H']->drive_type = DRIVE_CDROM;
  state.letters['H']->has_medium = false;
  state.targets[data.get()] = "../volumes/disk2_partition2";
  state.boot = HealthyBoot();
  state.boot.unused[data.get()] = HealthyBoot(true).store;
  state.answers = {{"bcdedit", 2, 5, "text\r\n", true}};
  state.calls = {{"diskpart", 3}};
  state.history = {{"diskpart", "sel disk 1\ndetail disk", 5}};
  return state;
}

TEST(MachineState, ComesBackFromItsText) {
  const MachineState state = Sample();
  const std::optional<MachineState> read = ParseMachineState(MachineStateText(state));
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->system.major_version, 6U);
  EXPECT_EQ(read->system.minor_version, 3U);
  EXPECT_EQ(read->system.build, 9600U);
  EXPECT_EQ(read->system.language, 2052);
  EXPECT_EQ(read->system.computer_name, "WEB-01");
  EXPECT_EQ(read->boot.store, state.boot.store);
  EXPECT_EQ(read->boot.current, state.boot.current);
  EXPECT_EQ(read->answers, state.answers);
  EXPECT_EQ(read->calls, state.calls);
  EXPECT_EQ(read->history, state.history);
  EXPECT_EQ(read->system.disk_tool_texts, state.system.disk_tool_texts);
  ASSERT_EQ(read->disks.size(), 2U);
  const Disk& disk = read->disks.front();
  EXPECT_EQ(disk.number, 2);
  EXPECT_EQ(disk.model, "Model");
  EXPECT_EQ(disk.id, "{00000000-0000-0000-0000-000000000001}");
  EXPECT_EQ(disk.bus, "SAS");
  EXPECT_EQ(disk.size, UINT64_C(3) << 40);
  EXPECT_EQ(disk.free, 5U);
  EXPECT_FALSE(disk.has_medium);
  EXPECT_FALSE(disk.online);
  EXPECT_TRUE(disk.gpt);
  EXPECT_TRUE(disk.dynamic);
  ASSERT_EQ(disk.partitions.size(), 2U);
  EXPECT_EQ(disk.partitions[0].volume, nullptr);
  EXPECT_EQ(disk.partitions[1].number, 2);
  EXPECT_EQ(disk.partitions[1].size, 8U);
  EXPECT_EQ(disk.partitions[1].info, "Boot");
  ASSERT_NE(disk.partitions[1].volume, nullptr);
  const Volume& volume = *disk.partitions[1].volume;
  EXPECT_EQ(volume.label, "Größe \"1\"");
  EXPECT_EQ(volume.file_system, "ReFS");
  EXPECT_EQ(volume.size, UINT64_C(3) << 40);
  EXPECT_EQ(volume.drive_type, UINT{DRIVE_REMOVABLE});
  EXPECT_EQ(read->LetterOf(volume), 'G');
  ASSERT_EQ(read->boot.unused.size(), 1U);
  EXPECT_EQ(read->boot.unused.at(&volume), HealthyBoot(true).store);
  ASSERT_EQ(read->letters.count('H'), 1U);
  EXPECT_FALSE(read->letters.at('H')->has_medium);
  EXPECT_EQ(read->letters.at('H')->drive_type, UINT{DRIVE_CDROM});
  EXPECT_EQ(read->letters.size(), 2U);
  EXPECT_EQ(read->targets.at(&volume), "../volumes/disk2_partition2");
  EXPECT_FALSE(read->disks[1].dynamic);
  EXPECT_EQ(read->disks[1].partitions.at(0).volume.get(), &volume);
}

TEST(MachineState, KeepsAnEmptyBootStore) {
  MachineState state = Sample();
  state.boot = {};
  const std::optional<MachineState> read = ParseMachineState(MachineStateText(state));
  ASSERT_TRUE(read.has_value());
  EXPECT_TRUE(read->boot.store.entries.empty());
}

TEST(MachineState, IsNotReadFromOtherText) {
  const std::string whole = MachineStateText(Sample());
  for (const std::string& text :
       {std::string(), std::string("{}"), std::string("[1]"), whole.substr(0, whole.size() / 2)}) {
    EXPECT_FALSE(ParseMachineState(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace simulator
