// What may meet the program on a server, under Wine and in a rehearsal.
#include <filesystem>
#include <ostream>
#include <string>

#include "simulator/model/desktop/shutdown.h"
#include "wine/tests/wine_case.h"

namespace tests {
namespace {

namespace fs = std::filesystem;
using simulator::Scenario;

constexpr LANGID kChinese = 2052;

// A small server on which all there is to do succeeds.
Scenario Small() { return Shipped("letterless_disk"); }

class ServerUnderWine : public WineCase {};

TEST_F(ServerUnderWine, IsRestoredInChinese) {
  Scenario scenario = Shipped("default");
  scenario.language = kChinese;
  RunBoth(scenario);
  ExpectAllTheSame();
  ASSERT_EQ(watched_.boxes.size(), 1U);
  const simulator::WatchedBox& box = watched_.boxes.front();
  EXPECT_EQ(box.caption, "Vantoro迁云还原检查工具");
  EXPECT_EQ(box.text, "迁云还原检测已完成，需要重启系统，您要重启系统吗？");
  ASSERT_TRUE(box.dialog.has_value());
  EXPECT_TRUE(box.dialog->title.starts_with("Vantoro迁云还原检查工具 1.1.0.1 - Finished 100.00%"))
      << box.dialog->title;
  EXPECT_EQ(box.dialog->cancel, "取消");
  EXPECT_EQ(box.dialog->note, "注意：正在进行迁云后系统还原检测工作，请不要关闭此程序。");
}

TEST_F(ServerUnderWine, IsRestoredFromTheStartUpFolderAndBothLinksGo) {
  RunBothByLink(Small());
  ExpectAllTheSame();
  EXPECT_FALSE(fs::exists(server_->CommonStartupLink()));
  EXPECT_FALSE(fs::exists(server_->ProgramLink()));
}

TEST_F(ServerUnderWine, IsNotRestartedWhenTheUserDeclines) {
  RehearsalOptions options;
  options.restarts = false;
  RunBoth(Small(), options);
  ExpectAllTheSame();
  EXPECT_TRUE(watched_.shutdowns.empty());
}

TEST_F(ServerUnderWine, IsRestartedWhenTheUserAccepts) {
  RunBoth(Small());
  ExpectAllTheSame();
  ASSERT_EQ(watched_.shutdowns.size(), 1U);
  const simulator::ShutdownRequest& asked = watched_.shutdowns.front();
  EXPECT_EQ(asked.message, "Windows System Will Restart In 30 Seconds!");
  EXPECT_EQ(asked.seconds, 30U);
  EXPECT_FALSE(asked.force_apps_closed);
  EXPECT_TRUE(asked.reboot);
}

// Nothing was prepared, so nothing is missing either.
TEST_F(ServerUnderWine, IsLeftAloneWithoutAnyPrepareFolder) {
  Scenario scenario = Small();
  for (simulator::ScenarioDisk& disk : scenario.disks) {
    for (simulator::ScenarioPartition& partition : disk.partitions) {
      if (partition.volume) partition.volume->lost.prepare_folder = true;
    }
  }
  RunBoth(scenario);
  ExpectAllTheSame();
  EXPECT_NE(server_->Log().find("Prepare Dir [c:\\vantoro_prepare\\] Not Exsit, Skip..."),
            std::string::npos);
}

// The worker may be further on than the rehearsal's when the process ends.
TEST_F(ServerUnderWine, CanBeCancelledWhileAToolRuns) {
  RehearsalOptions options;
  options.cancelled_in = "diskpart";
  RunBoth(Shipped("default"), options);
  ExpectSameServers();
  EXPECT_EQ(watched_.exit_code, 0);
  EXPECT_EQ(watched_.processes, std::vector<std::string>());
  EXPECT_TRUE(watched_.shutdowns.empty());
  ASSERT_EQ(watched_.boxes.size(), 1U);
  EXPECT_EQ(watched_.boxes.front().caption, "Vantoro Restore Tool");
  EXPECT_EQ(watched_.boxes.front().text, "Vantoro Restore Is Running, Are You Sure To Cancel?");
  ASSERT_TRUE(watched_.boxes.front().dialog.has_value());
  EXPECT_TRUE(watched_.boxes.front().dialog->title.starts_with(
      "Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: "))
      << watched_.boxes.front().dialog->title;
  EXPECT_EQ(watched_.boxes.front().dialog->position, 0);
  EXPECT_EQ(watched_.boxes.front().buttons.size(), 2U);

  const std::string started =
      "diskpart /s C:\\Users\\Administrator\\AppData\\Local\\Temp\\"
      "EnumDiskpartInfos.script.1\r\n";
  const std::string rehearsed = Masked(rehearsed_.log);
  const std::string wine = Masked(server_->Log());
  const size_t end = rehearsed.find(started) + started.size();
  ASSERT_GT(end, started.size());
  EXPECT_EQ(wine.substr(0, end), rehearsed.substr(0, end));
  EXPECT_EQ(wine.find("Restore Disks Done!"), std::string::npos);
  EXPECT_EQ(server_->State().calls.at("diskpart"), 1);
}

TEST_F(ServerUnderWine, IsRestoredThoughTheLogFolderCannotBeMade) {
  RehearsalOptions options;
  options.logs_are_blocked = true;
  RunBoth(Small(), options);
  ExpectAllTheSame();
  EXPECT_EQ(server_->Log(), "");
  EXPECT_TRUE(fs::is_regular_file(server_->ProgramFolder() / "Logs"));
}

// docs/oddities.md, "last byte of a folder". U+8C5B is D8 5C.
TEST_F(ServerUnderWine, LogsBesideAFolderWhoseLastByteIsABackslash) {
  RehearsalOptions options;
  options.program_folder = "C:\\豛";
  options.log_folder = "C:\\豛Logs";
  RunBoth(Shipped("chinese_server"), options);
  ExpectAllTheSame();
  EXPECT_FALSE(server_->Log().empty());
  EXPECT_FALSE(fs::exists(server_->ProgramFolder() / "Logs"));
  EXPECT_TRUE(fs::exists(server_->prefix().OnSystemVolume("豛BCD_BAK")));
  EXPECT_TRUE(fs::exists(server_->ProgramLink()));
}

TEST_F(ServerUnderWine, RunsScriptsInATemporaryFolderWhoseLastByteIsABackslash) {
  RehearsalOptions options;
  options.temp_folder = "C:\\誠\\豛";
  RunBoth(Shipped("chinese_server"), options);
  ExpectAllTheSame();
  EXPECT_NE(server_->Log().find("diskpart /s C:\\\xD5\\\\\xD8\\\\EnumDiskpartInfos.script.1"),
            std::string::npos);
}

struct FolderCase {
  const char* name;
  const char* path;

