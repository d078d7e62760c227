#include <windows.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "simulator/model/common/utf8.h"
#include "simulator/model/server.h"
#include "support/test_names.h"

namespace simulator {
namespace {

class NlsTest : public testing::Test {
 protected:
  static std::wstring Wide(const std::string& text) {
    std::wstring wide(100, L'\0');
    const int length = ::MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                             wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(length));
    return wide;
  }
  static std::string Narrow(const std::wstring& text) {
    std::string narrow(100, '\0');
    const int length =
        ::WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                              static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<size_t>(length));
    return narrow;
  }

  Server server_;
};

TEST_F(NlsTest, ConvertsBothWays) {
  EXPECT_EQ(Wide("a\xC3\xA4\xE4\xB8\xAD"), L"a\u00E4\u4E2D");
  EXPECT_EQ(Narrow(L"a\u00E4\u4E2D"), "a\xC3\xA4\xE4\xB8\xAD");
}

TEST_F(NlsTest, ConvertsByLengthAcrossZeros) {
  EXPECT_EQ(Wide(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
  EXPECT_EQ(Narrow(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST_F(NlsTest, CountsTheTerminatorOfALengthOfMinusOne) {
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4);
  EXPECT_EQ(::WideCharToMultiByte(CP_ACP, 0, L"\u00E4", -1, nullptr, 0, nullptr, nullptr), 3);
}

TEST_F(NlsTest, RefusesAZeroLength) {
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", 0, nullptr, 0), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(::WideCharToMultiByte(CP_ACP, 0, L"abc", 0, nullptr, 0, nullptr, nullptr), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(NlsTest, RefusesNullText) {
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, nullptr, 1, nullptr, 0), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(NlsTest, RefusesABufferThatIsTooSmall) {
  wchar_t wide[2];
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, 2), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
  char narrow[2];
  EXPECT_EQ(::WideCharToMultiByte(CP_ACP, 0, L"abc", 3, narrow, 2, nullptr, nullptr), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
}

TEST_F(NlsTest, MakesADefaultCharacterOfWhatIsNoCharacter) {
  EXPECT_EQ(Narrow({L'a', wchar_t{0xD800}, L'b', wchar_t{0x110000}}),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(NlsDeathTest, HonoursNoOtherCodePageAndNoFlag) {
  Server server;
  EXPECT_DEATH(::MultiByteToWideChar(65001, 0, "a", 1, nullptr, 0), "code page");
  EXPECT_DEATH(::MultiByteToWideChar(CP_ACP, 8, "a", 1, nullptr, 0), "flag");
  EXPECT_DEATH(::WideCharToMultiByte(CP_ACP, 0, L"a", 1, nullptr, 0, "?", nullptr), "default");
}

struct Broken {
  const char* name;
  const char* bytes;
  const wchar_t* wide;
};

std::ostream& operator<<(std::ostream& out, const Broken& test) { return out << test.name; }

class BrokenUtf8 : public testing::TestWithParam<Broken> {};

TEST_P(BrokenUtf8, BecomesOneReplacementForEachPiece) {
  EXPECT_EQ(WideFromUtf8(GetParam().bytes), GetParam().wide);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BrokenUtf8,
    testing::Values(Broken{"AFollowerAlone",
                           "a\x80"
                           "b",
                           L"a\xFFFD"
                           L"b"},
                    Broken{"ACharacterCutShort", "\xE4\xB8", L"\xFFFD"},
                    Broken{"ACharacterCutByAnother", "\xE4\xB8z", L"\xFFFDz"},
                    Broken{"AnOverlongFormOfTwo", "\xC0\x80", L"\xFFFD\xFFFD"},
                    Broken{"AnOverlongFormOfThree", "\xE0\x80\x80", L"\xFFFD\xFFFD\xFFFD"},
                    Broken{"ASurrogate", "\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
                    Broken{"BeyondTheLastCharacter", "\xF4\x90\x80\x80",
                           L"\xFFFD\xFFFD\xFFFD\xFFFD"},
                    Broken{"AFourByteCharacterCutShort", "\xF0\x9F\x98", L"\xFFFD"},
                    Broken{"AByteOfNoCharacter", "\xFF", L"\xFFFD"}),
    tests::NamedAsPrinted());

TEST(Utf8, KeepsEveryCharacter) {
  for (wchar_t c = 1; c <= 0x10FFFF; c += c < 0x1000 ? 1 : 37) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    ASSERT_EQ(WideFromUtf8(Utf8FromWide({&c, 1})), std::wstring(1, c));
  }
}

}  // namespace
}  // namespace simulator
