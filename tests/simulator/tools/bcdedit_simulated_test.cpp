#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/simulated_child.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using tests::RunChild;

constexpr char kDone[] = "The operation completed successfully.\r\n";
constexpr char kExportFailed[] = "The store export operation has failed.\r\n";
constexpr char kImportFailed[] = "The store import operation has failed.\r\n";
constexpr char kDeleteFailed[] =
    "An error occurred while attempting to delete the specified entry.\r\n";
constexpr char kNoFile[] = "The system cannot find the file specified.\r\n";
constexpr char kNoPath[] = "The system cannot find the path specified.\r\n";
constexpr char kHelp[] =
    "Run \"bcdedit /?\" for command line assistance.\r\nThe parameter is incorrect.\r\n";
constexpr char kBackup[] = "C:\\vantoro_restore\\BCD_BAK";

constexpr char kOther[] = "{aaaaaaaa-0000-0000-0000-00000000000f}";
constexpr char kNowhere[] = "{bbbbbbbb-0000-0000-0000-00000000000f}";

class Bcdedit : public testing::Test {
 protected:
  // Of a manager that displays the running Windows and, behind it, another loader.
  Bcdedit() {
    store_.entries.push_back({BootEntryType::kLoader, kOther, {{"description", {"Other"}}}});
    Manager().Set("displayorder", {current_, kOther});
  }

  BootEntry& Manager() { return *store_.Find("{bootmgr}"); }
  ToolResult Run(const std::vector<std::string>& arguments) {
    return RunBcdedit(arguments, server_);
  }

  void ExpectDone(const std::vector<std::string>& arguments) {
    const ToolResult result = Run(arguments);
    EXPECT_EQ(result.output, kDone);
    EXPECT_EQ(result.error_output, "");
    EXPECT_EQ(result.exit_code, 0u);
  }

  void ExpectFailure(const std::vector<std::string>& arguments, const std::string& text) {
    const BootStore before = store_;
    const ToolResult result = Run(arguments);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error_output, text);
    EXPECT_EQ(result.exit_code, 1u);
    EXPECT_EQ(store_, before);
  }

  Server server_;
  BootStore& store_ = server_.boot().store;
  const std::string current_ = server_.boot().current;
};

TEST(BcdeditOfABareServer, ListsTheManagerAndTheLoaderOfItsWindows) {
  Server server;
  const ToolResult result = RunBcdedit({}, server);
  EXPECT_EQ(result.output,
            "\r\n"
            "Windows Boot Manager\r\n"
            "--------------------\r\n"
            "identifier              {bootmgr}\r\n"
            "device                  partition=C:\r\n"
            "description             Windows Boot Manager\r\n"
            "locale                  en-US\r\n"
            "inherit                 {globalsettings}\r\n"
            "bootshutdowndisabled    Yes\r\n"
            "default                 {current}\r\n"
            "resumeobject            {b35d4dca-5b1e-11e9-a814-000d3a05463f}\r\n"
            "displayorder            {current}\r\n"
            "toolsdisplayorder       {memdiag}\r\n"
            "timeout                 30\r\n"
            "\r\n"
            "Windows Boot Loader\r\n"
            "-------------------\r\n"
            "identifier              {current}\r\n"
            "device                  partition=C:\r\n"
            "path                    \\Windows\\system32\\winload.exe\r\n"
            "description             Windows Server 2016\r\n"
            "locale                  en-US\r\n"
            "inherit                 {bootloadersettings}\r\n"
            "recoveryenabled         No\r\n"
            "allowedinmemorysettings 0x15000075\r\n"
            "osdevice                partition=C:\r\n"
            "systemroot              \\Windows\r\n"
            "resumeobject            {b35d4dca-5b1e-11e9-a814-000d3a05463f}\r\n"
            "nx                      OptOut\r\n"
            "bootstatuspolicy        IgnoreAllFailures\r\n"
            "ems                     Yes\r\n");
  EXPECT_EQ(result.error_output, "");
  EXPECT_EQ(result.exit_code, 0u);
}

class BcdeditListing : public Bcdedit {
 protected:
  // As small as a listing can be.
  BcdeditListing() {
    store_.entries = {{BootEntryType::kManager, "{bootmgr}", {}},
                      {BootEntryType::kLoader, current_, {{"nx", {"OptIn"}}}},
                      {BootEntryType::kLoader, kOther, {{"nx", {"OptOut"}}}}};
  }

  std::string List() { return Run({}).output; }

