#include <windows.h>

#include <gtest/gtest.h>
#include <share.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "common/owner.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace common {
namespace {

TEST(UniqueHandle, ClosesItsHandleOnce) {
  simulator::Server server;
  {
    UniqueHandle read;
    UniqueHandle write;
    ASSERT_TRUE(::CreatePipe(read.put(), write.put(), nullptr, 0));
    EXPECT_EQ(server.OpenHandles().size(), 2u);
    const UniqueHandle moved(std::move(read));
  }
  EXPECT_TRUE(server.OpenHandles().empty());
  EXPECT_EQ(server.calls().ArgumentsOf("CloseHandle").size(), 2u);
}

TEST(UniqueFileHandle, ClosesItsHandleOnce) {
  simulator::Server server;
  {
    UniqueFileHandle folder(
        ::CreateFileW(L"C:\\Windows", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ASSERT_TRUE(folder);
    EXPECT_EQ(server.OpenHandles().size(), 1u);
    const UniqueFileHandle moved(std::move(folder));
  }
  EXPECT_TRUE(server.OpenHandles().empty());
  EXPECT_EQ(server.calls().ArgumentsOf("CloseHandle").size(), 1u);
}

TEST(UniqueFileHandle, ClosesNothingWhenTheFileCouldNotBeOpened) {
  simulator::Server server;
  {
    const UniqueFileHandle folder(
        ::CreateFileW(L"C:\\None", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    EXPECT_FALSE(folder);
  }
  EXPECT_TRUE(server.calls().ArgumentsOf("CloseHandle").empty());
}

TEST(UniqueLocal, FreesItsMemory) {
  simulator::Server server;
  const int before = simulator::LiveLocalBlocks();
  {
    UniqueLocal<char> text;
    ASSERT_NE(::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS |
                                   FORMAT_MESSAGE_FROM_SYSTEM,
                               nullptr, ERROR_ACCESS_DENIED, 0x400,
                               reinterpret_cast<LPSTR>(text.put()), 0, nullptr),
              DWORD{0});
    EXPECT_EQ(simulator::LiveLocalBlocks(), before + 1);
  }
  EXPECT_EQ(simulator::LiveLocalBlocks(), before);
}

TEST(UniqueFile, ClosesItsStream) {
  simulator::Server server;
  { const UniqueFile file(::_fsopen("C:\\a.txt", "w", _SH_DENYNO)); }
  EXPECT_EQ(server.calls().ArgumentsOf("_close").size(), 1u);
}

}  // namespace
}  // namespace common
