#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>

#include "simulator/tools/columns.h"
#include "support/test_names.h"

namespace simulator {
namespace {

TEST(LeftColumn, FillsUpWithBlanks) { EXPECT_EQ(LeftColumn("ab", 4), "ab  "); }

TEST(LeftColumn, CutsBetweenCharacters) { EXPECT_EQ(LeftColumn("äöü", 2), "äö"); }

TEST(LeftColumn, TakesBytesThatAreNotUtf8) { EXPECT_EQ(LeftColumn("\x80\xFF", 2), "\x80\xFF "); }

TEST(RightColumn, PutsBlanksInFront) { EXPECT_EQ(RightColumn("0 B", 7), "    0 B"); }

TEST(RightColumn, KeepsLongerTextWhole) { EXPECT_EQ(RightColumn("abc", 2), "abc"); }

struct Size {
  uint64_t bytes;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const Size& test) { return out << test.text; }

class SizeTextOf : public testing::TestWithParam<Size> {};

TEST_P(SizeTextOf, TakesTheSmallestUnitOfFourDigitsAndRoundsDown) {
  EXPECT_EQ(SizeText(GetParam().bytes), GetParam().text);
}

constexpr uint64_t kKB = 1024;

INSTANTIATE_TEST_SUITE_P(Sizes, SizeTextOf,
                         testing::Values(Size{0, "0 B"}, Size{9999, "9999 B"}, Size{10000, "9 KB"},
                                         Size{672 * kKB, "672 KB"}, Size{1024 * kKB, "1024 KB"},
                                         Size{5120 * kKB, "5120 KB"}, Size{41 * kKB * kKB, "41 MB"},
                                         Size{8189 * kKB * kKB, "8189 MB"},
                                         Size{UINT64_C(500107862016), "465 GB"},
                                         Size{7151 * kKB * kKB * kKB, "7151 GB"},
                                         Size{10000 * kKB * kKB * kKB, "9 TB"},
                                         Size{std::numeric_limits<uint64_t>::max(), "16383 PB"}),
                         tests::NamedAsPrinted());

}  // namespace
}  // namespace simulator
