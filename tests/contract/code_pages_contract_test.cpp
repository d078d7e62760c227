// Conversion between wide text and UTF-8, which is the ANSI code page of a simulated server.
#include <windows.h>

#include <string>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

#ifdef _WIN32
constexpr UINT kUtf8 = CP_UTF8;
#else
constexpr UINT kUtf8 = CP_ACP;
#endif

class CodePageContract : public HostTest {};

std::wstring Wide(const std::string& text) {
  wchar_t buffer[64];
  const int length =
      ::MultiByteToWideChar(kUtf8, 0, text.data(), static_cast<int>(text.size()), buffer, 64);
  EXPECT_EQ(::MultiByteToWideChar(kUtf8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0),
            length);
  return {buffer, static_cast<size_t>(length)};
}

std::string Narrow(const std::wstring& text) {
  char buffer[64];
  const int size = static_cast<int>(text.size());
  const int length =
      ::WideCharToMultiByte(kUtf8, 0, text.data(), size, buffer, 64, nullptr, nullptr);
  EXPECT_EQ(::WideCharToMultiByte(kUtf8, 0, text.data(), size, nullptr, 0, nullptr, nullptr),
            length);
  return {buffer, static_cast<size_t>(length)};
}

TEST_F(CodePageContract, ConvertsThereAndBack) {
  const struct {
    std::string narrow;
    std::wstring wide;
  } cases[] = {
      {"abc", L"abc"},
      {"\xC3\xA4", L"\u00E4"},
      {"\xE4\xB8\xAD", L"\u4E2D"},
      {"\xF0\x9F\x98\x80", L"\U0001F600"},
      {"\xEF\xBF\xBD", L"\uFFFD"},
      {"\xEF\xBB\xBF", L"\uFEFF"},
      {std::string("a\0b\0", 4), std::wstring(L"a\0b\0", 4)},
      {"\r\n\t\x1A\x7F", L"\r\n\t\x1A\x7F"},
  };
  for (const auto& [narrow, wide] : cases) {
    EXPECT_EQ(Wide(narrow), wide);
    EXPECT_EQ(Narrow(wide), narrow);
  }
}

TEST_F(CodePageContract, WhatIsNoUtf8BecomesReplacementCharacters) {
  const struct {
    std::string narrow;
    std::wstring wide;
  } cases[] = {
      {"\xFF", L"\uFFFD"},
      {"\x80\x80", L"\uFFFD\uFFFD"},
      {"\xC3", L"\uFFFD"},
      {"\xC3x", L"\uFFFDx"},
      {"\xE4\xB8", L"\uFFFD"},
      {"\xE4\xB8x", L"\uFFFDx"},
      {"\xE4\xB8\xE4\xB8\xAD", L"\uFFFD\u4E2D"},
      {"\xF0\x9F\x98", L"\uFFFD"},
      {"\xC0\x80", L"\uFFFD\uFFFD"},
      {"\xF5\x80\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
  };
  for (const auto& [narrow, wide] : cases) EXPECT_EQ(Wide(narrow), wide);
}

TEST_F(CodePageContract, EveryByteOfAnImpossibleCharacterIsReplaced) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kUtf8Practice;
  EXPECT_EQ(Wide("\xE0\x80\x80"), L"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(Wide("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(Wide("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST_F(CodePageContract, ALoneSurrogateBecomesTheReplacementCharacter) {
  EXPECT_EQ(Narrow(std::wstring(1, wchar_t{0xD800})), "\xEF\xBF\xBD");
  EXPECT_EQ(Narrow(std::wstring(1, wchar_t{0xDC00}) + L"x"), "\xEF\xBF\xBDx");
}

TEST_F(CodePageContract, ANegativeLengthConvertsTheTerminatorToo) {
  wchar_t wide[8] = {};
  EXPECT_EQ(::MultiByteToWideChar(kUtf8, 0, "abc", -1, wide, 8), 4);
  EXPECT_STREQ(wide, L"abc");
  char narrow[8] = {};
  EXPECT_EQ(::WideCharToMultiByte(kUtf8, 0, L"abc", -1, narrow, 8, nullptr, nullptr), 4);
  EXPECT_STREQ(narrow, "abc");
  EXPECT_EQ(::MultiByteToWideChar(kUtf8, 0, "abc", -1, nullptr, 0), 4);
  EXPECT_EQ(::WideCharToMultiByte(kUtf8, 0, L"abc", -1, nullptr, 0, nullptr, nullptr), 4);
}

TEST_F(CodePageContract, AnExactBufferIsNotTerminated) {
  wchar_t wide[4] = L"###";
  EXPECT_EQ(::MultiByteToWideChar(kUtf8, 0, "ab", 2, wide, 2), 2);
  EXPECT_STREQ(wide, L"ab#");
  char narrow[4] = "###";
  EXPECT_EQ(::WideCharToMultiByte(kUtf8, 0, L"ab", 2, narrow, 2, nullptr, nullptr), 2);
  EXPECT_STREQ(narrow, "ab#");
}

TEST_F(CodePageContract, ATooSmallBufferIsAnError) {
  wchar_t wide[4];
  char narrow[4];
  EXPECT_EQ(ErrorOf([&] { return ::MultiByteToWideChar(kUtf8, 0, "abc", 3, wide, 2); }),
            ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(ErrorOf([&] { return ::MultiByteToWideChar(kUtf8, 0, "abc", -1, wide, 3); }),
            ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(ErrorOf([&] {
              return ::WideCharToMultiByte(kUtf8, 0, L"ab\u4E2D", 3, narrow, 4, nullptr, nullptr);
            }),
            ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(CodePageContract, RefusesWrongArguments) {
  wchar_t wide[4];
  char narrow[4];
  const auto to_wide = [](const char* text, int length, wchar_t* buffer, int size) {
    return ErrorOf([&] { return ::MultiByteToWideChar(kUtf8, 0, text, length, buffer, size); });
  };
  const auto to_narrow = [](const wchar_t* text, int length, char* buffer, int size) {
    return ErrorOf([&] {
      return ::WideCharToMultiByte(kUtf8, 0, text, length, buffer, size, nullptr, nullptr);
    });
  };
  EXPECT_EQ(to_wide("abc", 0, wide, 4), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_wide(nullptr, 3, wide, 4), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_wide("abc", 3, wide, -1), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_wide("abc", 3, nullptr, 4), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_narrow(L"abc", 0, narrow, 4), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_narrow(nullptr, 3, narrow, 4), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_narrow(L"abc", 3, narrow, -1), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(to_narrow(L"abc", 3, nullptr, 4), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace tests
