#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/simulated_child.h"
#include "support/test_names.h"

namespace simulator {
namespace {

constexpr char kSuccess[] = "Boot files successfully created.\r\n";
constexpr char kFailure[] = "Failure when attempting to copy boot files.\r\n";
constexpr char kOther[] = "{aaaaaaaa-0000-0000-0000-00000000000f}";

class Bcdboot : public testing::Test {
 protected:
  void ExpectSuccess(const std::vector<std::string>& arguments) {
    const ToolResult result = RunBcdboot(arguments, server_);
    EXPECT_EQ(result.output, kSuccess);
    EXPECT_EQ(result.exit_code, 0u);
  }

  void ExpectFailure(const std::vector<std::string>& arguments) {
    const BootStore before = store_;
    const ToolResult result = RunBcdboot(arguments, server_);
    EXPECT_EQ(result.output, kFailure);
    EXPECT_EQ(result.exit_code, 1u);
    EXPECT_EQ(store_, before);
  }

  // Adds a partition that the firmware boots from.
  void BootFrom(std::optional<char> letter, bool uefi) {
    Disk disk;
    disk.gpt = uefi;
    disk.partitions = {{1, 1, "System", server_.files().AddVolume({})},
                       {2, 1, "Boot", server_.files().VolumeAt('C')}};
    if (letter) server_.files().Mount(*letter, disk.partitions[0].volume);
    server_.disks() = {disk};
  }

  Server server_;
  BootStore& store_ = server_.boot().store;
  const std::string current_ = server_.boot().current;
};

TEST_F(Bcdboot, GivesAHealthyStoreTheLocale) {
  BootStore expected = store_;
  for (BootEntry& entry : expected.entries) entry.Set("locale", {"zh-CN"});
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "zh-CN"});
  EXPECT_EQ(store_, expected);
}

TEST_F(Bcdboot, KeepsWhatTheLoaderOfTheRunningWindowsSays) {
  store_.Find(current_)->Set("description", {"Mine"});
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "en-US"});
  ASSERT_NE(store_.Find(current_), nullptr);
  EXPECT_EQ(store_.Find(current_)->Value("description"), "Mine");
}

TEST_F(Bcdboot, LeavesTheRunningWindowsAloneToDisplay) {
  store_.entries.push_back({BootEntryType::kLoader, kOther, {}});
  BootEntry& manager = *store_.Find("{bootmgr}");
  manager.Set("default", {kOther});
  manager.Set("displayorder", {kOther, current_});
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "en-US"});
  ASSERT_EQ(store_.entries.size(), 2u);
  EXPECT_EQ(store_.entries[0].Value("default"), current_);
  EXPECT_EQ(store_.entries[0].Value("displayorder"), current_);
  EXPECT_EQ(store_.entries[1].identifier, current_);
}

TEST_F(Bcdboot, KeepsWhatTheManagerSaysBesides) {
  BootEntry& manager = *store_.Find("{bootmgr}");
  manager.Set("path", {"\\EFI\\Microsoft\\Boot\\bootmgfw.efi"});
  manager.Set("timeout", {"5"});
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "zh-CN"});
  EXPECT_EQ(store_.entries[0].Value("path"), "\\EFI\\Microsoft\\Boot\\bootmgfw.efi");
  EXPECT_EQ(store_.entries[0].Value("timeout"), "5");
  EXPECT_EQ(store_.entries[0].Value("locale"), "zh-CN");
}

TEST_F(Bcdboot, LeavesNoReferenceToALoaderThatGoes) {
  store_.entries.push_back({BootEntryType::kLoader, kOther, {}});
  store_.Find(current_)->Set("recoverysequence", {kOther});
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "en-US"});
  EXPECT_EQ(store_.Find(current_)->Value("recoverysequence"), "");
}

TEST_F(Bcdboot, MakesTheManagerAnewOnTheDrive) {
  BootFrom('S', false);
  BootStore expected = store_;
  expected.Find("{bootmgr}")->Set("device", {"partition=S:"});
  store_.entries.erase(store_.entries.begin());
  ExpectSuccess({"C:\\Windows", "/s", "s:", "/l", "en-US"});
  EXPECT_EQ(store_, expected);
  EXPECT_TRUE(server_.boot().unused.empty());
}

// The store of the volume that it names, for the firmware that it runs on.
TEST_F(Bcdboot, LeavesTheStoreInUseAloneOnAnotherVolume) {
  for (const bool uefi : {false, true}) {
    BootFrom(std::nullopt, uefi);
    const BootStore before = store_;
    ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "zh-CN"});
    EXPECT_EQ(store_, before);
    ASSERT_EQ(server_.boot().unused.size(), 1u);
    const auto& [volume, written] = *server_.boot().unused.begin();
    EXPECT_EQ(volume, server_.files().VolumeAt('C').get());
    ASSERT_EQ(written.entries.size(), 2u);
    EXPECT_EQ(written.entries[0].Value("device"), "partition=C:");
    EXPECT_EQ(written.entries[0].Value("path"), uefi ? "\\EFI\\Microsoft\\Boot\\bootmgfw.efi" : "");
    EXPECT_EQ(written.entries[0].Value("locale"), "zh-CN");
    EXPECT_EQ(written.entries[1].Value("path"),
              uefi ? "\\Windows\\system32\\winload.efi" : "\\Windows\\system32\\winload.exe");
    EXPECT_EQ(written.entries[1].Value("locale"), "zh-CN");
    server_.boot().unused.clear();
  }
}

