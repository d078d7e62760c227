// Drive letters of real disks, moved by the disk tool.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "restore/disks.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/recording_logger.h"
#include "support/simulated_diskpart.h"

namespace restore {
namespace {

using simulator::Volume;
using Lines = std::vector<std::string>;

constexpr uint64_t kGB = uint64_t{1} << 30;
constexpr char kMissing[] = "Warn: ReadBackupInfoLine Backup Info File doesn't Exist.";

class RestoreDisksTest : public testing::Test {
 protected:
  RestoreDisksTest()
      : diskpart_(server_, [this](const std::string& commands) -> tests::DiskpartReply {
          const simulator::ToolResult result =
              simulator::RunDiskpartScript(Uncut(commands), server_);
          return {result.exit_code, result.output};
        }) {}

  // Disk 0 with the server's own volume, recorded as C.
  void AddSystemDisk(const std::string& backup_info = "C\r\n") {
    const auto volume = server_.files().VolumeAt('C');
    server_.files().WriteOn(*volume, "vantoro_prepare\\backup_info", backup_info);
    Add({.size = 127 * kGB, .partitions = {{1, 126 * kGB, "Boot", volume}}});
  }

  // The next disk, of `size` GB, with one volume: mounted there unless `letter` is 0, and with
  // that backup information unless it is null.
  std::shared_ptr<Volume> AddDisk(char letter, const char* backup_info, uint64_t size = 100,
                                  int partition = 1) {
    const auto volume = server_.files().AddVolume({});
    volume->label = "Data";
    if (letter != 0) server_.files().Mount(letter, volume);
    if (backup_info != nullptr) {
      server_.files().WriteOn(*volume, "vantoro_prepare\\backup_info", backup_info);
    }
    simulator::Disk disk{.size = size * kGB, .partitions = {}};
    for (int reserved = 1; reserved < partition; ++reserved) {
      disk.partitions.push_back({reserved, 16 << 20, "", nullptr});
    }
    disk.partitions.push_back({partition, size * kGB, "", volume});
    Add(std::move(disk));
    return volume;
  }

  void Add(simulator::Disk disk) {
    disk.number = static_cast<int>(server_.disks().size());
    server_.disks().push_back(std::move(disk));
  }

  // In lower case; 0 when it has none.
  char LetterOf(const std::shared_ptr<Volume>& volume) const {
    const std::optional<char> letter = server_.files().LetterOf(*volume);
    return letter ? static_cast<char>(*letter - 'A' + 'a') : '\0';
  }

  bool Restore() { return RestoreDisks(logger_); }

  // The scripts that changed something.
  Lines Changes() const {
    Lines changes = diskpart_.Commands();
    std::erase_if(changes, [](const std::string& commands) {
      return commands == "list disk " || commands.ends_with("/detail disk");
    });
    return changes;
  }

  mutable simulator::Server server_;
  tests::RecordingLogger logger_;
  tests::ScriptedDiskpart diskpart_;

 private:
  static std::string Uncut(std::string commands) {
    for (char& c : commands) {
      if (c == '/') c = '\n';
    }
    return commands;
  }
};

TEST_F(RestoreDisksTest, ChangesNothingWhenEveryLetterIsRight) {
  AddSystemDisk();
  const auto data = AddDisk('E', "e\r\n");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'e');
  EXPECT_EQ(diskpart_.Commands(),
            (Lines{"list disk ", "sel disk 0/detail disk", "sel disk 1/detail disk"}));
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RestoreDisksTest, TakesEveryWrongLetterBeforeItGivesAny) {
  AddSystemDisk();
  const auto first = AddDisk('D', "E\r\n");
  const auto second = AddDisk('E', "D\r\n");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(first), 'e');
  EXPECT_EQ(LetterOf(second), 'd');
  EXPECT_EQ(diskpart_.Commands(),
            (Lines{"list disk ", "sel disk 0/detail disk", "sel disk 1/detail disk",
                   "sel disk 2/detail disk", "sel disk 1/sel part 1/remove",
                   "sel disk 2/sel part 1/remove", "sel disk 1/sel part 1/assign letter=e",
                   "sel disk 1/detail disk", "sel disk 2/sel part 1/assign letter=d",
                   "sel disk 2/detail disk"}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: RestoreDisks Remove Disk 1 Letter Successfully!",
                   "InfoOut: RestoreDisks Remove Disk 2 Letter Successfully!",
                   "InfoOut: RestoreDisks Assign Disk 1 Letter[e] Successfully!",
                   "InfoOut: RestoreDisks Assign Disk 2 Letter[d] Successfully!"}));
}

