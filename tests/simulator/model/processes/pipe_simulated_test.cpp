#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

#include "simulator/model/processes/handles.h"
#include "simulator/model/server.h"

namespace {

class PipeTest : public testing::Test {
 protected:
  PipeTest() { ::CreatePipe(&read_, &write_, nullptr, 0); }

  // The next bytes, "(none)" for a read of zero bytes, or the error as a number.
  std::string Read(DWORD size = 1023) {
    std::string bytes(size, '\0');
    DWORD count = 0;
    if (!::ReadFile(read_, bytes.data(), size, &count, nullptr)) {
      return std::to_string(::GetLastError());
    }
    bytes.resize(count);
    return count == 0 ? "(none)" : bytes;
  }

  // The error, 0 for none.
  DWORD Write(const std::string& bytes) {
    DWORD count = 0;
    const BOOL written =
        ::WriteFile(write_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    if (!written) return ::GetLastError();
    EXPECT_EQ(count, bytes.size());
    return ERROR_SUCCESS;
  }

  simulator::Server server_;
  HANDLE read_ = nullptr;
  HANDLE write_ = nullptr;
};

const std::string kBrokenPipe = std::to_string(ERROR_BROKEN_PIPE);

TEST_F(PipeTest, GivesBytesInTheOrderTheyWereWritten) {
  Write("one ");
  Write("two");
  EXPECT_EQ(Read(), "one two");
}

TEST_F(PipeTest, GivesNoMoreThanIsAskedFor) {
  Write("abcdef");
  EXPECT_EQ(Read(4), "abcd");
  EXPECT_EQ(Read(4), "ef");
}

TEST_F(PipeTest, CompletesOneReadForEachWriteOfZeroBytes) {
  Write("ab");
  Write("");
  Write("");
  Write("cd");
  EXPECT_EQ(Read(), "ab");
  EXPECT_EQ(Read(), "(none)");
  EXPECT_EQ(Read(), "(none)");
  EXPECT_EQ(Read(), "cd");
}

TEST_F(PipeTest, WakesAWaitingReaderByAWriteOfZeroBytes) {
  std::thread writer([this] { Write(""); });
  EXPECT_EQ(Read(), "(none)");
  writer.join();
}

TEST_F(PipeTest, IsBrokenOnceTheWriteEndIsClosedAndAllIsRead) {
  Write("last");
  ::CloseHandle(write_);
  EXPECT_EQ(Read(), "last");
  EXPECT_EQ(Read(), kBrokenPipe);
}

TEST_F(PipeTest, WakesAWaitingReaderWhenTheWriteEndIsClosed) {
  std::thread closer([this] { ::CloseHandle(write_); });
  EXPECT_EQ(Read(), kBrokenPipe);
  closer.join();
}

TEST_F(PipeTest, TakesNoDataOnceTheReadEndIsClosed) {
  ::CloseHandle(read_);
  EXPECT_EQ(Write("x"), DWORD{ERROR_NO_DATA});
  EXPECT_EQ(Write(""), DWORD{ERROR_NO_DATA});
}

TEST_F(PipeTest, HoldsFourThousandAndNinetySixBytesWithoutAReader) {
  const std::string full(4096, 'x');
  EXPECT_EQ(Write(full), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Read(8192), full);
}

TEST_F(PipeTest, TakesALargerWriteInPieces) {
  std::string sent;
  for (int i = 0; i < 20'000; ++i) sent += static_cast<char>('a' + i % 23);
  std::thread writer([this, &sent] {
    Write(sent);
    ::CloseHandle(write_);
  });
  std::string got;
  for (std::string piece = Read(); piece != kBrokenPipe; piece = Read()) got += piece;
  writer.join();
  EXPECT_EQ(got, sent);
}

TEST_F(PipeTest, BreaksAWriteThatWaitsWhenTheReadEndIsClosed) {
  std::thread reader([this] {
    Read(1);
    ::CloseHandle(read_);
  });
  EXPECT_EQ(Write(std::string(20'000, 'x')), DWORD{ERROR_BROKEN_PIPE});
  reader.join();
}

TEST_F(PipeTest, SetsTheCountToZeroWhenItFails) {
  ::CloseHandle(write_);
  char byte = 0;
  DWORD count = 7;
  EXPECT_FALSE(::ReadFile(read_, &byte, 1, &count, nullptr));
  EXPECT_EQ(count, 0u);
}

TEST_F(PipeTest, DeniesReadingFromTheWriteEndAndWritingToTheReadEnd) {
  char byte = 0;
  DWORD count = 0;
  EXPECT_FALSE(::ReadFile(write_, &byte, 1, &count, nullptr));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_FALSE(::WriteFile(read_, &byte, 1, &count, nullptr));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(PipeTest, RefusesAHandleThatIsClosed) {
  ::CloseHandle(read_);
  EXPECT_EQ(Read(), std::to_string(ERROR_INVALID_HANDLE));
  EXPECT_FALSE(::CloseHandle(read_));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(PipeTest, IsInheritableOnlyWhenAskedFor) {
  EXPECT_TRUE(server_.handles().Inheritable().empty());
  SECURITY_ATTRIBUTES attributes = {sizeof(attributes), nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  ASSERT_TRUE(::CreatePipe(&read, &write, &attributes, 0));
  EXPECT_EQ(server_.handles().Inheritable().size(), 2u);
}

TEST_F(PipeTest, IsNotMadeWhenAFaultIsDue) {
  server_.calls().FailNext("CreatePipe", ERROR_NOT_ENOUGH_MEMORY);
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  EXPECT_FALSE(::CreatePipe(&read, &write, nullptr, 0));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  EXPECT_EQ(read, nullptr);
}

TEST_F(PipeTest, AbortsForASizeOrADescriptor) {
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  EXPECT_DEATH(::CreatePipe(&read, &write, nullptr, 512), "CreatePipe: a size");
  SECURITY_ATTRIBUTES attributes = {sizeof(attributes), &attributes, TRUE};
  EXPECT_DEATH(::CreatePipe(&read, &write, &attributes, 0), "lpSecurityDescriptor");
}

}  // namespace