TEST_F(Bcdboot, KeepsAStoreThatIsNotInUseWhenItsVolumeHasAnotherLetter) {
  const std::shared_ptr<Volume> data = server_.files().AddVolume({});
  server_.files().Mount('D', data);
  ExpectSuccess({"c:\\Windows", "/s", "d:", "/l", "zh-CN"});
  server_.files().Unmount('D');
  server_.files().MountEmpty('D');
  server_.files().Mount('E', data);
  ExpectSuccess({"c:\\Windows", "/s", "e:", "/l", "en-US"});
  ASSERT_EQ(server_.boot().unused.size(), 1u);
  EXPECT_EQ(server_.boot().unused.at(data.get()).entries.at(0).Value("device"), "partition=E:");
}

TEST_F(Bcdboot, MakesALoaderWhereTheRunningWindowsHasNone) {
  store_.entries.clear();
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "de-DE"});
  ASSERT_EQ(store_.entries.size(), 2u);
  const BootEntry& manager = store_.entries[0];
  const BootEntry& loader = store_.entries[1];
  EXPECT_NE(loader.identifier, current_);
  EXPECT_EQ(loader.Value("osdevice"), "partition=C:");
  EXPECT_EQ(loader.Value("path"), "\\Windows\\system32\\winload.exe");
  EXPECT_EQ(loader.Value("locale"), "de-DE");
  EXPECT_EQ(manager.Value("default"), loader.identifier);
  EXPECT_EQ(manager.Value("displayorder"), loader.identifier);
  EXPECT_EQ(manager.Value("resumeobject"), loader.Value("resumeobject"));
  EXPECT_EQ(manager.Value("locale"), "de-DE");
}

TEST_F(Bcdboot, GivesEachNewLoaderAnIdentifierOfItsOwn) {
  server_.boot().current = "";
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "en-US"});
  const BootEntry first = store_.entries.at(1);
  ExpectSuccess({"c:\\Windows", "/s", "c:", "/l", "en-US"});
  ASSERT_EQ(store_.entries.size(), 2u);
  EXPECT_NE(store_.entries[1].identifier, first.identifier);
  EXPECT_NE(store_.entries[1].identifier, first.Value("resumeobject"));
}

TEST_F(Bcdboot, TakesItsSwitchesInAnyOrderAndCase) {
  ExpectSuccess({"c:\\Windows", "/L", "de-DE", "/S", "C:"});
  EXPECT_EQ(store_.Find(current_)->Value("locale"), "de-DE");
}

struct Arguments {
  const char* name;
  std::vector<std::string> texts;
};

std::ostream& operator<<(std::ostream& out, const Arguments& test) { return out << test.name; }

class BcdbootRefuses : public Bcdboot, public testing::WithParamInterface<Arguments> {};

TEST_P(BcdbootRefuses, AndLeavesTheStoreAsItIs) { ExpectFailure(GetParam().texts); }

INSTANTIATE_TEST_SUITE_P(
    Arguments, BcdbootRefuses,
    testing::Values(Arguments{"Nothing", {}}, Arguments{"FolderAlone", {"c:\\Windows"}},
                    Arguments{"NoLocale", {"c:\\Windows", "/s", "c:"}},
                    Arguments{"LocaleSwitchAlone", {"c:\\Windows", "/s", "c:", "/l"}},
                    Arguments{"EmptyLocale", {"c:\\Windows", "/s", "c:", "/l", ""}},
                    Arguments{"VolumeTwice", {"c:\\Windows", "/s", "c:", "/s", "c:"}},
                    Arguments{"UnknownSwitch", {"c:\\Windows", "/s", "c:", "/x", "en-US"}},
                    Arguments{"OneSwitchTooMany", {"c:\\Windows", "/s", "c:", "/l", "en-US", "/v"}},
                    Arguments{"MissingVolume", {"c:\\Windows", "/s", "x:", "/l", "en-US"}},
                    Arguments{"VolumeWithoutAColon", {"c:\\Windows", "/s", "c", "/l", "en-US"}},
                    Arguments{"VolumeOfColons", {"c:\\Windows", "/s", "::", "/l", "en-US"}},
                    Arguments{"VolumeOfTwoLetters", {"c:\\Windows", "/s", "cc", "/l", "en-US"}},
                    Arguments{"VerbatimFolder", {"\\\\?\\c:\\Windows", "/s", "c:", "/l", "en-US"}},
                    Arguments{"FolderWithoutALetter", {":\\Windows", "/s", ":", "/l", "en-US"}},
                    Arguments{"FolderThatIsNoWindows", {"c:\\Winnt", "/s", "c:", "/l", "en-US"}},
                    Arguments{"FolderOfAMissingVolume", {"x:\\Windows", "/s", "c:", "/l", "en-US"}},
                    Arguments{"EmptyFolder", {"", "/s", "c:", "/l", "en-US"}},
                    Arguments{
                        "FileForAFolder",
                        {"c:\\vantoro_restore\\vantoro_restore.exe", "/s", "c:", "/l", "en-US"}}),
    tests::NamedAsPrinted());

TEST_F(Bcdboot, RunsAsAProgram) {
  server_.processes().Install("bcdboot", BcdbootProgram());
  EXPECT_EQ(tests::RunChild("bcdboot c:\\Windows /s c: /l zh-CN").output, kSuccess);
  EXPECT_EQ(store_.Find(current_)->Value("locale"), "zh-CN");
  EXPECT_EQ(tests::RunChild("bcdboot c:\\Winnt /s c: /l zh-CN").exit_code, 1u);
}

}  // namespace
}  // namespace simulator
