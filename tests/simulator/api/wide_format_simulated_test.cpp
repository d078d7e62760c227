#include <gtest/gtest.h>
#include <stdio.h>

#include <array>
#include <cstdarg>
#include <string>

namespace {

int FormatInto(wchar_t* buffer, size_t count, const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = _vsnwprintf(buffer, count, format, arguments);
  va_end(arguments);
  return result;
}

template <typename... Arguments>
std::wstring Format(const wchar_t* format, Arguments... arguments) {
  std::array<wchar_t, 200> buffer{};
  const int length = FormatInto(buffer.data(), buffer.size(), format, arguments...);
  EXPECT_EQ(length, static_cast<int>(std::wstring(buffer.data()).size()));
  return buffer.data();
}

TEST(WideFormat, TakesWideTextForSmallS) {
  EXPECT_EQ(Format(L"%s|%s", L"w\u00E4", L"\u4E2D"), L"w\u00E4|\u4E2D");
}

TEST(WideFormat, TakesWideCharactersForSmallC) {
  EXPECT_EQ(Format(L"%c%c", L'\u4E2D', L'b'), L"\u4E2Db");
}

TEST(WideFormat, PadsAndCutsText) {
  EXPECT_EQ(Format(L"[%5s|%-5s|%.2s|%*s]", L"ab", L"ab", L"abc", -4, L"x"),
            L"[   ab|ab   |ab|x   ]");
}

TEST(WideFormat, FormatsNumbers) {
  EXPECT_EQ(
      Format(L"%d %u %#x %05d %+d %.3d %lld 100%%", -1, 4294967295u, 255, 42, 7, 5, -5000000000LL),
      L"-1 4294967295 0xff 00042 +7 005 -5000000000 100%");
}

TEST(WideFormat, TakesTextOfAnyLength) {
  const std::wstring text(100000, L'x');
  std::wstring buffer(text.size() + 1, L'\0');
  EXPECT_EQ(FormatInto(buffer.data(), buffer.size(), L"%s", text.c_str()), 100000);
  EXPECT_EQ(buffer.c_str(), text);
}

TEST(WideFormat, TerminatesWhatIsShorterThanTheCount) {
  wchar_t buffer[] = L"xxxxx";
  EXPECT_EQ(FormatInto(buffer, 4, L"%s", L"abc"), 3);
  EXPECT_EQ(std::wstring(buffer, 5), std::wstring(L"abc\0x", 5));
}

TEST(WideFormat, TerminatesNothingThatFillsTheCount) {
  wchar_t buffer[] = L"xxxxx";
  EXPECT_EQ(FormatInto(buffer, 3, L"%s", L"abc"), 3);
  EXPECT_EQ(std::wstring(buffer), L"abcxx");
}

TEST(WideFormat, IsNegativeWhenItCuts) {
  wchar_t buffer[] = L"xxxxx";
  EXPECT_EQ(FormatInto(buffer, 2, L"%s", L"abc"), -1);
  EXPECT_EQ(std::wstring(buffer), L"abxxx");
}

TEST(WideFormatDeathTest, HonoursNothingWhoseArgumentHasAnotherSizeOnWindows) {
  wchar_t buffer[8];
  EXPECT_DEATH(FormatInto(buffer, 8, L"%ld", 1), "a conversion of a wide template");
  EXPECT_DEATH(FormatInto(buffer, 8, L"%n", nullptr), "a conversion of a wide template");
  EXPECT_DEATH(FormatInto(buffer, 8, L"%S", "narrow"), "a conversion of a wide template");
  EXPECT_DEATH(FormatInto(buffer, 8, L"%lls", L"wide"), "text of that size");
  EXPECT_DEATH(FormatInto(buffer, 8, L"100%"), "ends within a conversion");
}

}  // namespace