TEST_F(RestoreDisksTest, RotatesThreeLetters) {
  AddSystemDisk();
  const auto first = AddDisk('D', "F");
  const auto second = AddDisk('E', "D");
  const auto third = AddDisk('F', "E");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(first), 'f');
  EXPECT_EQ(LetterOf(second), 'd');
  EXPECT_EQ(LetterOf(third), 'e');
}

TEST_F(RestoreDisksTest, GivesALetterlessDiskOneToReadItsInformation) {
  AddSystemDisk();
  server_.files().MountEmpty('D');
  server_.files().MountEmpty('E');
  const auto data = AddDisk(0, "G\r\n");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'g');
  EXPECT_EQ(Changes(), (Lines{"sel disk 1/sel part 1/assign", "sel disk 1/sel part 1/remove",
                              "sel disk 1/sel part 1/assign letter=g"}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: RestoreDisks Assign Disk 1 Random Letter Successfully!",
                   "InfoOut: RestoreDisks Remove Disk 1 Letter Successfully!",
                   "InfoOut: RestoreDisks Assign Disk 1 Letter[g] Successfully!"}));
}

TEST_F(RestoreDisksTest, LeavesALetterlessDiskTheFreeLetterWhenItIsTheRecordedOne) {
  AddSystemDisk();
  const auto data = AddDisk(0, "d");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'd');
  EXPECT_EQ(Changes(), Lines{"sel disk 1/sel part 1/assign"});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"InfoOut: RestoreDisks Assign Disk 1 Random Letter Successfully!"});
}

TEST_F(RestoreDisksTest, GivesAFreeLetterWhenARightfulVolumeHoldsTheRecordedOne) {
  AddSystemDisk();
  const auto rightful = AddDisk('G', "g");
  const auto claimant = AddDisk('E', "g");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(rightful), 'g');
  EXPECT_EQ(LetterOf(claimant), 'd');
  EXPECT_EQ(Changes(), (Lines{"sel disk 2/sel part 1/remove", "sel disk 2/sel part 1/assign"}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: RestoreDisks Remove Disk 2 Letter Successfully!",
                   "Warn: RestoreDisks Disk 2 Src Dir [g:\\] Exist."}));
}

TEST_F(RestoreDisksTest, NeverTakesTheLetterOfAnOpticalDrive) {
  AddSystemDisk();
  const auto disc = server_.files().AddVolume({});
  disc->drive_type = DRIVE_CDROM;
  server_.files().Mount('D', disc);
  const auto data = AddDisk('E', "D");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(disc), 'd');
  EXPECT_EQ(LetterOf(data), 'e');
}

TEST_F(RestoreDisksTest, GivesALetterThatTwoClaimToTheFirst) {
  AddSystemDisk();
  const auto first = AddDisk('E', "x");
  const auto second = AddDisk('F', "x");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(first), 'x');
  EXPECT_EQ(LetterOf(second), 'd');
}

TEST_F(RestoreDisksTest, NeverTakesTheSystemsLetter) {
  AddSystemDisk("E\r\n");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Changes(), Lines{});
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RestoreDisksTest, GivesAnotherLetterToWhoWantsTheSystems) {
  AddSystemDisk();
  const auto data = AddDisk('E', "c");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(data), 'd');
  EXPECT_EQ(logger_.LinesAboveDebug().back(), "Warn: RestoreDisks Disk 1 Src Dir [c:\\] Exist.");
}

TEST_F(RestoreDisksTest, TakesTheSystemsLetterFromItsDirectory) {
  server_.system().system_directory = "E:\\Windows\\system32";
  const auto data = AddDisk('E', "F");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'e');
}

TEST_F(RestoreDisksTest, TriesToMoveTheSystemWhenItsLetterIsUnknown) {
  AddSystemDisk("E");
  server_.calls().FailNext("GetSystemDirectoryA", ERROR_GEN_FAILURE);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Changes(), Lines{"sel disk 0/sel part 1/remove"});
  EXPECT_EQ(logger_.LinesAboveDebug().back(), "Warn: RestoreDisks Remove Disk 0 Letter Failed.");
}

TEST_F(RestoreDisksTest, AddressesThreeTerabytesAtPartition2) {
  AddSystemDisk();
  const auto data = AddDisk('E', "F", 3000, 2);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'f');
  EXPECT_EQ(Changes(),
            (Lines{"sel disk 1/sel part 2/remove", "sel disk 1/sel part 2/assign letter=f"}));
}

TEST_F(RestoreDisksTest, AddressesALetterlessLargeDiskAtPartition2) {
  AddSystemDisk();
  const auto data = AddDisk(0, "F", 2049, 2);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'f');
  EXPECT_EQ(Changes(), (Lines{"sel disk 1/sel part 2/assign", "sel disk 1/sel part 2/remove",
                              "sel disk 1/sel part 2/assign letter=f"}));
}

