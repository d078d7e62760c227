#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_boot.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

BootEntry Loader(const std::string& identifier, const std::string& locale) {
  return WindowsLoader({"C:\\Windows", "Windows " + identifier, locale}, identifier, "{r}");
}

// A manager in that locale whose default is {a}.
BootStore Store(const std::string& locale, const std::vector<std::string>& order,
                std::vector<BootEntry> loaders) {
  BootEntry manager{BootEntryType::kManager, std::string(kBootManager), {}};
  manager.Set("description", {"Manager"});
  manager.Set("locale", {locale});
  manager.Set("default", {"{a}"});
  manager.Set("displayorder", order);
  BootStore store;
  store.entries.push_back(std::move(manager));
  for (BootEntry& loader : loaders) store.entries.push_back(std::move(loader));
  return store;
}

BootChange Change(const BootStore& before, const BootStore& after) {
  BootChange change;
  change.before = before;
  change.after = after;
  return change;
}

std::string Conclusion(const BootChange& change) {
  const std::string report = BootReport(change);
  return report.substr(report.find("boot: "));
}

std::string Conclusion(const BootStore& before, const BootStore& after) {
  return Conclusion(Change(before, after));
}

const BootStore kInOrder = Store("zh-CN", {"{a}"}, {Loader("{a}", "zh-CN")});
const BootStore kTwoLoaders =
    Store("zh-CN", {"{a}", "{b}"}, {Loader("{a}", "zh-CN"), Loader("{b}", "en-US")});
const BootStore kWrongLocale = Store("en-US", {"{a}"}, {Loader("{a}", "zh-CN")});

TEST(BootReport, ListsTheEntriesOfBothStores) {
  const BootStore after =
      Store("zh-CN", {"{a}", "{d}"}, {Loader("{a}", "zh-CN"), Loader("{d}", "zh-CN")});
  BootStore before = kTwoLoaders;
  before.entries[0].Set("locale", {"en-US"});
  BootEntry sector{BootEntryType::kBootSector, "{c}", {}};
  sector.Set("description", {"Größe"});
  before.entries.push_back(std::move(sector));
  EXPECT_EQ(BootReport(Change(before, after)),
            "  boot entry   before            after\n"
            "  Manager      en-US             zh-CN\n"
            "  Windows {a}  default, zh-CN    default, zh-CN\n"
            "  Windows {b}  displayed, en-US  -\n"
            "  Größe        not displayed     -\n"
            "  Windows {d}  -                 displayed, zh-CN\n"
            "boot: not repaired: the boot manager still displays \"Windows {d}\"\n");
}

TEST(BootReport, TellsOfADefaultThatIsNotDisplayed) {
  const BootStore store = Store("en-US", {}, {Loader("{a}", "en-US")});
  EXPECT_EQ(BootReport(Change(store, store)),
            "  boot entry   before                         after\n"
            "  Manager      en-US                          en-US\n"
            "  Windows {a}  default, not displayed, en-US  default, not displayed, en-US\n"
            "boot: not repaired: the boot manager does not display the default entry\n");
}

TEST(BootReport, HasNoTableWithoutAStore) { EXPECT_EQ(BootReport({}), "boot: nothing to do\n"); }

TEST(BootConclusion, IsNothingToDoForAStoreInOrder) {
  EXPECT_EQ(Conclusion(kInOrder, kInOrder), "boot: nothing to do\n");
  const BootStore english_loader = Store("zh-CN", {"{a}"}, {Loader("{a}", "EN-us")});
  EXPECT_EQ(Conclusion(english_loader, english_loader), "boot: nothing to do\n");
}

TEST(BootConclusion, AsksForNoLocaleWhereTheDefaultHasNone) {
  const BootStore store = Store("en-US", {"{a}"}, {{BootEntryType::kLegacyLoader, "{a}", {}}});
  EXPECT_EQ(Conclusion(store, store), "boot: nothing to do\n");
}

TEST(BootConclusion, IsRepairedForAStoreThatIsInOrderNow) {
  EXPECT_EQ(Conclusion(kTwoLoaders, kInOrder), "boot: repaired\n");
  EXPECT_EQ(Conclusion(kWrongLocale, kInOrder), "boot: repaired\n");
}

