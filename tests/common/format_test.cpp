#include "common/format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/host.h"

namespace common {
namespace {

COMMON_PRINTF_FORMAT(2, 3)
std::string Format(size_t max_length, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const std::string text = FormatCut(max_length, format, arguments);
  va_end(arguments);
  return text;
}

std::wstring FormatWide(size_t max_length, const wchar_t* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const std::wstring text = FormatCut(max_length, format, arguments);
  va_end(arguments);
  return text;
}

using FormatCutTest = tests::HostTest;

TEST_F(FormatCutTest, FormatsLikePrintf) {
  EXPECT_EQ(Format(2046, "%s has %d disks, %05.1f%% of %c", "C:", 3, 2.5, 'x'),
            "C: has 3 disks, 002.5% of x");
  EXPECT_EQ(Format(2046, "%s", ""), "");
}

TEST_F(FormatCutTest, KeepsTextThatJustFits) {
  const std::string text(2046, 'a');
  EXPECT_EQ(Format(2046, "%s", text.c_str()), text);
}

TEST_F(FormatCutTest, CutsBehindTheMaximum) {
  EXPECT_EQ(Format(2046, "%s", std::string(2047, 'a').c_str()), std::string(2046, 'a'));
  EXPECT_EQ(Format(2046, "%s", std::string(100'000, 'a').c_str()), std::string(2046, 'a'));
  EXPECT_EQ(Format(3, "%d", 12345), "123");
  EXPECT_EQ(Format(0, "%d", 12345), "");
}

TEST_F(FormatCutTest, KeepsAnyBytes) {
  EXPECT_EQ(Format(2046, "%s", "\xFF\xFE\x80 \xE4\xB8\xAD %d"), "\xFF\xFE\x80 \xE4\xB8\xAD %d");
}

TEST_F(FormatCutTest, FormatsWideTemplates) {
  EXPECT_EQ(FormatWide(2046, L"%d disks, %08X", 3, 0xBEEFu), L"3 disks, 0000BEEF");
  EXPECT_EQ(FormatWide(2046, L"%u%%", 50u), L"50%");
}

TEST_F(FormatCutTest, TakesWideTextForAWideTemplate) {
  EXPECT_EQ(FormatWide(2046, L"<%s>", L"wide"), L"<wide>");
}

TEST_F(FormatCutTest, KeepsWideTextThatJustFits) {
  const std::wstring text(2046, L'a');
  EXPECT_EQ(FormatWide(2046, L"%s", text.c_str()), text);
}

TEST_F(FormatCutTest, CutsWideTextBehindTheMaximum) {
  EXPECT_EQ(FormatWide(2046, L"%s", std::wstring(2047, L'a').c_str()), std::wstring(2046, L'a'));
  EXPECT_EQ(FormatWide(2046, L"%s", std::wstring(100'000, L'a').c_str()), std::wstring(2046, L'a'));
  EXPECT_EQ(FormatWide(3, L"%d", 12345), L"123");
}

struct TemplateCase {
  std::string text;
  std::string printed;
};

TEST(ExpandTemplate, MakesOnePercentSignOfTwo) {
  const std::vector<TemplateCase> cases = {
      {"%%", "%"},    {"100%%", "100%"}, {"%%a%%", "%a%"},
      {"%%%%", "%%"}, {"%%d", "%d"},     {"a%%%%%%b", "a%%%b"},
  };
  for (const TemplateCase& test : cases) EXPECT_EQ(ExpandTemplate(test.text), test.printed);
}

TEST(ExpandTemplate, LeavesEverythingElseAsItIs) {
  using namespace std::string_literals;
  for (const std::string& text : {""s, "plain"s, "%"s, "50% of it"s, "%s"s, "%n"s, "%1$s %2$n"s,
                                  "%*.*f"s, "%d%"s, "a\0b%"s, "\xFF%\xFE"s, "\r\n"s}) {
    EXPECT_EQ(ExpandTemplate(text), text);
  }
}

TEST(ExpandTemplate, PairsPercentSignsFromTheLeft) {
  EXPECT_EQ(ExpandTemplate("%%%"), "%%");
  EXPECT_EQ(ExpandTemplate("%%%d"), "%%d");
  EXPECT_EQ(ExpandTemplate(std::string(100'001, '%')), std::string(50'001, '%'));
}

}  // namespace
}  // namespace common
