#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "restore/bcd_boot.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/boot_tools_simulated.h"
#include "support/process.h"
#include "support/recording_logger.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

constexpr char kExport[] = "bcdedit /export \"C:\\vantoro_restore\\BCD_BAK\"";
constexpr char kImport[] = "bcdedit /import \"C:\\vantoro_restore\\BCD_BAK\"";
constexpr char kRebuild[] = "bcdboot c:\\Windows /s c: /l zh-CN";

// A listing of the boot manager's locale, its default, its display order and its entries' locales.
std::string Listing(const std::string& locale, const std::string& default_entry, const Lines& order,
                    const Lines& locales) {
  std::string text = "locale  " + locale + "\r\ndefault  " + default_entry + "\r\ndisplayorder  ";
  for (const std::string& entry : order) text += entry + "\r\n  ";
  text += "\r\ntoolsdisplayorder  {memdiag}\r\n";
  for (const std::string& entry : locales) text += "\r\nlocale  " + entry + "\r\n";
  return text;
}

class RestoreBCDBootTest : public testing::Test {
 protected:
  void List(const std::string& locale, const std::string& default_entry, const Lines& order,
            const Lines& locales) {
    tools_.List(Listing(locale, default_entry, order, locales));
  }

  // The command lines after the listing's.
  Lines Changes() {
    Lines started = server_.processes().Started();
    EXPECT_FALSE(started.empty());
    if (started.empty()) return started;
    EXPECT_EQ(started[0], "bcdedit");
    started.erase(started.begin());
    return started;
  }

  const tests::NewProcess process_;
  simulator::Server server_;
  tests::BootTools tools_{server_};
  tests::RecordingLogger logger_;
};

// What is to be done.

struct Decision {
  const char* name;
  std::string locale;
  Lines order;
  Lines locales;
  Lines changes;
};

std::ostream& operator<<(std::ostream& out, const Decision& test) { return out << test.name; }

class BootDecision : public RestoreBCDBootTest, public testing::WithParamInterface<Decision> {};

// The default is {current} throughout.
TEST_P(BootDecision, FollowsFromTheListing) {
  List(GetParam().locale, "{current}", GetParam().order, GetParam().locales);
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), GetParam().changes);
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Decisions, BootDecision,
    testing::Values(
        Decision{"NothingToDo", "en-US", {"{current}"}, {"en-US"}, {}},
        Decision{"NothingToDoInChinese", "zh-CN", {"{current}"}, {"zh-CN"}, {}},
        Decision{"NothingToDoForAnEnglishEntry", "zh-CN", {"{current}"}, {"en-US"}, {}},
        Decision{"ExtraLoader",
                 "en-US",
                 {"{current}", "{a}"},
                 {"en-US", "en-US"},
                 {kExport, "bcdedit /delete {a}"}},
        Decision{"ExtraLoadersOnBothSides",
                 "en-US",
                 {"{b}", "{current}", "{a}"},
                 {"en-US"},
                 {kExport, "bcdedit /delete {b}", "bcdedit /delete {a}"}},
        Decision{"Locale", "en-US", {"{current}"}, {"zh-CN"}, {kExport, kRebuild}},
        Decision{"LocaleInAnotherCase", "zh-cn", {"{current}"}, {"zh-CN"}, {kExport, kRebuild}},
        Decision{"LoadersFirstAndThenTheLocale",
                 "en-US",
                 {"{current}", "{a}"},
                 {"zh-CN", "en-US"},
                 {kExport, "bcdedit /delete {a}", kRebuild}},
        Decision{"TheDefaultTwice", "en-US", {"{current}", "{current}"}, {"en-US"}, {}},
        Decision{"AnotherLoaderTwice",
                 "en-US",
                 {"{current}", "{a}", "{a}"},
                 {"en-US"},
                 {kExport, "bcdedit /delete {a}", "bcdedit /delete {a}"}},
        Decision{"IdentifiersOfAnyForm",
                 "en-US",
                 {"{current}", "{a b} \"c\"", "{CURRENT}", "stray"},
                 {"en-US"},
                 {kExport, "bcdedit /delete {a b} \"c\"", "bcdedit /delete {CURRENT}",
                  "bcdedit /delete stray"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RestoreBCDBootTest, DeletesTenThousandLoaders) {
  Lines order = {"{current}"};
  for (int i = 0; i < 10'000; ++i) order.push_back("{" + std::to_string(i) + "}");
  List("en-US", "{current}", order, {});
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  const Lines changes = Changes();
  ASSERT_EQ(changes.size(), 10'001U);
  EXPECT_EQ(changes[1], "bcdedit /delete {0}");
  EXPECT_EQ(changes[10'000], "bcdedit /delete {9999}");
}

TEST_F(RestoreBCDBootTest, DoesNothingOnWindowsServer2003) {
  server_.system().major_version = 5;
  server_.system().minor_version = 2;
  server_.processes().Uninstall("bcdedit");
  server_.processes().Uninstall("bcdboot");
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  EXPECT_EQ(server_.processes().Started(), Lines{});
  EXPECT_EQ(logger_.Lines(), Lines{});
}

// Failures.

TEST_F(RestoreBCDBootTest, ChangesNothingWhenTheStoreCannotBeListed) {
  tools_.Fail("bcdedit", 1, "The boot configuration data store could not be opened.\r\n");
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), Lines{});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"Error: WinUtil::GetBCDBootInfo getbcdinfo Failed, code=1",
                   "Warn: RestoreBCDBoot Get BCD Boot Info Failed."}));
}

TEST_F(RestoreBCDBootTest, ChangesNothingWhenTheListingIsNotConsistent) {
  List("en-US", "{x}", {"{current}", "{a}"}, {"zh-CN"});
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), Lines{});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"Error: WinUtil::GetBCDBootInfo Default Not In Display Order.",
                   "Warn: RestoreBCDBoot Get BCD Boot Info Failed."}));
}