  friend void PrintTo(const FolderCase& folder, std::ostream* out) { *out << folder.path; }
};

class ProgramFolder : public WineCase, public testing::WithParamInterface<FolderCase> {};

TEST_P(ProgramFolder, MayHaveAnyName) {
  Scenario scenario = Small();
  // Its letters are in the code page of a Chinese Windows.
  scenario.language = kChinese;
  RehearsalOptions options;
  options.program_folder = GetParam().path;
  RunBoth(scenario, options);
  ExpectAllTheSame();
  EXPECT_FALSE(server_->Log().empty());
  EXPECT_FALSE(fs::exists(server_->ProgramLink()));
}

INSTANTIATE_TEST_SUITE_P(Names, ProgramFolder,
                         testing::Values(FolderCase{"Blanks", "C:\\Program Files\\Vantoro Restore"},
                                         FolderCase{"PercentSigns", "C:\\100% %s restore"},
                                         FolderCase{"Chinese", "C:\\还原工具"},
                                         FolderCase{"BackslashAsSecondByte", "C:\\誠\\運輸"}),
                         [](const auto& test) { return std::string(test.param.name); });

struct Version {
  DWORD major;
  DWORD minor;
  DWORD build;

  friend void PrintTo(const Version& version, std::ostream* out) {
    *out << version.major << "." << version.minor << "." << version.build;
  }
};

class WindowsVersion : public WineCase, public testing::WithParamInterface<Version> {};

TEST_P(WindowsVersion, IsWhatWineReportsAndTheServerIsRestored) {
  Scenario scenario = Shipped(GetParam().major == 5 ? "windows_server_2003" : "default");
  scenario.major_version = GetParam().major;
  scenario.minor_version = GetParam().minor;
  scenario.build = GetParam().build;
  RunBoth(scenario);
  ExpectAllTheSame();
}

INSTANTIATE_TEST_SUITE_P(FromServer2003On, WindowsVersion,
                         testing::Values(Version{5, 2, 3790}, Version{6, 0, 6002},
                                         Version{6, 1, 7601}, Version{6, 2, 9200},
                                         Version{6, 3, 9600}, Version{10, 0, 14393}),
                         [](const auto& test) {
                           return "Windows" + std::to_string(test.param.major) + "_" +
                                  std::to_string(test.param.minor);
                         });

}  // namespace
}  // namespace tests
