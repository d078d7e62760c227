#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "rehearsal/report/report_boot.h"
#include "simulator/model/boot/boot_store.h"

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

std::string Conclusion(const BootStore& before, const BootStore& after) {
  const std::string report = BootReport(before, after);
  return report.substr(report.rfind("boot: "));
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
  EXPECT_EQ(BootReport(before, after),
            "  boot entry   before            after\n"
            "  Manager      en-US             zh-CN\n"
            "  Windows {a}  default, zh-CN    default, zh-CN\n"
            "  Windows {b}  displayed, en-US  -\n"
            "  Größe        not displayed     -\n"
            "  Windows {d}  -                 displayed, zh-CN\n"
            "boot: not repaired\n");
}

TEST(BootReport, TellsOfADefaultThatIsNotDisplayed) {
  const BootStore store = Store("en-US", {}, {Loader("{a}", "en-US")});
  EXPECT_EQ(BootReport(store, store),
            "  boot entry   before                         after\n"
            "  Manager      en-US                          en-US\n"
            "  Windows {a}  default, not displayed, en-US  default, not displayed, en-US\n"
            "boot: not repaired\n");
}

TEST(BootReport, HasNoTableWithoutAStore) {
  EXPECT_EQ(BootReport({}, {}), "boot: nothing to do\n");
}

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

TEST(BootConclusion, IsNotRepairedForAStoreThatIsNot) {
  EXPECT_EQ(Conclusion(kTwoLoaders, kTwoLoaders), "boot: not repaired\n");
  EXPECT_EQ(Conclusion(kTwoLoaders, kWrongLocale), "boot: not repaired\n");
  EXPECT_EQ(Conclusion(kWrongLocale, {{{BootEntryType::kLoader, "{a}", {}}}}),
            "boot: not repaired\n");
}

TEST(BootConclusion, IsNotRepairedForAStoreThatWasInOrderAndChanged) {
  BootStore changed = kInOrder;
  changed.entries[0].Set("timeout", {"5"});
  EXPECT_EQ(Conclusion(kInOrder, changed), "boot: not repaired\n");
  EXPECT_EQ(Conclusion(kInOrder, {}), "boot: not repaired\n");
}

}  // namespace
}  // namespace simulator
