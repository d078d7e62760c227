// Names whose second byte is a backslash in the server's code page, through every stage: backup
// files, junctions, log folder, exported BCD store, scripts.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "rehearsal/report/report_descriptors.h"
#include "simulator/model/processes/processes.h"
#include "support/descriptors_simulated.h"
#include "support/whole_run_simulated.h"

namespace restore {
namespace {

using tests::WholeRun;

void MoveProgram(WholeRun& run, const std::string& folder) {
  run.server().system().program_path = folder + "\\vantoro_restore.exe";
  run.server().files().Write(folder + "\\vantoro_restore.exe", "");
  run.server().files().Write(folder + "\\vantoro_restore.exe.lnk", "");
}

std::string OnlyFileIn(WholeRun& run, const std::string& folder) {
  const std::vector<std::string> names = run.server().files().List(folder);
  return names.size() == 1 ? run.server().files().Read(folder + "\\" + names[0]).value_or("") : "";
}

TEST(ChineseServerRun, HasItsListsInItsCodePage) {
  WholeRun run("chinese_server");
  const auto acls = run.server().files().Read("C:\\vantoro_prepare\\aclbackup_c.dat");
  const auto junctions = run.server().files().Read("C:\\vantoro_prepare\\juncbackup_c.dat");
  ASSERT_TRUE(acls && junctions);
  // U+8AA0 and U+904B.
  EXPECT_NE(acls->find("\"C:\\\xD5\\\\\xDF\\\",16,"), std::string::npos);
  EXPECT_NE(acls->find("\"C:\\\xD5\\\\Gr??e.txt\",32,"), std::string::npos);
  EXPECT_NE(junctions->find("C:\\\xDF\\;D:\\\xD6\\\r\n"), std::string::npos);
  EXPECT_NE(junctions->find("C:\\Gr??e;C:\\\xD5\\\r\n"), std::string::npos);
}

TEST(ChineseServerRun, RestoresWhatEndsInABackslash) {
  WholeRun run("chinese_server");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(tests::SddlOf(run.server(), "C:\\誠\\黒"), "O:BAG:SYD:PAI(A;;FA;;;BA)");
  EXPECT_EQ(tests::SddlOf(run.server(), "C:\\誠\\運"), "O:BAG:SYD:PAI(A;OICI;FA;;;BA)");
  EXPECT_EQ(run.server().files().JunctionTarget("C:\\運"), "\\??\\D:\\謀");
  EXPECT_EQ(run.server().files().JunctionTarget("C:\\衆"), "\\??\\C:\\誠\\運");
  EXPECT_EQ(run.WrongAttributes(), std::vector<std::string>());
}

TEST(ChineseServerRun, LeavesWhatTheCodePageLacks) {
  WholeRun run("chinese_server");
  const std::string before = tests::SddlOf(run.server(), "C:\\誠\\Größe.txt");
  ASSERT_EQ(run.Run(), 0);
  const auto found = run.Descriptors().differences;
  ASSERT_EQ(found.size(), 2u);
  EXPECT_TRUE(std::all_of(found.begin(), found.end(),
                          [](const auto& difference) { return difference.is_unnamed; }));
  EXPECT_EQ(tests::SddlOf(run.server(), "C:\\誠\\Größe.txt"), before);
  EXPECT_FALSE(run.server().files().Exists("C:\\Größe"));
}

TEST(ChineseServerRun, LogsBelowAFolderWithSuchAName) {
  WholeRun run("chinese_server");
  MoveProgram(run, "C:\\誠\\黒金");
  ASSERT_EQ(run.Run(), 0);
  const std::string log = OnlyFileIn(run, "C:\\誠\\黒金\\Logs");
  EXPECT_NE(log.find("Restore BCD Done!"), std::string::npos);
  EXPECT_TRUE(run.server().files().Exists("C:\\誠\\黒金\\BCD_BAK"));
  EXPECT_FALSE(run.server().files().Exists("C:\\誠\\黒金\\vantoro_restore.exe.lnk"));
}

// docs/oddities.md, "last byte of a folder".
TEST(ChineseServerRun, TakesTheLastByteOfItsFolderForASeparator) {
  WholeRun run("chinese_server");
  MoveProgram(run, "C:\\豛");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_NE(OnlyFileIn(run, "C:\\豛Logs").find("Restore BCD Done!"), std::string::npos);
  EXPECT_FALSE(run.server().files().Exists("C:\\豛\\Logs"));
  EXPECT_TRUE(run.server().files().Exists("C:\\豛BCD_BAK"));
  EXPECT_FALSE(run.server().files().Exists("C:\\豛\\BCD_BAK"));
  EXPECT_TRUE(run.server().files().Exists("C:\\豛\\vantoro_restore.exe.lnk"));
}

TEST(ChineseServerRun, RunsScriptsInATemporaryFolderWithSuchAName) {
  WholeRun run("chinese_server");
  run.server().system().temp_directory = "C:\\誠\\豛";
  run.server().files().MakeDirectories("C:\\誠\\豛");
  ASSERT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.server().files().Exists("C:\\誠\\豛\\EnumDiskpartInfos.script.1"));
  const std::vector<std::string> started = run.server().processes().Started();
  EXPECT_NE(std::find(started.begin(), started.end(),
                      "diskpart /s C:\\誠\\豛\\EnumDiskpartInfos.script.1"),
            started.end());
  EXPECT_EQ(run.ClosingLines().at(1), "letters: 2 of 2 right\n");
  const std::string log = OnlyFileIn(run, "C:\\vantoro_restore\\Logs");
  EXPECT_NE(log.find("diskpart /s C:\\\xD5\\\\\xD8\\\\EnumDiskpartInfos.script.1"),
            std::string::npos);
}

TEST(JapaneseServerRun, RestoresWhatEndsInABackslash) {
  WholeRun run("japanese_server");
  const auto acls = run.server().files().Read("C:\\vantoro_prepare\\aclbackup_c.dat");
  ASSERT_TRUE(acls.has_value());
  EXPECT_NE(acls->find("\"C:\\\x97\\\x92\xE8\x95\\\\\x83\\\",33,"), std::string::npos);
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(run.server().files().JunctionTarget("C:\\表"), "\\??\\C:\\予定表\\申");
  EXPECT_EQ(tests::SddlOf(run.server(), "C:\\予定表\\申\\構成表.txt"), "O:BAG:SYD:PAI(A;;FA;;;BA)");
  EXPECT_EQ(run.WrongAttributes(), std::vector<std::string>());
}

TEST(GermanServerRun, HasItsListsInItsCodePage) {
  WholeRun run("german_server");
  const auto acls = run.server().files().Read("D:\\vantoro_prepare\\aclbackup_d.dat");
  ASSERT_TRUE(acls.has_value());
  EXPECT_NE(acls->find("\"D:\\B\xFCro\\Lohn\xFC"
                       "bersicht f\xFCr M\xFCller.xlsx\",32,"),
            std::string::npos);
  ASSERT_EQ(run.Run(), 0);
  EXPECT_EQ(tests::SddlOf(run.server(), "D:\\Büro\\Lohnübersicht für Müller.xlsx"),
            "O:BAG:SYD:PAI(A;;FA;;;BA)");
}

}  // namespace
}  // namespace restore