TEST_F(RestoreBCDBootTest, ChangesNothingWhenThePlatformIsNotKnown) {
  server_.calls().FailNext("GetVersionExA", ERROR_NOT_SUPPORTED);
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(server_.processes().Started(), Lines{});
  EXPECT_EQ(logger_.Lines().back(), "Warn: RestoreBCDBoot Get BCD Boot Info Failed.");
}

TEST_F(RestoreBCDBootTest, ChangesNothingWithoutABackup) {
  List("en-US", "{current}", {"{current}", "{a}"}, {"zh-CN"});
  tools_.Fail(kExport, 1);
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), Lines{kExport});
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"Error: WinUtil::ExportBCDBoot export C:\\vantoro_restore\\BCD_BAK Failed, "
                  "code=1"});
}

TEST_F(RestoreBCDBootTest, BringsTheBackupBackAtTheFirstDeletionThatFails) {
  List("en-US", "{current}", {"{a}", "{b}", "{current}", "{c}"}, {"zh-CN"});
  tools_.Fail("bcdedit /delete {b}", 1);
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), (Lines{kExport, "bcdedit /delete {a}", "bcdedit /delete {b}", kImport}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"Error: WinUtil::DeleteBCDBootOSLoader delete {b} Failed, code=1"});
}

TEST_F(RestoreBCDBootTest, EndsAlsoWhenTheBackupCannotBeBroughtBack) {
  List("en-US", "{current}", {"{current}", "{a}"}, {"zh-CN"});
  tools_.Fail("bcdedit /delete {a}", 1);
  tools_.Fail(kImport, 2);
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), (Lines{kExport, "bcdedit /delete {a}", kImport}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            (Lines{"Error: WinUtil::DeleteBCDBootOSLoader delete {a} Failed, code=1",
                   "Error: WinUtil::ImportBCDBoot import C:\\vantoro_restore\\BCD_BAK Failed, "
                   "code=2"}));
}

TEST_F(RestoreBCDBootTest, SucceedsThoughTheRebuildFails) {
  List("en-US", "{current}", {"{current}"}, {"zh-CN"});
  tools_.Fail(kRebuild, 1);
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), (Lines{kExport, kRebuild}));
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"Error: WinUtil::RemakeBCDBoot bcdboot c: zh-CN Failed, code=1"});
}

TEST_F(RestoreBCDBootTest, PutsTheBackupBesideTheProgram) {
  server_.system().program_path = "D:\\Tools and more\\restore.exe";
  List("en-US", "{current}", {"{current}", "{a}"}, {});
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(),
            (Lines{"bcdedit /export \"D:\\Tools and more\\BCD_BAK\"", "bcdedit /delete {a}"}));
}

TEST_F(RestoreBCDBootTest, PutsTheBackupIntoTheRootThatTheProgramLiesIn) {
  server_.system().program_path = "C:\\restore.exe";
  List("en-US", "{current}", {"{current}", "{a}"}, {});
  EXPECT_TRUE(RestoreBCDBoot(logger_));
  EXPECT_EQ(Changes(), (Lines{"bcdedit /export \"C:\\BCD_BAK\"", "bcdedit /delete {a}"}));
}

TEST_F(RestoreBCDBootTest, ChangesNothingWhereTheToolCannotWriteTheBackup) {
  server_.processes().Install("bcdedit", simulator::BcdeditProgram());
  simulator::BootStore& store = server_.boot().store;
  simulator::BootEntry stray = store.entries[1];
  stray.identifier = simulator::NumberedIdentifier(7);
  store.Find(simulator::kBootManager)
      ->Set("displayorder", {store.entries[1].identifier, stray.identifier});
  store.entries.push_back(stray);
  const simulator::BootStore before = store;
  server_.system().program_path = "Q:\\gone\\restore.exe";
  EXPECT_FALSE(RestoreBCDBoot(logger_));
  EXPECT_EQ(store, before);
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"Error: WinUtil::ExportBCDBoot export Q:\\gone\\BCD_BAK Failed, code=1"});
}

}  // namespace
}  // namespace restore
