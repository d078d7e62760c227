#include <windows.h>

#include <gtest/gtest.h>

#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

TEST(LocalAlloc, GivesBlocksThatCount) {
  Server server;
  const int before = LiveLocalBlocks();
  const HLOCAL block = ::LocalAlloc(LPTR, 16);
  EXPECT_EQ(LiveLocalBlocks(), before + 1);
  EXPECT_EQ(::LocalFree(block), nullptr);
  EXPECT_EQ(LiveLocalBlocks(), before);
}

TEST(LocalAlloc, FailsWhenAFaultIsDue) {
  Server server;
  const int before = LiveLocalBlocks();
  server.calls().FailNext("LocalAlloc", ERROR_OUTOFMEMORY);
  EXPECT_EQ(::LocalAlloc(LPTR, 16), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_OUTOFMEMORY});
  EXPECT_EQ(LiveLocalBlocks(), before);
}

TEST(LocalAllocDeathTest, HonoursZeroedFixedBlocksOnly) {
  Server server;
  EXPECT_DEATH(::LocalAlloc(LMEM_FIXED, 16), "flags");
}

}  // namespace
}  // namespace simulator
