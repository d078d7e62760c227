// Memory of the platform.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "common/owner.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class LocalMemoryContract : public HostTest {
 protected:
  static common::UniqueLocal<char> Allocate(SIZE_T size) {
    return common::UniqueLocal<char>(static_cast<char*>(::LocalAlloc(LPTR, size)));
  }
};

TEST_F(LocalMemoryContract, BlocksAreZeroed) {
  for (int i = 0; i < 3; ++i) {
    const common::UniqueLocal<char> block = Allocate(4096);
    ASSERT_TRUE(block);
    EXPECT_EQ(std::count(block.get(), block.get() + 4096, '\0'), 4096);
    std::fill_n(block.get(), 4096, 'x');
  }
}

TEST_F(LocalMemoryContract, BlocksAreApart) {
  const common::UniqueLocal<char> one = Allocate(1);
  const common::UniqueLocal<char> other = Allocate(1);
  EXPECT_NE(one.get(), other.get());
}

TEST_F(LocalMemoryContract, BlocksAreAlignedForAnyStructure) {
  const common::UniqueLocal<char> block = Allocate(40);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(block.get()) % alignof(void*), 0u);
}

TEST_F(LocalMemoryContract, ABlockMayBeEmpty) { EXPECT_TRUE(Allocate(0)); }

TEST_F(LocalMemoryContract, MoreThanThereIsIsNotGiven) {
  const SIZE_T everything = SIZE_MAX;
  EXPECT_EQ(ErrorOf([&] { return ::LocalAlloc(LPTR, everything); }),
            DWORD{ERROR_NOT_ENOUGH_MEMORY});
}

}  // namespace
}  // namespace tests