TEST_F(RestoreDisksTest, FallsBackAtPartition2OfALargeDisk) {
  AddSystemDisk();
  AddDisk('E', "C", 2049, 2);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Changes(), (Lines{"sel disk 1/sel part 2/remove", "sel disk 1/sel part 2/assign"}));
}

TEST_F(RestoreDisksTest, Addresses2048GigabytesAtPartition1) {
  AddSystemDisk();
  const auto data = AddDisk('E', "F", 2048);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(data), 'f');
  EXPECT_EQ(Changes(),
            (Lines{"sel disk 1/sel part 1/remove", "sel disk 1/sel part 1/assign letter=f"}));
}

TEST_F(RestoreDisksTest, StopsAtADiskWithoutAnyVolume) {
  AddSystemDisk();
  const auto before = AddDisk('E', "F");
  Add({.size = 100 * kGB, .partitions = {}});
  const auto behind = AddDisk('G', "H");
  EXPECT_FALSE(Restore());
  // The removal before it is not undone.
  EXPECT_EQ(LetterOf(before), 0);
  EXPECT_EQ(LetterOf(behind), 'g');
  EXPECT_EQ(Changes(), Lines{"sel disk 1/sel part 1/remove"});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: RestoreDisks Remove Disk 1 Letter Successfully!", kMissing,
                   "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(RestoreDisksTest, StopsAtADiskWhoseVolumeIsSmall) {
  AddSystemDisk();
  Add({.size = 100 * kGB, .partitions = {{1, 500 << 20, "", server_.files().AddVolume({})}}});
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Changes(), Lines{});
}

TEST_F(RestoreDisksTest, StopsAtADiskThatIsOffline) {
  AddSystemDisk();
  AddDisk('E', "F");
  server_.disks()[1].online = false;
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Changes(), Lines{});
}

TEST_F(RestoreDisksTest, StopsWithoutBackupInformation) {
  AddSystemDisk();
  AddDisk('E', nullptr);
  const auto behind = AddDisk('G', "H");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(behind), 'g');
  EXPECT_EQ(logger_.LinesAboveDebug(), (Lines{kMissing, "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(RestoreDisksTest, StopsAtBackupInformationWithoutALetter) {
  AddSystemDisk();
  AddDisk('E', "1c\r\n");
  const auto behind = AddDisk('G', "H");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(behind), 'g');
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{"Error: ReadBackupInfo Wrong Content: 1c"});
}

TEST_F(RestoreDisksTest, LeavesTheTemporaryLetterWhenTheInformationIsMissing) {
  AddSystemDisk();
  const auto data = AddDisk(0, nullptr);
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LetterOf(data), 'd');
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"InfoOut: RestoreDisks Assign Disk 1 Random Letter Successfully!", kMissing,
                   "Error: ReadBackupInfo Wrong Content: "}));
}

TEST_F(RestoreDisksTest, PassesOverDisksThatAreNotListedInGigabytes) {
  AddSystemDisk();
  const auto large = AddDisk('E', "F", 20000);
  Add({.size = 4 * kGB, .partitions = {}});
  EXPECT_TRUE(Restore());
  EXPECT_EQ(LetterOf(large), 'e');
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RestoreDisksTest, SucceedsWithoutAnyDisk) {
  EXPECT_TRUE(Restore());
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

TEST_F(RestoreDisksTest, ReportsADiskWithoutAFreeLetterLeft) {
  AddSystemDisk();
  for (char letter = 'D'; letter <= 'Z'; ++letter) {
    server_.files().MountEmpty(letter);
  }
  AddDisk(0, "F");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"ErrorOut: WinUtil::RunScript Run AssignDiskLetter  Step1 Failed, code=5",
                   "Error: WinUtil::AssignDiskLetter assign letter Failed. code=5",
                   "Warn: RestoreDisks Assign Disk 1 Random Letter Failed."}));
}

TEST_F(RestoreDisksTest, LeavesNothingOpen) {
  AddSystemDisk();
  AddDisk('D', "E");
  AddDisk('E', "D");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

TEST_F(RestoreDisksTest, TakesAnyBackupInformation) {
  const std::vector<std::string> contents = {std::string(300, '\0'), std::string(3000000, 'x'),
                                             "\x1a", "\r", "E\0F"};
  for (const std::string& content : contents) {
    server_.disks().clear();
    AddSystemDisk(content);
    EXPECT_EQ(Restore(), content[0] == 'x' || content[0] == 'E');
  }
}

}  // namespace
}  // namespace restore