TEST(BootConclusion, SaysWhatIsWrongWithAStoreThatIsNotRepaired) {
  EXPECT_EQ(Conclusion(kTwoLoaders, kTwoLoaders),
            "boot: not repaired: the boot manager still displays \"Windows {b}\"\n");
  EXPECT_EQ(Conclusion(kTwoLoaders, kWrongLocale),
            "boot: not repaired: the boot manager is in en-US, not in zh-CN\n");
  EXPECT_EQ(Conclusion(kWrongLocale, {{{BootEntryType::kLoader, "{a}", {}}}}),
            "boot: not repaired: there is no boot manager\n");
  EXPECT_EQ(Conclusion(kWrongLocale, Store("zh-CN", {"{b}"}, {Loader("{b}", "zh-CN")})),
            "boot: not repaired: the boot manager has no default entry\n");
  BootStore both = kTwoLoaders;
  both.entries[0].Set("locale", {"en-US"});
  EXPECT_EQ(Conclusion(both, both),
            "boot: not repaired: the boot manager still displays \"Windows {b}\"; the boot manager "
            "is in en-US, not in zh-CN\n");
}

TEST(BootConclusion, IsNotRepairedForAStoreThatWasInOrderAndChanged) {
  constexpr char kChanged[] = "boot: not repaired: the store was in order and has changed\n";
  BootStore changed = kInOrder;
  changed.entries[0].Set("timeout", {"5"});
  EXPECT_EQ(Conclusion(kInOrder, changed), kChanged);
  EXPECT_EQ(Conclusion(kInOrder, {}), kChanged);
}

TEST(BootConclusion, TellsOfALocaleThatWentToAnotherStore) {
  BootChange change = Change(kWrongLocale, kWrongLocale);
  change.system_partition = "the partition \"System Reserved\" (disk 0, partition 1)";
  change.unused_drive = "C:";
  EXPECT_EQ(
      Conclusion(change),
      "boot: not repaired: the boot manager is in en-US, not in zh-CN: \"bcdboot\" wrote a new "
      "store to C:, but the server boots from the partition \"System Reserved\" (disk 0, "
      "partition 1)\n"
      "  give that partition a letter, for example S:, run \"bcdboot C:\\Windows /s S: /l "
      "zh-CN\" and remove the letter\n");
}

TEST(BootConclusion, TellsOfALocaleThatNoToolSets) {
  BootChange change = Change(kWrongLocale, kWrongLocale);
  change.has_bcdboot = false;
  EXPECT_EQ(Conclusion(change),
            "boot: not repaired: the boot manager is in en-US, not in zh-CN: this Windows has no "
            "\"bcdboot\"\n"
            "  run \"bcdedit /set {bootmgr} locale zh-CN\"\n");
}

TEST(BootConclusion, MentionsAnotherStoreThatChangesNothing) {
  BootChange change = Change(kTwoLoaders, kInOrder);
  change.unused_drive = "C:";
  EXPECT_EQ(Conclusion(change),
            "boot: repaired\n  C: has a store that the server does not boot from\n");
}

TEST(BootOutcome, IsToldApartFromItsText) {
  EXPECT_TRUE(JudgeBoot(Change(kInOrder, kInOrder)).IsRight());
  EXPECT_TRUE(JudgeBoot(Change(kTwoLoaders, kInOrder)).IsRight());
  const BootOutcome outcome = JudgeBoot(Change(kTwoLoaders, kWrongLocale));
  EXPECT_FALSE(outcome.IsRight());
  EXPECT_EQ(outcome.wrong, std::vector<std::string>{"the boot manager is in en-US, not in zh-CN"});
}

class GatheredBoot : public tests::ScenarioTest {
 protected:
  // What the report says of a server with a store on C: that may not be the one in use.
  BootChange Gather(const std::string& first_partition, const std::string& disk_keys = "") {
    const Scenario scenario =
        Read(R"({"title": "t", "disks": [{"size": "127 GB", )" + disk_keys + R"("partitions": [)" +
             first_partition + R"({"size": "126 GB", "volume": {"letter": "C"}}]}]})");
    Server server;
    Build(scenario, server);
    server.boot().unused[server.files().VolumeAt('C').get()] = kInOrder;
    return GatherBoot(scenario, kWrongLocale, server);
  }
};

TEST_F(GatheredBoot, NamesThePartitionAndTheOtherStore) {
  const BootChange change =
      Gather(R"({"size": "1 MB", "info": "System", "volume": {"label": "System Reserved"}},)");
  EXPECT_EQ(change.before, kWrongLocale);
  EXPECT_EQ(change.after, HealthyBoot().store);
  EXPECT_EQ(change.system_partition, "the partition \"System Reserved\" (disk 0, partition 1)");
  EXPECT_EQ(change.unused_drive, "C:");
  EXPECT_TRUE(change.has_bcdboot);
}

TEST_F(GatheredBoot, NamesAPartitionWithoutALabel) {
  EXPECT_EQ(Gather(R"({"number": 3, "size": "1 MB", "info": "System"},)").system_partition,
            "the partition (disk 0, partition 3)");
  EXPECT_EQ(Gather(R"({"size": "1 MB", "info": "System"},)", R"("gpt": true, )").system_partition,
            "the EFI system partition (disk 0, partition 1)");
}

}  // namespace
}  // namespace simulator
