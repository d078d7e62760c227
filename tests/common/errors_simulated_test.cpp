#include <windows.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "common/errors.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace common {
namespace {

TEST(GetSystemMessage, IsTheSystemsTextWithItsLineEnd) {
  simulator::Server server;
  EXPECT_EQ(GetSystemMessage(ERROR_ACCESS_DENIED), "Access is denied.\r\n");
}

TEST(GetSystemMessage, AsksInTheUsersDefaultLanguageWithoutInserts) {
  simulator::Server server;
  GetSystemMessage(ERROR_ACCESS_DENIED);
  EXPECT_EQ(server.calls().ArgumentsOf("FormatMessageA"),
            std::vector<std::string>{"4864, 5, 1024"});
}

TEST(GetSystemMessage, GivesTheSystemsMemoryBack) {
  simulator::Server server;
  const int before = simulator::LiveLocalBlocks();
  GetSystemMessage(ERROR_ACCESS_DENIED);
  GetLastErrorText(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(simulator::LiveLocalBlocks(), before);
}

TEST(GetSystemMessage, IsEmptyForACodeWithoutAMessage) {
  simulator::Server server;
  EXPECT_EQ(GetSystemMessage(0xE0000001), "");
}

TEST(GetSystemMessage, IsEmptyWhenTheSystemFails) {
  simulator::Server server;
  server.calls().FailNext("FormatMessageA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(GetSystemMessage(ERROR_ACCESS_DENIED), "");
}

TEST(GetLastErrorText, TakesTheErrorBeforeItAsksForTheMessage) {
  simulator::Server server;
  ::SetLastError(ERROR_ACCESS_DENIED);
  EXPECT_EQ(GetLastErrorText(), "Last Error: [5] Access is denied.\r\n");
}

TEST(GetLastErrorText, WritesTheCodeAsASignedNumber) {
  simulator::Server server;
  EXPECT_EQ(GetLastErrorText(0xE0000001), "Last Error: [-536870911] ");
}

TEST(GetLastErrorText, HasAtMost1023Characters) {
  // "Last Error: [5] " has 16 characters, the end of a message 2.
  const std::string start = "Last Error: [5] ";
  simulator::Server server;
  server.system().messages[ERROR_ACCESS_DENIED] = std::string(1005, 'x');
  EXPECT_EQ(GetLastErrorText(ERROR_ACCESS_DENIED), start + std::string(1005, 'x') + "\r\n");
  server.system().messages[ERROR_ACCESS_DENIED] = std::string(1006, 'x');
  EXPECT_EQ(GetLastErrorText(ERROR_ACCESS_DENIED), start + std::string(1006, 'x') + "\r");
  server.system().messages[ERROR_ACCESS_DENIED] = std::string(3000, 'x');
  EXPECT_EQ(GetLastErrorText(ERROR_ACCESS_DENIED), start + std::string(1007, 'x'));
}

TEST(ReportLastError, WritesOneLineBehindTheMessagesOwnLineEnd) {
  simulator::Server server;
  ReportLastError("GetTempDir", "x", ERROR_ACCESS_DENIED);
  EXPECT_EQ(server.console().Text(),
            "common::GetTempDir [x], LastError: [5] Access is denied.\r\n\r\n");
}

}  // namespace
}  // namespace common
