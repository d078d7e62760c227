#include <windows.h>

#include <gtest/gtest.h>
#include <string.h>

#include <cerrno>
#include <string>

#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr DWORD kFlags = 0x1300;
constexpr DWORD kLanguage = 0x400;

DWORD Format(DWORD error, char** text) {
  return ::FormatMessageA(kFlags, nullptr, error, kLanguage, reinterpret_cast<LPSTR>(text), 0,
                          nullptr);
}

TEST(FormatMessage, EndsItsTextInALineEnd) {
  Server server;
  char* text = nullptr;
  EXPECT_EQ(Format(ERROR_ACCESS_DENIED, &text), 19u);
  EXPECT_STREQ(text, "Access is denied.\r\n");
  ::LocalFree(text);
}

TEST(FormatMessage, LeavesInsertsAsTheyStand) {
  Server server;
  char* text = nullptr;
  Format(ERROR_BAD_EXE_FORMAT, &text);
  EXPECT_STREQ(text, "%1 is not a valid Win32 application.\r\n");
  ::LocalFree(text);
}

TEST(FormatMessage, KnowsNoOtherCode) {
  Server server;
  char unset = 'x';
  char* text = &unset;
  EXPECT_EQ(Format(0x0BADC0DE, &text), 0u);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_MR_MID_NOT_FOUND});
  EXPECT_EQ(text, nullptr);
}

TEST(FormatMessageDeathTest, HonoursOneKindOfUseOnly) {
  Server server;
  char buffer[8];
  EXPECT_DEATH(::FormatMessageA(0x1000, nullptr, 5, kLanguage, buffer, 8, nullptr), "flags");
  EXPECT_DEATH(::FormatMessageA(kFlags, nullptr, 5, 0, buffer, 8, nullptr), "language");
}

TEST(LocalFree, GivesBlocksBackOnce) {
  Server server;
  const int before = LiveLocalBlocks();
  char* text = nullptr;
  Format(ERROR_ACCESS_DENIED, &text);
  EXPECT_EQ(LiveLocalBlocks(), before + 1);
  EXPECT_EQ(::LocalFree(text), nullptr);
  EXPECT_EQ(LiveLocalBlocks(), before);
  EXPECT_EQ(::LocalFree(text), text);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST(LocalFree, TakesNull) {
  Server server;
  EXPECT_EQ(::LocalFree(nullptr), nullptr);
}

TEST(Strerror, GivesTheWindowsRuntimesTexts) {
  char text[64];
  EXPECT_EQ(strerror_s(text, sizeof(text), ENOENT), 0);
  EXPECT_STREQ(text, "No such file or directory");
  strerror_s(text, sizeof(text), ENOMEM);
  EXPECT_STREQ(text, "Not enough space");
  strerror_s(text, sizeof(text), 4711);
  EXPECT_STREQ(text, "Unknown error");
}

TEST(Strerror, CutsToItsBuffer) {
  char text[4];
  EXPECT_EQ(strerror_s(text, sizeof(text), EACCES), 0);
  EXPECT_STREQ(text, "Per");
  EXPECT_EQ(strerror_s(text, 0, EACCES), EINVAL);
}

}  // namespace
}  // namespace simulator
