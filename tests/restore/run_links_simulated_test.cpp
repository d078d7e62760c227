// The start-up links at the end of a run.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "restore/run.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

constexpr char kStartup[] = "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp";
constexpr char kLink[] =
    "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp\\vantoro_restore.exe.lnk";
constexpr char kRealLink[] = "C:\\vantoro_restore\\vantoro_restore.exe.lnk";
constexpr char kTotals[] = "InfoOut: Vantoro Restore Finish, Total 1 disks, Finish 1, Error 0!";

// Both lines name the link in the start-up folder.
const std::string kLinkFailed = "InfoOut: Delete Startup Link [" + std::string(kLink) + "] Failed.";
const std::string kRealLinkFailed =
    "InfoOut: Delete Real Startup Link [" + std::string(kLink) + "] Failed.";

class StartupLinks : public testing::Test {
 protected:
  enum class State { kAbsent, kPresent, kReadOnly, kFolder };

  void Put(const std::string& path, State state) {
    if (state == State::kFolder) server_.files().MakeDirectories(path);
    if (state == State::kPresent || state == State::kReadOnly) server_.files().Write(path, "link");
    if (state == State::kReadOnly) server_.files().SetAttributes(path, FILE_ATTRIBUTE_READONLY);
  }

  // Runs and gives the lines between the last volume and the totals.
  Lines Run() {
    EXPECT_EQ(RestoreWorker(logger_, nullptr, "e:\\", ""), 0);
    Lines lines = logger_.Lines();
    EXPECT_EQ(lines.back(), kTotals);
    lines.pop_back();
    const std::string end = "Info: Prepare Dir [e:\\vantoro_prepare\\] Not Exsit, Skip...";
    while (!lines.empty() && lines.front() != end) lines.erase(lines.begin());
    EXPECT_FALSE(lines.empty());
    lines.erase(lines.begin());
    return lines;
  }

  bool Exists(const std::string& path) const { return server_.files().Exists(path); }

  mutable simulator::Server server_;
  tests::RecordingLogger logger_;
};

TEST_F(StartupLinks, AreLoggedInNoWayWhenThereAreNone) {
  EXPECT_EQ(Run(), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("DeleteFileA"), Lines{});
}

TEST_F(StartupLinks, AreBothDeleted) {
  Put(kLink, State::kPresent);
  Put(kRealLink, State::kPresent);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_FALSE(Exists(kLink));
  EXPECT_FALSE(Exists(kRealLink));
}

TEST_F(StartupLinks, AreLookedForInBothFolders) {
  Run();
  const Lines asked = server_.calls().ArgumentsOf("PathFileExistsA");
  EXPECT_EQ(asked, (Lines{"\"" + std::string(kLink) + "\"", "\"" + std::string(kRealLink) + "\""}));
  EXPECT_EQ(server_.calls().ArgumentsOf("SHGetSpecialFolderPathA"), Lines{"null, 24, 1"});
}

TEST_F(StartupLinks, OfTheStartUpFolderAloneIsDeleted) {
  Put(kLink, State::kPresent);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_FALSE(Exists(kLink));
}

TEST_F(StartupLinks, OfTheProgramAloneIsDeleted) {
  Put(kRealLink, State::kPresent);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_FALSE(Exists(kRealLink));
}

TEST_F(StartupLinks, OfTheStartUpFolderThatStaysIsReported) {
  Put(kLink, State::kReadOnly);
  Put(kRealLink, State::kPresent);
  EXPECT_EQ(Run(), Lines{kLinkFailed});
  EXPECT_TRUE(Exists(kLink));
  EXPECT_FALSE(Exists(kRealLink));
}

TEST_F(StartupLinks, OfTheProgramThatStaysIsReportedUnderTheOthersName) {
  Put(kLink, State::kPresent);
  Put(kRealLink, State::kReadOnly);
  EXPECT_EQ(Run(), Lines{kRealLinkFailed});
  EXPECT_FALSE(Exists(kLink));
  EXPECT_TRUE(Exists(kRealLink));
}

TEST_F(StartupLinks, OfTheProgramThatStaysAloneIsReportedUnderTheOthersName) {
  Put(kRealLink, State::kReadOnly);
  EXPECT_EQ(Run(), Lines{kRealLinkFailed});
}

TEST_F(StartupLinks, ThatBothStayAreBothReported) {
  Put(kLink, State::kReadOnly);
  Put(kRealLink, State::kReadOnly);
  EXPECT_EQ(Run(), (Lines{kLinkFailed, kRealLinkFailed}));
}

TEST_F(StartupLinks, ThatAreFoldersStay) {
  Put(kLink, State::kFolder);
  Put(kRealLink, State::kFolder);
  EXPECT_EQ(Run(), (Lines{kLinkFailed, kRealLinkFailed}));
  EXPECT_TRUE(Exists(kLink));
}

TEST_F(StartupLinks, BothStayWithoutTheStartUpFolder) {
  Put(kLink, State::kPresent);
  Put(kRealLink, State::kPresent);
  server_.calls().FailNext("SHGetSpecialFolderPathA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_TRUE(Exists(kLink));
  EXPECT_TRUE(Exists(kRealLink));
  EXPECT_EQ(server_.calls().ArgumentsOf("PathFileExistsA"), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("GetModuleFileNameA"), Lines{});
}

TEST_F(StartupLinks, OfTheProgramStaysWhenItsFolderIsUnknown) {
  Put(kLink, State::kPresent);
  Put(kRealLink, State::kPresent);
  server_.calls().FailNext("PathRemoveFileSpecA", ERROR_GEN_FAILURE);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_FALSE(Exists(kLink));
  EXPECT_TRUE(Exists(kRealLink));
}

TEST_F(StartupLinks, OfOneFolderForBothIsDeletedOnce) {
  server_.system().common_startup_directory = "C:\\vantoro_restore";
  Put(kRealLink, State::kPresent);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("DeleteFileA").size(), 1U);
}

TEST_F(StartupLinks, OfAStartUpFolderThatIsARootAreJoinedByOneBackslash) {
  server_.system().common_startup_directory = "C:\\";
  Put("C:\\vantoro_restore.exe.lnk", State::kReadOnly);
  EXPECT_EQ(Run(), Lines{"InfoOut: Delete Startup Link [C:\\vantoro_restore.exe.lnk] Failed."});
}

TEST_F(StartupLinks, ThatCannotBeSeenStay) {
  Put(kLink, State::kPresent);
  server_.calls().FailNext("PathFileExistsA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_TRUE(Exists(kLink));
}

TEST_F(StartupLinks, MakeTheStartUpFolderWhenItIsMissing) {
  server_.files().Remove(kStartup);
  EXPECT_EQ(Run(), Lines{});
  EXPECT_TRUE(Exists(kStartup));
}

}  // namespace
}  // namespace restore
