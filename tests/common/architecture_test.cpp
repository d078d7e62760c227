#include "common/architecture.h"

#include <gtest/gtest.h>

#include "support/host.h"

namespace common {
namespace {

using ArchitectureTest = tests::HostTest;

TEST_F(ArchitectureTest, A64BitProgramRunsOnA64BitMachine) {
  bool is_x64 = false;
  EXPECT_TRUE(IsNativeX64(is_x64));
  EXPECT_TRUE(is_x64);
}

}  // namespace
}  // namespace common
