// The operations on the boot configuration store: the command line of each, and what it makes of
// the tool's exit code.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "common/win/win_util.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/process.h"
#include "support/recording_logger.h"

namespace common::win {
namespace {

using Lines = std::vector<std::string>;

// An operation, called.
struct Operation {
  const char* name;
  std::function<bool(WinUtil& tools)> run;
  std::string command_line;
  std::string failure;  // up to the code
};

std::ostream& operator<<(std::ostream& out, const Operation& test) { return out << test.name; }

class BootOperations : public testing::TestWithParam<Operation> {
 protected:
  BootOperations() { tools_.SetLogger(&logger_); }

  bool Run() { return GetParam().run(tools_); }

  const tests::NewProcess process_;
  simulator::Server server_;
  tests::BootTools boot_tools_{server_};
  tests::RecordingLogger logger_;
  WinUtil tools_{"", "", ""};
};

TEST_P(BootOperations, RunsItsCommandLine) {
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.processes().Started(), Lines{GetParam().command_line});
}

TEST_P(BootOperations, LogsTheCodeOfAToolThatFails) {
  boot_tools_.Fail(GetParam().command_line, 7, "a reason that nobody reads");
  EXPECT_FALSE(Run());
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{GetParam().failure + "7"});
  EXPECT_EQ(server_.processes().Started(), Lines{GetParam().command_line});
}

TEST_P(BootOperations, LogsANegativeCodeAsTheToolMeansIt) {
  boot_tools_.Fail(GetParam().command_line, 0xC0000135);
  EXPECT_FALSE(Run());
  EXPECT_EQ(logger_.LinesAboveDebug(), Lines{GetParam().failure + "-1073741515"});
}

TEST_P(BootOperations, LogsTheCodeOfAToolThatDoesNotStart) {
  server_.processes().Uninstall("bcdedit");
  server_.processes().Uninstall("bcdboot");
  EXPECT_FALSE(Run());
  ASSERT_FALSE(logger_.LinesAboveDebug().empty());
  EXPECT_EQ(logger_.LinesAboveDebug().back(), GetParam().failure + "2");
}

TEST_P(BootOperations, RunsNothingOnWindowsServer2003) {
  server_.system().major_version = 5;
  server_.system().minor_version = 2;
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.processes().Started(), Lines{});
  EXPECT_EQ(logger_.Lines(), Lines{});
}

TEST_P(BootOperations, RunsOnWindowsServer2008) {
  server_.system().major_version = 6;
  server_.system().minor_version = 0;
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.processes().Started().size(), 1U);
}

TEST_P(BootOperations, AsksForThePlatformOnce) {
  EXPECT_TRUE(Run());
  server_.system().major_version = 5;
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA").size(), 1U);
  EXPECT_EQ(server_.processes().Started().size(), 2U);
}

TEST_P(BootOperations, AsksForThePlatformAgainAfterAFailure) {
  server_.calls().FailNext("GetVersionExA", ERROR_NOT_SUPPORTED);
  EXPECT_FALSE(Run());
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::GetOSPlatform GetVersionExA Failed: "
                                   "Last Error: [50] The request is not supported.\r\n"});
  EXPECT_EQ(server_.processes().Started(), Lines{});
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA").size(), 2U);
  EXPECT_EQ(server_.processes().Started().size(), 1U);
}

TEST_P(BootOperations, ShareWhatTheyKnowWithOtherThreads) {
  std::thread([this] { EXPECT_TRUE(Run()); }).join();
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA").size(), 1U);
}

