#include "acl/reparse_buffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace acl {
namespace {

using Bytes = std::vector<unsigned char>;

TEST(MountPointReparseBuffer, HoldsTheSubstituteNameByteForByte) {
  // n = 6 units: 24 bytes of data.
  EXPECT_EQ(MountPointReparseBuffer(L"\\??\\C:"),
            (Bytes{0x03, 0x00, 0x00, 0xA0,  // tag
                   24,   0,    0,    0,     // data length, reserved
                   0,    0,    12,   0,     // substitute name: offset, length
                   14,   0,    0,    0,     // print name: offset, length
                   '\\', 0,    '?',  0,    '?', 0, '\\', 0, 'C', 0, ':', 0, 0, 0,  //
                   0,    0}));
}

TEST(MountPointReparseBuffer, HasTwelveBytesOfDataForAnEmptyName) {
  EXPECT_EQ(MountPointReparseBuffer(L""),
            (Bytes{0x03, 0x00, 0x00, 0xA0, 12, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(MountPointReparseBuffer, CountsLengthsAbove255InTwoBytes) {
  const Bytes buffer = MountPointReparseBuffer(std::wstring(300, L'a'));
  ASSERT_EQ(buffer.size(), 620U);
  EXPECT_EQ(buffer[4] + 256 * buffer[5], 612);
  EXPECT_EQ(buffer[10] + 256 * buffer[11], 600);
  EXPECT_EQ(buffer[12] + 256 * buffer[13], 602);
}

TEST(MountPointReparseBuffer, WritesUtf16) {
  const Bytes buffer = MountPointReparseBuffer(L"\u4E2D\U0001F600");
  // Three units, the last two a surrogate pair.
  ASSERT_EQ(buffer.size(), 26U);
  EXPECT_EQ(Bytes(buffer.begin() + 16, buffer.begin() + 22),
            (Bytes{0x2D, 0x4E, 0x3D, 0xD8, 0x00, 0xDE}));
}

TEST(MountPointReparseBuffer, FillsTheSystemsMaximum) {
  // 20 bytes beside the name.
  const Bytes buffer = MountPointReparseBuffer(std::wstring((16384 - 20) / 2, L'a'));
  EXPECT_EQ(buffer.size(), 16384U);
}

TEST(MountPointReparseBuffer, IsEmptyForALongerName) {
  EXPECT_TRUE(MountPointReparseBuffer(std::wstring((16384 - 20) / 2 + 1, L'a')).empty());
  EXPECT_TRUE(MountPointReparseBuffer(std::wstring(100'000, L'a')).empty());
}

}  // namespace
}  // namespace acl
