#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/locations.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"

namespace common {
namespace {

TEST(GetCurrentDir, IsTheFolderOfTheProgram) {
  const std::vector<std::vector<std::string>> cases = {
      {"C:\\vantoro_restore\\vantoro_restore.exe", "C:\\vantoro_restore"},
      {"D:\\a b\\c.d\\e.exe", "D:\\a b\\c.d"},
      {"C:\\100%s \xE8\xBF\x81\xE7\xA7\xBB%n\\a.exe", "C:\\100%s \xE8\xBF\x81\xE7\xA7\xBB%n"},
      {"C:\\a.exe", "C:\\"},
  };
  for (const std::vector<std::string>& test : cases) {
    simulator::Server server;
    server.system().program_path = test[0];
    EXPECT_EQ(GetCurrentDir(), test[1]);
    EXPECT_EQ(server.console().Text(), "");
  }
}

TEST(GetCurrentDir, KeepsAPathOf255Characters) {
  simulator::Server server;
  const std::string folder = "C:\\" + std::string(120, 'a') + "\\" + std::string(120, 'b');
  server.system().program_path = folder + "\\1234567.ex";
  ASSERT_EQ(server.system().program_path.size(), 255u);
  EXPECT_EQ(GetCurrentDir(), folder);
}

TEST(GetCurrentDir, NamesAFolderFurtherUpForALongerPath) {
  simulator::Server server;
  const std::string upper = "C:\\" + std::string(120, 'a');
  server.system().program_path = upper + "\\" + std::string(140, 'b') + "\\vantoro_restore.exe";
  EXPECT_EQ(GetCurrentDir(), upper);
  EXPECT_EQ(server.console().Text(), "");
}

TEST(GetCurrentDir, KeepsAFolderWhoseBackslashIsThe255thCharacter) {
  simulator::Server server;
  const std::string folder = "C:\\" + std::string(251, 'a');
  server.system().program_path = folder + "\\x.exe";
  ASSERT_EQ(server.system().program_path[254], '\\');
  EXPECT_EQ(GetCurrentDir(), folder);
}

TEST(GetCurrentDir, LosesAFolderWhoseBackslashIsThe256thCharacter) {
  simulator::Server server;
  server.system().program_path = "C:\\" + std::string(252, 'a') + "\\x.exe";
  ASSERT_EQ(server.system().program_path[255], '\\');
  EXPECT_EQ(GetCurrentDir(), "C:\\");
}

TEST(GetCurrentDir, ReportsWhenNothingIsRemoved) {
  simulator::Server server;
  server.calls().FailNext("PathRemoveFileSpecA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(GetCurrentDir(), "");
  EXPECT_EQ(server.console().Text(),
            "common::GetCurrentDir [], LastError: [5] Access is denied.\r\n\r\n");
}

TEST(GetCurrentDir, IsEmptyWhenTheProgramsPathIsNotKnown) {
  simulator::Server server;
  server.calls().FailNext("GetModuleFileNameA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(GetCurrentDir(), "");
  EXPECT_EQ(server.console().Text(),
            "common::GetCurrentDir [], LastError: [5] Access is denied.\r\n\r\n");
}

std::string TemporaryFolderOf(size_t size) { return "C:\\" + std::string(size - 3, 't'); }

TEST(GetTempDir, IsTheUsersTemporaryFolderWithABackslash) {
  simulator::Server server;
  server.system().temp_directory = "D:\\temp dir %s";
  EXPECT_EQ(GetTempDir(), "D:\\temp dir %s\\");
  EXPECT_EQ(server.console().Text(), "");
}

TEST(GetTempDir, KeepsAFolderThatJustFits) {
  simulator::Server server;
  server.system().temp_directory = TemporaryFolderOf(258);
  EXPECT_EQ(GetTempDir(), TemporaryFolderOf(258) + "\\");
}

TEST(GetTempDir, IsEmptyInSilenceForAFolderThatDoesNotFit) {
  for (const size_t size : {259, 260, 300, 5000}) {
    simulator::Server server;
    server.system().temp_directory = TemporaryFolderOf(size);
    EXPECT_EQ(GetTempDir(), "") << size;
    EXPECT_EQ(server.console().Text(), "") << size;
  }
}

TEST(GetTempDir, ReportsWhenTheSystemCannotTell) {
  simulator::Server server;
  server.calls().FailNext("GetTempPathA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(GetTempDir(), "");
  EXPECT_EQ(server.console().Text(),
            "common::GetTempDir [], LastError: [5] Access is denied.\r\n\r\n");
}

TEST(GetSystemDriveLetter, IsTheLowerCaseLetterOfTheSystemFolder) {
  for (const std::string folder : {"D:\\WINDOWS\\system32", "d:\\Windows\\system32"}) {
    simulator::Server server;
    server.system().system_directory = folder;
    EXPECT_EQ(GetSystemDriveLetter(), 'd') << folder;
  }
}

TEST(GetSystemDriveLetter, IsZeroWhenTheSystemCannotTell) {
  simulator::Server server;
  server.calls().FailNext("GetSystemDirectoryA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(GetSystemDriveLetter(), 0);
  EXPECT_EQ(server.console().Text(), "");
}

TEST(GetSystemDriveLetter, IsZeroForAFolderThatDoesNotFit) {
  simulator::Server server;
  server.system().system_directory = "C:\\" + std::string(28, 'a');
  EXPECT_EQ(GetSystemDriveLetter(), 'c');
  server.system().system_directory += "a";
  EXPECT_EQ(GetSystemDriveLetter(), 0);
}

}  // namespace
}  // namespace common