  static std::string Manager(const std::string& lines) {
    return "\r\nWindows Boot Manager\r\n--------------------\r\n"
           "identifier              {bootmgr}\r\n" +
           lines;
  }
  static std::string Loader(const std::string& identifier, const std::string& nx) {
    return "\r\nWindows Boot Loader\r\n-------------------\r\n"
           "identifier              " +
           identifier + "\r\nnx                      " + nx + "\r\n";
  }

  void Set(const std::string& element, const std::vector<std::string>& values) {
    store_.entries[0].Set(element, values);
  }
};

TEST_F(BcdeditListing, GoesByTheDisplayOrderNotByTheStore) {
  Set("displayorder", {kOther, current_});
  EXPECT_EQ(List(), Manager("displayorder            " + std::string(kOther) +
                            "\r\n                        {current}\r\n") +
                        Loader(kOther, "OptOut") + Loader("{current}", "OptIn"));
}

TEST_F(BcdeditListing, NamesADefaultThatIsNotTheCurrentEntry) {
  Set("default", {kOther});
  Set("displayorder", {kOther});
  EXPECT_EQ(List(), Manager("default                 {default}\r\n"
                            "displayorder            {default}\r\n") +
                        Loader("{default}", "OptOut"));
}

TEST_F(BcdeditListing, NamesTheCurrentEntryAlsoWhereItIsTheDefault) {
  Set("default", {current_});
  Set("displayorder", {current_});
  EXPECT_EQ(List(), Manager("default                 {current}\r\n"
                            "displayorder            {current}\r\n") +
                        Loader("{current}", "OptIn"));
}

TEST_F(BcdeditListing, HasNoBlockForAnIdentifierWithoutAnEntry) {
  Set("displayorder", {kNowhere, kOther});
  EXPECT_EQ(List(), Manager("displayorder            " + std::string(kNowhere) +
                            "\r\n                        " + kOther + "\r\n") +
                        Loader(kOther, "OptOut"));
}

TEST_F(BcdeditListing, HasNoBlockForADefaultThatIsNotDisplayed) {
  Set("default", {kOther});
  EXPECT_EQ(List(), Manager("default                 {default}\r\n"));
}

TEST_F(BcdeditListing, KeepsATextThatOnlyReadsLikeAnIdentifier) {
  Set("description", {current_});
  EXPECT_EQ(List(), Manager("description             " + current_ + "\r\n"));
}

TEST_F(BcdeditListing, GivesAnEmptyIdentifierNoName) {
  server_.boot().current = "";
  Set("resumeobject", {""});
  EXPECT_EQ(List(), Manager("resumeobject            \r\n"));
}

TEST_F(BcdeditListing, PassesOverAnElementWithoutValues) {
  store_.entries[0].elements = {{"displayorder", {}}, {"timeout", {"30"}}};
  EXPECT_EQ(List(), Manager("timeout                 30\r\n"));
}

TEST_F(BcdeditListing, TellsALongNameFromItsValueByOneBlank) {
  Set("hypervisorrootprocpernode", {"4"});
  EXPECT_EQ(List(), Manager("hypervisorrootprocpernode 4\r\n"));
}

TEST_F(BcdeditListing, HasNothingToShowWithoutAManager) {
  store_.entries.erase(store_.entries.begin());
  EXPECT_EQ(List(), "There are no matching objects or the store is empty.\r\n");
}

TEST_F(BcdeditListing, IsEnglishInALanguageThatItDoesNotKnow) {
  server_.system().language = 1036;
  EXPECT_EQ(List(), Manager(""));
}

TEST_F(BcdeditListing, UnderlinesAHeadingWithoutACaptureAsTheEnglishOneItIs) {
  server_.system().language = 1031;
  store_.entries[2].type = BootEntryType::kLegacyLoader;
  Set("displayorder", {kOther});
  EXPECT_NE(List().find("\r\n\r\nWindows Legacy OS Loader\r\n------------------------\r\n"
                        "Bezeichner              {aaaaaaaa-"),
            std::string::npos);
}

TEST_F(Bcdedit, ImportsWhatItHasExported) {
  const BootStore exported = store_;
  ExpectDone({"/export", kBackup});
  store_.entries.clear();
  ExpectDone({"/import", kBackup});
  EXPECT_EQ(store_, exported);
}

TEST_F(Bcdedit, ImportsNothingIntoTheStoreButTheFiles) {
  const BootStore exported = store_;
  ExpectDone({"/export", kBackup});
  store_.entries.push_back({BootEntryType::kLoader, kNowhere, {}});
  ExpectDone({"/import", kBackup});
  EXPECT_EQ(store_, exported);
}

