#include <windows.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "common/files.h"
#include "simulator/model/files/files.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"

namespace common {
namespace {

constexpr char kPath[] = "C:\\a.txt";

TEST(CreateAndWriteFile, ClosesTheFile) {
  simulator::Server server;
  EXPECT_TRUE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.calls().ArgumentsOf("_close").size(), 1u);
  EXPECT_EQ(server.file_system().Delete(kPath), DWORD{ERROR_SUCCESS});
}

TEST(CreateAndWriteFile, OpensInModeWPlus) {
  simulator::Server server;
  EXPECT_TRUE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.calls().ArgumentsOf("_open"), std::vector<std::string>{"\"C:\\a.txt\", \"w+\""});
}

TEST(CreateAndWriteFile, ReportsAFileThatIsReadOnly) {
  simulator::Server server;
  server.files().Write(kPath, "old");
  server.files().SetAttributes(kPath, FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.console().Text(),
            "common::CreateAndWriteFile [C:\\a.txt], Error: Permission denied\r\n");
  EXPECT_EQ(server.files().Read(kPath), "old");
}

TEST(CreateAndWriteFile, ReportsWhyTheFileDoesNotOpen) {
  simulator::Server server;
  server.calls().FailNext("_open", EMFILE);
  EXPECT_FALSE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.console().Text(),
            "common::CreateAndWriteFile [C:\\a.txt], Error: Too many open files\r\n");
}

TEST(CreateAndWriteFile, IsFalseInSilenceWhenTheDiskFillsUp) {
  simulator::Server server;
  server.files().SetFreeSpace('C', 10'000);
  EXPECT_FALSE(CreateAndWriteFile(kPath, std::string(1'000'000, 'x')));
  EXPECT_EQ(server.console().Text(), "");
  EXPECT_EQ(server.file_system().Delete(kPath), DWORD{ERROR_SUCCESS});
}

TEST(CreateAndWriteFile, TakesForWrittenWhatTheRuntimeHasTaken) {
  simulator::Server server;
  server.calls().FailNext("_write", ENOSPC, 1, simulator::Lasting::kForGood);
  EXPECT_TRUE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.files().Read(kPath), "");
}

TEST(CreateAndWriteFile, DoesNotLookAtTheResultOfClosing) {
  simulator::Server server;
  server.calls().FailNext("_close", EIO);
  EXPECT_TRUE(CreateAndWriteFile(kPath, "text"));
  EXPECT_EQ(server.console().Text(), "");
}

TEST(CreateDir, ReportsWhatIsDenied) {
  simulator::Server server;
  server.calls().FailNext("_mkdir", EACCES);
  EXPECT_FALSE(CreateDir("C:\\a"));
  EXPECT_EQ(server.console().Text(), "common::CreateDir [C:\\a], Error: Permission denied\r\n");
}

TEST(Exists, AsksForExistenceOnly) {
  simulator::Server server;
  EXPECT_FALSE(Exists(kPath));
  EXPECT_EQ(server.calls().ArgumentsOf("_access"), std::vector<std::string>{"\"C:\\a.txt\", 0"});
}

TEST(Exists, IsFalseWhenTheTestFails) {
  simulator::Server server;
  server.files().Write(kPath, "x");
  server.calls().FailNext("_access", EACCES);
  EXPECT_FALSE(Exists(kPath));
}

}  // namespace
}  // namespace common
