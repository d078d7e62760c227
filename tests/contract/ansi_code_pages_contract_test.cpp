// Conversion between wide text and the code pages of Windows servers. The tables are those of
// https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS/
#include <windows.h>

#include <ostream>
#include <string>

#include "support/code_page.h"
#include "support/host.h"
#include "support/test_names.h"

namespace tests {
namespace {

std::wstring Wide(UINT code_page, const std::string& text) {
  wchar_t buffer[64];
  const int length = ::MultiByteToWideChar(NamedCodePage(code_page), 0, text.data(),
                                           static_cast<int>(text.size()), buffer, 64);
  return {buffer, static_cast<size_t>(length)};
}

std::string Narrow(UINT code_page, const std::wstring& text) {
  char buffer[64];
  const int length =
      ::WideCharToMultiByte(NamedCodePage(code_page), 0, text.data(), static_cast<int>(text.size()),
                            buffer, 64, nullptr, nullptr);
  return {buffer, static_cast<size_t>(length)};
}

struct Text {
  const char* about;
  UINT code_page;
  std::string bytes;
  std::wstring characters;

  friend void PrintTo(const Text& text, std::ostream* out) {
    *out << text.about << " in " << text.code_page;
  }
};

class AnsiCodePageContract : public HostTest, public testing::WithParamInterface<Text> {};

class Characters : public AnsiCodePageContract {};

TEST_P(Characters, AreConvertedThereAndBack) {
  const auto& [about, code_page, bytes, characters] = GetParam();
  EXPECT_EQ(Wide(code_page, bytes), characters);
  EXPECT_EQ(Narrow(code_page, characters), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    AnsiCodePageContract, Characters,
    testing::Values(
        Text{"ascii", 1252, "A\\z~\x7F", L"A\\z~\x7F"},
        Text{"umlauts", 1252, "\xC4\xD6\xDC\xE4\xF6\xFC\xDF",
             L"\u00C4\u00D6\u00DC\u00E4\u00F6\u00FC\u00DF"},
        Text{"the euro and others from 80", 1252, "\x80\x8A\x9F", L"\u20AC\u0160\u0178"},
        // Without a character in the table: the control of that number.
        Text{"undefined bytes", 1252, "\x81\x8D\x8F\x90\x9D", L"\x81\x8D\x8F\x90\x9D"},
        Text{"polish", 1250, "\xA3\x9C\xBF", L"\u0141\u015B\u017C"},
        Text{"russian", 1251, "\xC0\xFF\xA8\x98", L"\u0410\u044F\u0401\x98"},
        Text{"turkish", 1254, "\xD0\xFD", L"\u011E\u0131"},
        Text{"the euro", 936, "\x80", L"\u20AC"},
        Text{"chinese", 936, "\xD6\xD0\xCE\xC4", L"\u4E2D\u6587"},
        Text{"the first pair", 936, "\x81\x40", L"\u4E02"},
        Text{"backslash as second byte", 936, "\xDF\\\xD5\\\x81\\", L"\u904B\u8AA0\u4E57"},
        Text{"backslash after a pair", 936, "\xD6\xD0\\\xDF\\\\a", L"\u4E2D\\\u904B\\a"},
        Text{"letters as second bytes", 936,
             "\x81"
             "a\x81z",
             L"\u4E64\u4E83"},
        Text{"japanese", 932, "\x93\xFA\x96{", L"\u65E5\u672C"},
        Text{"half-width", 932, "\xB1\xDF", L"\uFF71\uFF9F"},
        Text{"backslash as second byte", 932, "\x95\\\x83\\\x94\\", L"\u8868\u30BD\u80FD"},
        Text{"full-width signs", 932, "\x81`\x81\x7C\x87@", L"\uFF5E\uFF0D\u2460"},
        Text{"an undefined byte", 932, "\x80", L"\x80"},
        Text{"korean", 949,
             "\xB0\xA1\x81"
             "A",
             L"\uAC00\uAC02"},
        Text{"backslash as second byte", 950, "\xB3\\\xA5\\\xBB\\", L"\u8A31\u529F\u84CB"}),
    NamedAsPrinted());

class Missing : public AnsiCodePageContract {};

TEST_P(Missing, BecomeTheDefaultCharacter) {
  EXPECT_EQ(Narrow(GetParam().code_page, GetParam().characters), GetParam().bytes);
}

// None of them has a similar character in the code page, which Windows would choose.
INSTANTIATE_TEST_SUITE_P(
    AnsiCodePageContract, Missing,
    testing::Values(Text{"chinese", 1252, "?a?", L"\u4E2Da\u6587"},
                    Text{"russian", 1252, "?", L"\u0416"},
                    Text{"umlauts", 936, "Gr??e", L"Gr\u00F6\u00DFe"},
                    Text{"korean", 936, "?", L"\uAC00"}, Text{"korean", 932, "?", L"\uAC00"},
                    Text{"a dash", 932, "?", L"\u2014"}, Text{"chinese", 949, "?", L"\u4E02"},
                    Text{"japanese", 950, "?", L"\u9ED2"},
                    Text{"an emoji", 1252, "a??b", L"a\U0001F600b"},
                    Text{"an emoji", 936, "a??b", L"a\U0001F600b"},
                    Text{"a lone surrogate", 1252, "?", std::wstring(1, wchar_t{0xD800})}),
    NamedAsPrinted());

class UndefinedPairs : public AnsiCodePageContract {};

TEST_P(UndefinedPairs, BecomeOneDefaultCharacter) {
  EXPECT_EQ(Wide(GetParam().code_page, GetParam().bytes), GetParam().characters);
}

INSTANTIATE_TEST_SUITE_P(AnsiCodePageContract, UndefinedPairs,
                         testing::Values(Text{"delete as second byte", 936, "\x81\x7Fx", L"?x"},
                                         Text{"a blank as second byte", 936, "\x81 x", L"?x"},
                                         Text{"a blank as second byte", 950, "\x81 x", L"?x"},
                                         Text{"a second byte at will", 949, "\x81@x", L"?x"},
                                         Text{"delete as second byte", 932, "\x81\x7Fx",
                                              L"\u30FBx"}),
                         NamedAsPrinted());

class AnsiCodePageSizes : public HostTest {};

TEST_F(AnsiCodePageSizes, CountUnitsAndBytes) {
  const UINT page = NamedCodePage(936);
  EXPECT_EQ(::MultiByteToWideChar(page, 0, "\xDF\\a", -1, nullptr, 0), 3);
  EXPECT_EQ(::WideCharToMultiByte(page, 0, L"\u904Ba", -1, nullptr, 0, nullptr, nullptr), 4);
}

}  // namespace
}  // namespace tests