TEST_F(Bcdedit, ExportsOverAFileThatIsThere) {
  server_.files().Write(kBackup, std::string(100000, 'x'));
  ExpectDone({"/export", kBackup});
  ExpectDone({"/import", kBackup});
}

TEST_F(Bcdedit, ExportLeavesTheStoreAsItIs) {
  const BootStore before = store_;
  ExpectDone({"/EXPORT", kBackup});
  EXPECT_EQ(store_, before);
}

TEST_F(Bcdedit, ExportNeedsAFileThatCanBeMade) {
  ExpectFailure({"/export", "C:\\missing\\BCD"}, std::string(kExportFailed) + kNoPath);
  ExpectFailure({"/export", "X:\\BCD"}, std::string(kExportFailed) + kNoPath);
  ExpectFailure({"/export", "C:\\Windows"}, std::string(kExportFailed) + "Access is denied.\r\n");
}

TEST_F(Bcdedit, ExportNeedsRoomForTheWholeStore) {
  server_.files().SetFreeSpace('C', 100);
  ExpectFailure({"/export", kBackup},
                std::string(kExportFailed) + "There is not enough space on the disk.\r\n");
}

TEST_F(Bcdedit, ImportNeedsAFile) {
  ExpectFailure({"/import", kBackup}, std::string(kImportFailed) + kNoFile);
  ExpectFailure({"/import", "C:\\missing\\BCD"}, std::string(kImportFailed) + kNoPath);
  ExpectFailure({"/import", "C:\\Windows"}, std::string(kImportFailed) + "Access is denied.\r\n");
}

TEST_F(Bcdedit, ImportNeedsAWholeStore) {
  ExpectDone({"/export", kBackup});
  std::string cut = server_.files().Read(kBackup).value_or("");
  ASSERT_FALSE(cut.empty());
  cut.pop_back();
  for (const std::string& bytes : {std::string(), std::string("no store"), cut}) {
    server_.files().Write(kBackup, bytes);
    ExpectFailure({"/import", kBackup}, std::string(kImportFailed) +
                                            "The configuration registry database is corrupt.\r\n");
  }
}

TEST_F(Bcdedit, DeletesAnEntryAndWhatRefersToIt) {
  store_.Find(current_)->Set("recoverysequence", {kOther});
  BootStore expected = store_;
  expected.entries.pop_back();
  expected.Find("{bootmgr}")->Set("displayorder", {current_});
  expected.Find(current_)->Set("recoverysequence", {});
  ExpectDone({"/delete", kOther});
  EXPECT_EQ(store_, expected);
}

TEST_F(Bcdedit, DeletesAnEntryThatIsNotDisplayed) {
  Manager().Set("displayorder", {current_});
  ExpectDone({"/delete", kOther});
  EXPECT_EQ(store_.Find(kOther), nullptr);
}

TEST_F(Bcdedit, TakesAGuidInAnyCase) {
  ExpectDone({"/Delete", "{AAAAAAAA-0000-0000-0000-00000000000F}"});
  EXPECT_EQ(store_.Find(kOther), nullptr);
}

TEST_F(Bcdedit, DeletesTheCurrentEntryByItsName) {
  ExpectDone({"/delete", "{Current}"});
  EXPECT_EQ(store_.Find(current_), nullptr);
  EXPECT_NE(store_.Find(kOther), nullptr);
}

TEST_F(Bcdedit, LeavesNoDefaultBehindWhenItDeletesIt) {
  Manager().Set("default", {kOther});
  ExpectDone({"/delete", "{default}"});
  EXPECT_EQ(store_.Find(kOther), nullptr);
  EXPECT_EQ(Manager().Values("default"), std::vector<std::string>());
}

TEST_F(Bcdedit, DeletesNoEntryOfAWellKnownName) {
  store_.entries.push_back({BootEntryType::kLegacyLoader, "{ntldr}", {}});
  Manager().Set("default", {"{ntldr}"});
  for (const char* const name : {"{bootmgr}", "{ntldr}", "{NTLDR}", "{default}"}) {
    ExpectFailure({"/delete", name}, std::string(kDeleteFailed) + "Access is denied.\r\n");
  }
}

TEST_F(Bcdedit, DeletesNoEntryThatIsNotThere) {
  server_.boot().current = "";
  Manager().Set("default", {});
  for (const char* const name : {kNowhere, "{memdiag}", "{current}", "{default}"}) {
    ExpectFailure({"/delete", name}, std::string(kDeleteFailed) + kNoFile);
  }
}

TEST_F(Bcdedit, FindsNoDefaultWithoutAManager) {
  store_.entries.erase(store_.entries.begin());
  ExpectFailure({"/delete", "{default}"}, std::string(kDeleteFailed) + kNoFile);
}

