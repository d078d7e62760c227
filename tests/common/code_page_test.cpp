#include "common/code_page.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "support/host.h"

namespace common {
namespace {

using namespace std::string_literals;

using CodePageTest = tests::HostTest;

std::string EveryAsciiCharacter() {
  std::string text;
  for (char character = 1; character < 127; ++character) text += character;
  return text;
}

TEST_F(CodePageTest, AsciiStaysWhatItIs) {
  const std::string narrow = EveryAsciiCharacter();
  const std::wstring wide(narrow.begin(), narrow.end());
  EXPECT_EQ(NarrowToWide(narrow), wide);
  EXPECT_EQ(WideToNarrow(wide), narrow);
}

TEST_F(CodePageTest, AnEmptyTextGivesAnEmptyText) {
  EXPECT_EQ(NarrowToWide(""), L"");
  EXPECT_EQ(WideToNarrow(L""), "");
}

TEST_F(CodePageTest, TheResultEndsAtTheFirstZeroUnit) {
  EXPECT_EQ(NarrowToWide("ab\0cd"s), L"ab");
  EXPECT_EQ(WideToNarrow(L"ab\0cd"s), "ab");
  EXPECT_EQ(NarrowToWide("\0ab"s), L"");
  EXPECT_EQ(WideToNarrow(L"\0ab"s), "");
  EXPECT_EQ(NarrowToWide("ab\0"s), L"ab");
  EXPECT_EQ(WideToNarrow(L"ab\0"s), "ab");
}

TEST_F(CodePageTest, ConvertsTextOfAnyLength) {
  EXPECT_EQ(NarrowToWide(std::string(1'000'000, 'x')), std::wstring(1'000'000, L'x'));
  EXPECT_EQ(WideToNarrow(std::wstring(1'000'000, L'x')), std::string(1'000'000, 'x'));
}

// The system's own answer for a few units, the default character included.
std::string SystemNarrow(const std::wstring& wide) {
  char bytes[32];
  const int length = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                           bytes, sizeof(bytes), nullptr, nullptr);
  return std::string(bytes, static_cast<size_t>(length));
}

std::wstring SystemWide(const std::string& narrow) {
  wchar_t units[32];
  const int length =
      ::MultiByteToWideChar(CP_ACP, 0, narrow.data(), static_cast<int>(narrow.size()), units, 32);
  return std::wstring(units, static_cast<size_t>(length));
}

TEST_F(CodePageTest, GivesTheSystemsBytesForEveryUnit) {
  for (wchar_t unit = 1; unit < 0xFFFE; ++unit) {
    const std::wstring wide = {L'a', unit, L'z'};
    ASSERT_EQ(WideToNarrow(wide), SystemNarrow(wide)) << int{unit};
  }
}

TEST_F(CodePageTest, GivesTheSystemsUnitsForEveryByte) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string narrow = {'a', static_cast<char>(byte), 'z'};
    EXPECT_EQ(NarrowToWide(narrow), SystemWide(narrow)) << byte;
  }
}

#ifdef _WIN32
TEST_F(CodePageTest, TheFirstConversionSwitchesTheLocaleForGood) {
  NarrowToWide("x");
  const std::string switched = std::setlocale(LC_ALL, nullptr);
  EXPECT_EQ(switched, std::setlocale(LC_ALL, "chs"));
  EXPECT_NE(switched, "C");
}

TEST_F(CodePageTest, OnlyTheFirstConversionSwitchesTheLocale) {
  NarrowToWide("x");
  const std::string switched = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C");
  NarrowToWide("x");
  WideToNarrow(L"x");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  std::setlocale(LC_ALL, switched.c_str());
}
#endif

}  // namespace
}  // namespace common
