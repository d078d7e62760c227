#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "simulator/model/files/junction.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using std::string_literals::operator""s;

std::string Word(size_t value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

// Tag, length of the data, reserved word, data.
std::string Buffer(const std::string& tag, const std::string& data) {
  return tag + Word(data.size()) + Word(0) + data;
}

const std::string kJunctionTag = "\x03\x00\x00\xA0"s;

// To "\??\D:", in UTF-16.
const std::string kNames =
    Word(0) + Word(12) + Word(14) + Word(0) + "\\\0?\0?\0\\\0D\0:\0"s + Word(0) + Word(0);

TEST(Junction, LiesAsWindowsStoresIt) {
  EXPECT_EQ(JunctionBuffer("D:"), Buffer(kJunctionTag, kNames));
}

TEST(Junction, TellsItsSubstituteName) {
  EXPECT_EQ(SubstituteName(JunctionBuffer("D:\\Data")), "\\??\\D:\\Data");
}

TEST(Junction, KeepsCharactersBeyond16Bits) {
  EXPECT_EQ(SubstituteName(JunctionBuffer("D:\\\xC3\xA4\xF0\x9F\x98\x80")),
            "\\??\\D:\\\xC3\xA4\xF0\x9F\x98\x80");
}

TEST(Junction, TakesAHalfPairForNoCharacter) {
  const std::string names = Word(0) + Word(2) + Word(4) + Word(0) + "\x00\xD8"s + Word(0) + Word(0);
  EXPECT_EQ(SubstituteName(Buffer(kJunctionTag, names)), "\xEF\xBF\xBD");
}

TEST(Junction, FillsTheWholeBufferWithTheLongestTarget) {
  const std::string buffer = JunctionBuffer(std::string(kLongestJunctionTarget, 'a'));
  EXPECT_EQ(buffer.size(), size_t{MAXIMUM_REPARSE_DATA_BUFFER_SIZE});
  EXPECT_EQ(CheckReparseBuffer(buffer), DWORD{ERROR_SUCCESS});
}

TEST(ReparseBuffer, IsFineAsAJunction) {
  EXPECT_EQ(CheckReparseBuffer(Buffer(kJunctionTag, kNames)), DWORD{ERROR_SUCCESS});
}

TEST(ReparseBuffer, MayHoldAPrintName) {
  const std::string names =
      Word(0) + Word(2) + Word(4) + Word(4) + "a\0"s + Word(0) + "bc\0\0"s + Word(0);
  EXPECT_EQ(CheckReparseBuffer(Buffer(kJunctionTag, names)), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SubstituteName(Buffer(kJunctionTag, names)), "a");
}

TEST(ReparseBuffer, IsRefusedWhateverItsLengthIs) {
  const std::string whole = Buffer(kJunctionTag, kNames);
  for (size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(CheckReparseBuffer(std::string_view(whole).substr(0, size)),
              DWORD{ERROR_INVALID_REPARSE_DATA})
        << size;
  }
  EXPECT_EQ(CheckReparseBuffer(whole + "x"), DWORD{ERROR_INVALID_REPARSE_DATA});
}

TEST(ReparseBuffer, HasAtMost16Kilobytes) {
  // A header of 16 bytes, two terminators, and the rest for the name.
  const auto of_name = [](size_t bytes) {
    return Buffer(kJunctionTag, Word(0) + Word(bytes) + Word(bytes + 2) + Word(0) +
                                    std::string(bytes, 'a') + Word(0) + Word(0));
  };
  EXPECT_EQ(CheckReparseBuffer(of_name(16384 - 20)), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(CheckReparseBuffer(of_name(16384 - 18)), DWORD{ERROR_INVALID_REPARSE_DATA});
}

struct WrongNames {
  const char* what;
  std::string names;
};

std::ostream& operator<<(std::ostream& out, const WrongNames& test) { return out << test.what; }

class ReparseBufferOfWrongNames : public testing::TestWithParam<WrongNames> {};

TEST_P(ReparseBufferOfWrongNames, IsRefused) {
  const std::string buffer = Buffer(kJunctionTag, GetParam().names);
  EXPECT_EQ(CheckReparseBuffer(buffer), DWORD{ERROR_INVALID_REPARSE_DATA}) << GetParam().what;
  EXPECT_EQ(SubstituteName(buffer), std::nullopt) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Names, ReparseBufferOfWrongNames,
    testing::Values(
        WrongNames{"none", ""}, WrongNames{"no text", Word(0) + Word(0) + Word(2) + Word(0)},
        WrongNames{"substitute name not at the front",
                   Word(2) + Word(2) + Word(4) + Word(0) + "a\0"s + Word(0) + Word(0)},
        WrongNames{"substitute name behind the end",
                   Word(0) + Word(200) + Word(202) + Word(0) + "a\0"s + Word(0) + Word(0)},
        WrongNames{"print name in the substitute name",
                   Word(0) + Word(2) + Word(0) + Word(0) + "a\0"s + Word(0) + Word(0)},
        WrongNames{"print name behind the end",
                   Word(0) + Word(2) + Word(4) + Word(0xFFFE) + "a\0"s + Word(0) + Word(0)},
        WrongNames{"a terminator missing",
                   Word(0) + Word(2) + Word(4) + Word(0) + "a\0"s + Word(0)}),
    tests::NamedAsPrinted());

TEST(ReparseBuffer, HasNoReservedTag) {
  for (const char tag : {'\0', '\1'}) {
    EXPECT_EQ(CheckReparseBuffer(Buffer(std::string({tag, 0, 0, 0}), kNames)),
              DWORD{ERROR_REPARSE_TAG_INVALID});
  }
}

TEST(ReparseBufferDeathTest, MakesNothingButJunctions) {
  const std::string link = Buffer("\x0C\x00\x00\xA0"s, kNames);
  EXPECT_DEATH(static_cast<void>(CheckReparseBuffer(link)), "a reparse point but a junction");
  EXPECT_EQ(SubstituteName(link), std::nullopt);
}

TEST(ReparseBuffer, HasNoTagWhenItIsTooShort) {
  EXPECT_EQ(ReparseTag("\x03\x00\x00\xA0"s), DWORD{0});
  EXPECT_EQ(ReparseTag(JunctionBuffer("D:")), DWORD{IO_REPARSE_TAG_MOUNT_POINT});
}

}  // namespace
}  // namespace simulator
