#include "common/owner.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace common {
namespace {

std::vector<int>& GivenBack() {
  static std::vector<int> values;
  return values;
}

struct NumberTraits {
  using Value = int;
  static Value Empty() { return -1; }
  static void GiveBack(Value value) { GivenBack().push_back(value); }
};
using Number = Unique<NumberTraits>;

static_assert(!std::is_copy_constructible_v<Number>);
static_assert(!std::is_copy_assignable_v<Number>);
static_assert(std::is_nothrow_move_constructible_v<Number>);
static_assert(std::is_nothrow_move_assignable_v<Number>);

class UniqueTest : public testing::Test {
 protected:
  UniqueTest() { GivenBack().clear(); }
  static void ExpectGivenBack(const std::vector<int>& values) { EXPECT_EQ(GivenBack(), values); }
};

TEST_F(UniqueTest, IsEmptyAtFirst) {
  const Number number;
  EXPECT_FALSE(number);
  EXPECT_EQ(number.get(), -1);
}

TEST_F(UniqueTest, HoldsItsValue) {
  const Number number(0);
  EXPECT_TRUE(number);
  EXPECT_EQ(number.get(), 0);
  ExpectGivenBack({});
}

TEST_F(UniqueTest, GivesItsValueBackAtItsEnd) {
  { const Number number(3); }
  ExpectGivenBack({3});
}

TEST_F(UniqueTest, GivesNothingBackWhenEmpty) {
  {
    Number number;
    number.reset();
    const Number other(-1);
  }
  ExpectGivenBack({});
}

TEST_F(UniqueTest, ResetGivesTheOldValueBack) {
  Number number(3);
  number.reset(4);
  ExpectGivenBack({3});
  EXPECT_EQ(number.get(), 4);
  number.reset();
  ExpectGivenBack({3, 4});
  EXPECT_FALSE(number);
}

TEST_F(UniqueTest, ReleaseGivesNothingBack) {
  {
    Number number(3);
    EXPECT_EQ(number.release(), 3);
    EXPECT_FALSE(number);
  }
  ExpectGivenBack({});
}

TEST_F(UniqueTest, MovingEmptiesTheOther) {
  Number number(3);
  {
    const Number moved(std::move(number));
    EXPECT_FALSE(number);
    EXPECT_EQ(moved.get(), 3);
    ExpectGivenBack({});
  }
  ExpectGivenBack({3});
}

TEST_F(UniqueTest, MoveAssigningGivesTheOldValueBack) {
  Number number(3);
  Number other(4);
  number = std::move(other);
  ExpectGivenBack({3});
  EXPECT_EQ(number.get(), 4);
  EXPECT_FALSE(other);
}

TEST_F(UniqueTest, MoveAssigningAnEmptyOneEmpties) {
  Number number(3);
  number = Number();
  ExpectGivenBack({3});
  EXPECT_FALSE(number);
}

TEST_F(UniqueTest, MoveAssigningToItselfChangesNothing) {
  Number number(3);
  Number& same = number;
  number = std::move(same);
  ExpectGivenBack({});
  EXPECT_EQ(number.get(), 3);
}

TEST_F(UniqueTest, PutEmptiesAndTakesWhatIsStoredThere) {
  {
    Number number(3);
    int* const place = number.put();
    ExpectGivenBack({3});
    EXPECT_FALSE(number);
    *place = 4;
    EXPECT_EQ(number.get(), 4);
  }
  ExpectGivenBack({3, 4});
}

// The two failure values of handles.

TEST(UniqueHandle, IsEmptyWhenNull) {
  EXPECT_EQ(UniqueHandle().get(), nullptr);
  EXPECT_FALSE(UniqueHandle(nullptr));
}

TEST(UniqueFileHandle, IsEmptyWhenInvalid) {
  EXPECT_EQ(UniqueFileHandle().get(), INVALID_HANDLE_VALUE);
  EXPECT_FALSE(UniqueFileHandle(INVALID_HANDLE_VALUE));
}

}  // namespace
}  // namespace common
