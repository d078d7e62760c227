#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "restore/backup_info.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"

namespace restore {
namespace {

using Lines = std::vector<std::string>;

constexpr char kPath[] = "C:\\vantoro_prepare\\backup_info";
constexpr char kOpenFailed[] = "Error: ReadBackupInfoLine Backup Info Open Failed.";

class SimulatedBackupInfo : public testing::Test {
 protected:
  std::vector<std::string> CallNames() const {
    std::vector<std::string> names;
    for (const simulator::TracedCall& call : server_.calls().Trace()) {
      names.push_back(call.name + "(" + call.arguments + ")");
    }
    return names;
  }

  mutable simulator::Server server_;
  tests::RecordingLogger logger_;
  std::string line_ = "before";
};

TEST_F(SimulatedBackupInfo, AsksForThePathBelowTheLetter) {
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'd', 0, line_));
  EXPECT_EQ(CallNames(), (Lines{"PathFileExistsA(\"d:\\vantoro_prepare\\backup_info\")"}));
}

TEST_F(SimulatedBackupInfo, TakesAnExistenceTestThatFailsForAMissingFile) {
  server_.files().Write(kPath, "E\r\n");
  server_.calls().FailNext("PathFileExistsA", ERROR_ACCESS_DENIED);
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(line_, "before");
  EXPECT_EQ(logger_.Lines(), Lines{"Warn: ReadBackupInfoLine Backup Info File doesn't Exist."});
}

TEST_F(SimulatedBackupInfo, FailsWhenTheFileCannotBeOpened) {
  server_.files().Write(kPath, "E\r\n");
  server_.calls().FailNext("_open", EACCES);
  EXPECT_FALSE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(line_, "before");
  EXPECT_EQ(logger_.Lines(), Lines{kOpenFailed});
}

TEST_F(SimulatedBackupInfo, FailsWhenAnotherHoldsTheFileAlone) {
  server_.files().Write(kPath, "E\r\n");
  std::shared_ptr<simulator::OpenFile> holder;
  ASSERT_EQ(server_.file_system().Open(kPath, {.read = true, .alone = true}, &holder), 0U);
  EXPECT_FALSE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(logger_.Lines(), Lines{kOpenFailed});
}

TEST_F(SimulatedBackupInfo, ReadsAReadOnlyFile) {
  server_.files().Write(kPath, "E\r\n");
  server_.files().SetAttributes(kPath, FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(line_, "E");
}

// A disk error leaves the stream bad but never at its end: each later read is empty.
TEST_F(SimulatedBackupInfo, CountsOnWhenTheDiskCannotBeRead) {
  server_.files().Write(kPath, "E\r\none\r\n");
  server_.calls().FailNext("_read", EIO, 1, simulator::Lasting::kForGood);
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'c', 1, line_));
  EXPECT_EQ(line_, "");
  EXPECT_EQ(logger_.Lines(), Lines{});
}

TEST_F(SimulatedBackupInfo, ClosesTheFileThatCannotBeRead) {
  server_.files().Write(kPath, "E\r\n");
  server_.calls().FailNext("_read", EIO);
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(server_.file_system().Delete(kPath), 0U);
}

TEST_F(SimulatedBackupInfo, ReadsThroughAFileThatCannotBeClosed) {
  server_.files().Write(kPath, "E\r\n");
  server_.calls().FailNext("_close", EIO);
  EXPECT_TRUE(ReadBackupInfoLine(logger_, 'c', 0, line_));
  EXPECT_EQ(line_, "E");
  EXPECT_EQ(logger_.Lines(), Lines{});
}

}  // namespace
}  // namespace restore