struct Misuse {
  const char* name;
  std::vector<std::string> arguments;
  const char* line;
};

std::ostream& operator<<(std::ostream& out, const Misuse& test) { return out << test.name; }

class BcdeditMisuse : public Bcdedit, public testing::WithParamInterface<Misuse> {};

TEST_P(BcdeditMisuse, IsAnsweredWithAHintAndCode1) {
  ExpectFailure(GetParam().arguments, std::string(GetParam().line) + "\r\n" + kHelp);
}

constexpr char kBadDelete[] = "The delete command specified is not valid.";

INSTANTIATE_TEST_SUITE_P(
    Arguments, BcdeditMisuse,
    testing::Values(
        Misuse{"UnknownSwitch", {"/bogus"}, "Invalid command line switch: /bogus"},
        Misuse{"EmptySwitch", {""}, "Invalid command line switch: "},
        Misuse{"SwitchWithoutASlash", {"delete", kOther}, "Invalid command line switch: delete"},
        Misuse{"ExportWithoutAFile", {"/export"}, "The export command specified is not valid."},
        Misuse{"ExportToTwoFiles",
               {"/export", "C:\\a", "b"},
               "The export command specified is not valid."},
        Misuse{"ImportWithoutAFile", {"/IMPORT"}, "The import command specified is not valid."},
        Misuse{"ImportOfTwoFiles",
               {"/import", "C:\\a", "b"},
               "The import command specified is not valid."},
        Misuse{"DeleteWithoutAnIdentifier", {"/delete"}, kBadDelete},
        Misuse{"DeleteOfEmptyText", {"/delete", ""}, kBadDelete},
        Misuse{"DeleteOfEmptyBraces", {"/delete", "{}"}, kBadDelete},
        Misuse{"DeleteOfABrace", {"/delete", "{"}, kBadDelete},
        Misuse{"DeleteWithoutBraces", {"/delete", "current"}, kBadDelete},
        Misuse{"DeleteOfAnUnknownName", {"/delete", "{unheard-of}"}, kBadDelete},
        Misuse{"DeleteOfAShortIdentifier",
               {"/delete", "{aaaaaaaa-0000-0000-0000-00000000000}"},
               kBadDelete},
        Misuse{"DeleteWithoutTheLastBrace",
               {"/delete", "{aaaaaaaa-0000-0000-0000-00000000000f"},
               kBadDelete},
        Misuse{"DeleteOfNoHexadecimalDigit",
               {"/delete", "{aaaaaaaa-0000-0000-0000-00000000000g}"},
               kBadDelete},
        Misuse{"DeleteOfABareIdentifier",
               {"/delete", "aaaaaaaa-0000-0000-0000-00000000000f"},
               kBadDelete},
        Misuse{"DeleteOfNoText", {"/delete", "\xFF\xFE"}, kBadDelete},
        Misuse{"DeleteOfTwo", {"/delete", kOther, kOther}, kBadDelete}),
    tests::NamedAsPrinted());

TEST_F(Bcdedit, RunsAsAProgramOverQuotedPaths) {
  server_.processes().Install("bcdedit", BcdeditProgram());
  server_.files().MakeDirectories("C:\\a b");
  EXPECT_EQ(RunChild("bcdedit").output, Run({}).output);
  const ToolResult result = RunChild("BCDEDIT.EXE /export \"C:\\a b\\BCD\"");
  EXPECT_EQ(result.output, kDone);
  EXPECT_EQ(result.exit_code, 0u);
  EXPECT_TRUE(server_.files().Exists("C:\\a b\\BCD"));
}

TEST_F(Bcdedit, SaysAsAProgramWhatFailedOnItsStandardError) {
  server_.processes().Install("bcdedit", BcdeditProgram());
  const ToolResult result = RunChild("bcdedit /delete {bootmgr}");
  EXPECT_EQ(result.output, std::string(kDeleteFailed) + "Access is denied.\r\n");
  EXPECT_EQ(result.exit_code, 1u);
}

TEST_F(Bcdedit, WritesNothingToTheStreamThatItHasNothingFor) {
  server_.processes().Install("bcdedit", BcdeditProgram());
  constexpr size_t kTextAndEnd = 2;
  RunChild("bcdedit /delete {bootmgr}");
  EXPECT_EQ(server_.calls().ArgumentsOf("ReadFile").size(), kTextAndEnd);
  RunChild(std::string("bcdedit /delete ") + kOther);
  EXPECT_EQ(server_.calls().ArgumentsOf("ReadFile").size(), 2 * kTextAndEnd);
}

}  // namespace
}  // namespace simulator
