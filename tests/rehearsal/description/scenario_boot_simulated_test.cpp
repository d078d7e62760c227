#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rehearsal/description/scenario_boot.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

class ScenarioBootTest : public tests::ScenarioTest {
 protected:
  static std::string WithBoot(const std::string& boot, const std::string& keys = "") {
    return WithDisks("", ", \"boot\": " + boot + keys);
  }

  Boot Made(const std::string& boot) { return *Read(WithBoot(boot)).boot; }
};

TEST_F(ScenarioBootTest, MakesAManagerAndItsLoadersInTheirOrder) {
  const Boot boot = Made(R"({"manager": {"locale": "zh-CN", "device": "unknown"}, "loaders": [
      {"description": "Old", "type": "legacy"},
      {"description": "New", "locale": "de-DE", "device": "partition=D:", "current": true},
      {"description": "Sector", "type": "sector", "displayed": false},
      {"description": "Other", "default": true}]})");
  ASSERT_EQ(boot.store.entries.size(), 5U);
  const BootEntry& manager = boot.store.entries[0];
  EXPECT_EQ(manager.identifier, "{bootmgr}");
  EXPECT_EQ(manager.Value("locale"), "zh-CN");
  EXPECT_EQ(manager.Value("device"), "unknown");
  EXPECT_EQ(manager.Value("default"), boot.store.entries[4].identifier);
  EXPECT_EQ(manager.Values("displayorder"),
            (std::vector<std::string>{"{ntldr}", boot.store.entries[2].identifier,
                                      boot.store.entries[4].identifier}));
  const BootEntry& loader = boot.store.entries[2];
  EXPECT_EQ(boot.current, loader.identifier);
  EXPECT_EQ(loader.Value("description"), "New");
  EXPECT_EQ(loader.Value("locale"), "de-DE");
  EXPECT_EQ(loader.Value("osdevice"), "partition=D:");
  EXPECT_EQ(boot.store.entries[3].type, BootEntryType::kBootSector);
}

constexpr char kSystemPartition[] =
    R"("partitions": [{"size": "100 MB", "info": "System"}], "size": "1 GB"})";

TEST_F(ScenarioBootTest, IsOfAUefiServerWhoseSystemPartitionIsOnAGptDisk) {
  for (const std::string& boot :
       {std::string(), std::string(R"(, "boot": {"loaders": [{"description": "a"}]})")}) {
    Server server;
    Build(Read(WithDisks(std::string(R"(, {"gpt": true, )") + kSystemPartition, boot)), server);
    const std::vector<BootEntry>& entries = server.boot().store.entries;
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].Value("path"), "\\EFI\\Microsoft\\Boot\\bootmgfw.efi") << boot;
    EXPECT_EQ(entries[1].Value("path"), "\\Windows\\system32\\winload.efi") << boot;
  }
}

TEST_F(ScenarioBootTest, IsOfABiosServerOtherwise) {
  for (const std::string& disks : {std::string(), std::string(", {") + kSystemPartition}) {
    Server server;
    Build(Read(WithDisks(disks)), server);
    const std::vector<BootEntry>& entries = server.boot().store.entries;
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].Value("path"), "") << disks;
    EXPECT_EQ(entries[1].Value("path"), "\\Windows\\system32\\winload.exe") << disks;
  }
}

TEST_F(ScenarioBootTest, HasNoBcdbootOnWindowsServer2008) {
  const Scenario scenario = Read(WithDisks("", R"(, "windows": {"version": "6.0.6002"})"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(scenario.Tools(), (std::vector<std::string>{"diskpart", "bcdedit"}));
  const auto start = [&server](const std::string& name) {
    return server.processes().Start({.program = name,
                                     .command_line = name,
                                     .inherited = {},
                                     .output = nullptr,
                                     .error = nullptr});
  };
  EXPECT_NE(start("bcdedit"), nullptr);
  EXPECT_EQ(start("bcdboot"), nullptr);
}

TEST_F(ScenarioBootTest, IsTheServersOwn) {
  const Scenario scenario = Read(WithBoot(R"({"loaders": [{"description": "a"}]})"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(server.boot().store, scenario.boot->store);
}

TEST_F(ScenarioBootTest, IsInOrderWhenNothingIsTold) {
  const Scenario scenario = Read(WithDisks(""));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(server.boot().store.Find(kBootManager)->Value("default"), server.boot().current);
}

TEST_F(ScenarioBootTest, IsNoneOnWindowsServer2003) {
  const Scenario scenario = Read(WithDisks("", R"(, "windows": {"version": "5.2.3790"})"));
  Server server;
  Build(scenario, server);
  EXPECT_TRUE(server.boot().store.entries.empty());
  EXPECT_EQ(server.processes().Start({.program = "bcdedit",
                                      .command_line = "bcdedit",
                                      .inherited = {},
                                      .output = nullptr,
                                      .error = nullptr}),
            nullptr);
}

TEST_F(ScenarioBootTest, NamesWhatIsWrong) {
  EXPECT_EQ(ErrorOf(WithBoot("{}")), ": /boot: expected the key \"loaders\"");
  EXPECT_EQ(ErrorOf(WithBoot(R"({"loaders": [{"description": "a", "type": "linux"}]})")),
            ": /boot/loaders/0/type: expected \"loader\", \"legacy\" or \"sector\"");
  EXPECT_EQ(ErrorOf(WithBoot(
                R"({"loaders": [{"description": "a", "type": "sector", "locale": "en-US"}]})")),
            ": /boot/loaders/0/locale: expected no locale but of a \"loader\"");
  EXPECT_EQ(ErrorOf(WithBoot(R"({"loaders": [{"description": "a", "current": true},
                                             {"description": "b", "current": true}]})")),
            ": /boot/loaders/1/current: expected true for one loader only");
  EXPECT_EQ(ErrorOf(WithBoot(
                R"({"loaders": [{"description": "a", "type": "legacy", "current": true}]})")),
            ": /boot/loaders/0/current: expected true for a \"loader\" alone");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "windows": {"version": "5.2.3790"},
                                     "tools": [{"name": "bcdedit", "exit_code": 1}])")),
            ": /tools/0/name: expected a tool of this Windows: \"diskpart\"");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "windows": {"version": "6.0.6002"},
                                     "tools": [{"name": "bcdboot", "exit_code": 1}])")),
            ": /tools/0/name: expected a tool of this Windows: \"diskpart\" \"bcdedit\"");
  EXPECT_EQ(ErrorOf(WithDisks(std::string(", {") + kSystemPartition + ", {" + kSystemPartition)),
            ": /disks/2/partitions/0/info: expected \"System\" for one partition only");
  EXPECT_EQ(ErrorOf(WithBoot(R"({"loaders": [{"description": "a", "type": "legacy"},
                                             {"description": "b", "type": "legacy"}]})")),
            ": /boot/loaders/1: expected no more than one \"legacy\" loader");
  EXPECT_EQ(ErrorOf(WithBoot(R"({"loaders": []})", R"(, "windows": {"version": "5.2.3790"})")),
            ": /boot: expected no boot store on Windows 5.2");
}

}  // namespace
}  // namespace simulator
