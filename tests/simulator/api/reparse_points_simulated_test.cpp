// Handles to files and junctions as the calls show them.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/owner.h"
#include "simulator/api/call.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;

class HandlesOfFolders : public testing::Test {
 protected:
  HandlesOfFolders() { server_.files().MakeDirectories("C:\\link"); }

  static HANDLE Open(DWORD access = GENERIC_READ | GENERIC_WRITE) {
    return ::CreateFileW(L"C:\\link", access, 0, nullptr, OPEN_EXISTING,
                         FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  }
  static BOOL MakeJunction(HANDLE folder) {
    std::string buffer = simulator::JunctionBuffer("C:\\Windows");
    DWORD returned = 77;
    const BOOL made =
        ::DeviceIoControl(folder, FSCTL_SET_REPARSE_POINT, buffer.data(),
                          static_cast<DWORD>(buffer.size()), nullptr, 0, &returned, nullptr);
    EXPECT_EQ(returned, 0u);
    return made;
  }

  Server server_;
};

TEST_F(HandlesOfFolders, AreFilesThatCloseHandleCloses) {
  const HANDLE folder = Open();
  EXPECT_EQ(server_.OpenHandles(), std::vector<std::string>{"file"});
  EXPECT_TRUE(::CloseHandle(folder));
  EXPECT_TRUE(server_.OpenHandles().empty());
  EXPECT_TRUE(::RemoveDirectoryA("C:\\link"));
}

TEST_F(HandlesOfFolders, TakeAReparsePoint) {
  const common::UniqueFileHandle folder(Open());
  EXPECT_TRUE(MakeJunction(folder.get()));
  EXPECT_EQ(::GetLastError(), simulator::kSpoiltLastError);
  EXPECT_EQ(server_.files().JunctionTarget("C:\\link"), "\\??\\C:\\Windows");
}

TEST_F(HandlesOfFolders, AreTracedWithWhatWasAskedFor) {
  const common::UniqueFileHandle folder(Open(GENERIC_READ));
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateFileW"),
            std::vector<std::string>{"\"C:\\link\", 2147483648, 0, 35651584"});
}

TEST_F(HandlesOfFolders, AreNotOpenedWhenAFaultIsDue) {
  server_.calls().FailNext("CreateFileW", ERROR_SHARING_VIOLATION);
  EXPECT_EQ(Open(), INVALID_HANDLE_VALUE);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(HandlesOfFolders, TakeNoReparsePointWhenAFaultIsDue) {
  const common::UniqueFileHandle folder(Open());
  server_.calls().FailNext("DeviceIoControl", ERROR_NOT_SUPPORTED);
  EXPECT_FALSE(MakeJunction(folder.get()));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_SUPPORTED});
  EXPECT_EQ(server_.files().JunctionTarget("C:\\link"), std::nullopt);
}

TEST_F(HandlesOfFolders, AreNotOtherHandles) {
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  ASSERT_TRUE(::CreatePipe(&read, &write, nullptr, 0));
  const common::UniqueHandle owner_of_read(read);
  const common::UniqueHandle owner_of_write(write);
  EXPECT_FALSE(MakeJunction(write));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

using HandlesOfFoldersDeathTest = HandlesOfFolders;

TEST_F(HandlesOfFoldersDeathTest, TakeNothingElse) {
  const common::UniqueFileHandle folder(Open());
  DWORD count = 0;
  char byte = 0;
  EXPECT_DEATH(::DeviceIoControl(folder.get(), 0x900A8, &byte, 0, nullptr, 0, &count, nullptr),
               "such a code");
  EXPECT_DEATH(::ReadFile(folder.get(), &byte, 1, &count, nullptr), "of a file");
  EXPECT_DEATH(::WriteFile(folder.get(), &byte, 1, &count, nullptr), "to a file");
}

TEST_F(HandlesOfFoldersDeathTest, AreOpenedInNoOtherWay) {
  const auto open = [](DWORD access, DWORD share, DWORD disposition, DWORD flags) {
    ::CreateFileW(L"C:\\link", access, share, nullptr, disposition, flags, nullptr);
  };
  EXPECT_DEATH(open(0x02000000, 0, OPEN_EXISTING, 0), "such access");
  EXPECT_DEATH(open(GENERIC_READ, 8, OPEN_EXISTING, 0), "such sharing");
  EXPECT_DEATH(open(GENERIC_READ, 0, 2, 0), "making a file");
  EXPECT_DEATH(open(GENERIC_READ, 0, OPEN_EXISTING, 0x40000000), "flags and attributes");
}

}  // namespace
