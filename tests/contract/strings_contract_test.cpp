// Formatting by wide templates and string resources.
#include <windows.h>

#include <stdarg.h>
#include <stdio.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "support/host.h"
#include "ui/resource.h"

namespace tests {
namespace {

class WideFormatContract : public HostTest {
 protected:
  WideFormatContract() { std::fill(std::begin(buffer_), std::end(buffer_), L'#'); }

  int FormatInto(size_t count, const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = ::_vsnwprintf(buffer_, count, format, arguments);
    va_end(arguments);
    return length;
  }

  template <typename... Arguments>
  std::wstring Format(const wchar_t* format, Arguments... arguments) {
    const int length = FormatInto(std::size(buffer_), format, arguments...);
    EXPECT_GE(length, 0);
    EXPECT_EQ(buffer_[length], L'\0');
    return {buffer_, static_cast<size_t>(length)};
  }

  wchar_t buffer_[64];
};

TEST_F(WideFormatContract, TextAndCharactersAreWide) {
  EXPECT_EQ(Format(L"<%s>%c", L"wide \u4E2D", L'\u00E4'), L"<wide \u4E2D>\u00E4");
}

TEST_F(WideFormatContract, TextIsCutAndPadded) {
  EXPECT_EQ(Format(L"%.3s|%6.2s|%-4s|", L"abcdef", L"abcdef", L"ab"), L"abc|    ab|ab  |");
  EXPECT_EQ(Format(L"%*s|%.*s", 4, L"a", 1, L"bc"), L"   a|b");
  EXPECT_EQ(Format(L"%3c|%-3c|", L'a', L'b'), L"  a|b  |");
}

TEST_F(WideFormatContract, NoTextIsNamed) {
  EXPECT_EQ(Format(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST_F(WideFormatContract, NumbersAreFormattedAsEverywhere) {
  EXPECT_EQ(Format(L"%d %u", -5, 4'000'000'000u), L"-5 4000000000");
  EXPECT_EQ(Format(L"%5d|%-5d|%05d|%+d|% d", 42, 42, 42, 42, 42), L"   42|42   |00042|+42| 42");
  EXPECT_EQ(Format(L"%x %X %#x", 255, 255, 255), L"ff FF 0xff");
  EXPECT_EQ(Format(L"%.3d|%5.3d", 7, 7), L"007|  007");
  EXPECT_EQ(Format(L"%lld %llu", -(1LL << 40), 18446744073709551615ULL),
            L"-1099511627776 18446744073709551615");
}

TEST_F(WideFormatContract, TwoPercentSignsAreOne) {
  EXPECT_EQ(Format(L"100%%|%%d"), L"100%|%d");
  EXPECT_EQ(Format(L""), L"");
}

TEST_F(WideFormatContract, TextThatFillsTheBufferIsNotTerminated) {
  EXPECT_EQ(FormatInto(4, L"abcd"), 4);
  EXPECT_EQ(std::wstring(buffer_, 5), L"abcd#");
}

TEST_F(WideFormatContract, TextThatIsTooLongIsCutWithANegativeAnswer) {
  EXPECT_LT(FormatInto(3, L"abcd"), 0);
  EXPECT_EQ(std::wstring(buffer_, 4), L"abc#");
  EXPECT_LT(FormatInto(0, L"abcd"), 0);
  EXPECT_EQ(buffer_[0], L'a');
}

TEST_F(WideFormatContract, WithRoomItIsTerminated) {
  EXPECT_EQ(FormatInto(5, L"abcd"), 4);
  EXPECT_EQ(std::wstring(buffer_, 6), std::wstring(L"abcd\0#", 6));
}

class StringResourceContract : public HostTest {};

TEST_F(StringResourceContract, OtherNumbersHaveNoString) {
  for (const UINT id : {0u, 1u, 9'999u, 0xFFFFu}) {
    char narrow[8] = "before";
    EXPECT_EQ(::LoadStringA(nullptr, id, narrow, 8), 0) << id;
    EXPECT_STREQ(narrow, "") << id;
    wchar_t wide[8] = L"before";
    EXPECT_EQ(::LoadStringW(nullptr, id, wide, 8), 0) << id;
  }
}

TEST_F(StringResourceContract, StringsAreCutToTheBuffer) {
  char narrow[64];
  const int length = ::LoadStringA(nullptr, IDS_PROGRESS, narrow, 64);
#ifdef _WIN32
  if (length == 0) GTEST_SKIP() << "the test program is linked without the program's resources";
#endif
  const std::string text(narrow, static_cast<size_t>(length));
  ASSERT_GT(text.size(), 4u);
  EXPECT_EQ(::LoadStringA(nullptr, IDS_PROGRESS, narrow, 4), 3);
  EXPECT_EQ(narrow, text.substr(0, 3));
  wchar_t wide[64];
  EXPECT_EQ(::LoadStringW(nullptr, IDS_PROGRESS, wide, 64), length);
  EXPECT_EQ(std::wstring(wide), std::wstring(text.begin(), text.end()));
  EXPECT_EQ(::LoadStringW(nullptr, IDS_PROGRESS, wide, 4), 3);
  EXPECT_EQ(std::wstring(wide), std::wstring(text.begin(), text.begin() + 3));
  EXPECT_EQ(::LoadStringW(nullptr, IDS_PROGRESS, wide, 1), 0);
}

}  // namespace
}  // namespace tests