TEST_P(BootOperations, LeavesNoHandleOpen) {
  EXPECT_TRUE(Run());
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

const Operation kOperations[] = {
    {"Inspect",
     [](WinUtil& tools) {
       BCDBootInfo info;
       return tools.GetBCDBootInfo(info);
     },
     "bcdedit", "Error: WinUtil::GetBCDBootInfo getbcdinfo Failed, code="},
    {"Export", [](WinUtil& tools) { return tools.ExportBCDBoot("C:\\a b\\BCD_BAK"); },
     "bcdedit /export \"C:\\a b\\BCD_BAK\"",
     "Error: WinUtil::ExportBCDBoot export C:\\a b\\BCD_BAK Failed, code="},
    {"Import", [](WinUtil& tools) { return tools.ImportBCDBoot("C:\\a b\\BCD_BAK"); },
     "bcdedit /import \"C:\\a b\\BCD_BAK\"",
     "Error: WinUtil::ImportBCDBoot import C:\\a b\\BCD_BAK Failed, code="},
    {"Delete", [](WinUtil& tools) { return tools.DeleteBCDBootOSLoader("{a} \"b\" %s"); },
     "bcdedit /delete {a} \"b\" %s",
     "Error: WinUtil::DeleteBCDBootOSLoader delete {a} \"b\" %s Failed, code="},
    {"Remake", [](WinUtil& tools) { return tools.RemakeBCDBoot("zh-CN"); },
     "bcdboot c:\\Windows /s c: /l zh-CN",
     "Error: WinUtil::RemakeBCDBoot bcdboot c: zh-CN Failed, code="},
};

INSTANTIATE_TEST_SUITE_P(All, BootOperations, testing::ValuesIn(kOperations),
                         [](const auto& test) { return std::string(test.param.name); });

class BootConfiguration : public testing::Test {
 protected:
  BootConfiguration() { tools_.SetLogger(&logger_); }

  const tests::NewProcess process_;
  simulator::Server server_;
  tests::BootTools boot_tools_{server_};
  tests::RecordingLogger logger_;
  WinUtil tools_{"", "", ""};
};

TEST_F(BootConfiguration, RemembersThePlatformForEachOperationAlone) {
  for (const Operation& operation : kOperations) EXPECT_TRUE(operation.run(tools_));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA").size(), 5U);
}

TEST_F(BootConfiguration, IsWhatTheToolLists) {
  boot_tools_.List(
      "default  {b}\r\nlocale  en-US\r\ndisplayorder  {a}\r\n  {b}\r\n"
      "toolsdisplayorder  {memdiag}\r\nlocale  zh-CN\r\n");
  BCDBootInfo info;
  EXPECT_TRUE(tools_.GetBCDBootInfo(info));
  EXPECT_EQ(info.RawLocale, "en-US");
  EXPECT_EQ(info.Locale, "zh-CN");
  EXPECT_EQ(info.DefaultId, "{b}");
  EXPECT_EQ(info.DisplayOrder, (Lines{"{a}", "{b}"}));
}

TEST_F(BootConfiguration, IsEmptyOnWindowsServer2003) {
  server_.system().major_version = 5;
  BCDBootInfo info;
  EXPECT_TRUE(tools_.GetBCDBootInfo(info));
  EXPECT_EQ(info.DefaultId + info.Locale + info.RawLocale, "");
  EXPECT_TRUE(info.DisplayOrder.empty());
}

TEST_F(BootConfiguration, FailsWithWhatTheListingLacks) {
  boot_tools_.List("default  {b}\r\nlocale  en-US\r\n");
  BCDBootInfo info;
  EXPECT_FALSE(tools_.GetBCDBootInfo(info));
  EXPECT_EQ(info.DefaultId, "{b}");
  EXPECT_EQ(logger_.LinesAboveDebug(),
            Lines{"Error: WinUtil::GetBCDBootInfo Lack of Content [displayorder]."});
}

TEST_F(BootConfiguration, IsMadeAnewOnTheSystemDrive) {
  server_.system().system_directory = "E:\\Windows\\system32";
  EXPECT_TRUE(tools_.RemakeBCDBoot("de-DE"));
  EXPECT_EQ(server_.processes().Started(), Lines{"bcdboot e:\\Windows /s e: /l de-DE"});
}

TEST_F(BootConfiguration, NamesNoDriveThatIsNotKnown) {
  server_.calls().FailNext("GetSystemDirectoryA", ERROR_INVALID_FUNCTION);
  EXPECT_TRUE(tools_.RemakeBCDBoot("de-DE"));
  EXPECT_EQ(server_.processes().Started(), Lines{"bcdboot :\\Windows /s : /l de-DE"});
}

}  // namespace
}  // namespace common::win
