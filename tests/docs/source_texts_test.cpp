// How messages are found in sources and pages.
#include "support/source_texts.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace tests {
namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(const std::string& source) {
  Texts texts;
  for (const SourceText& found : SourceTexts(source)) texts.push_back(found.text);
  return texts;
}

struct SourceCase {
  const char* name;
  const char* source;
  Texts texts;
};

std::ostream& operator<<(std::ostream& out, const SourceCase& test) { return out << test.name; }

const SourceCase kSources[] = {
    {"Literal", R"(f("a b");)", {"a b"}},
    {"Several", R"(f("a" + x + "b", "c");)", {"a", "b", "c"}},
    {"NeighboursOnOneLine", R"(f("a " "b");)", {"a b"}},
    {"NeighboursOnTwoLines", "f(\"a \"\n  \"b\");", {"a b"}},
    {"Escapes", R"(f("\"C:\\x\"\r\n\t");)", {"\"C:\\x\"\r\n\t"}},
    {"LineComment", "// \"a\"\nf(\"b\");", {"b"}},
    {"BlockComment", "/* \"a\" */ f(\"b\");", {"b"}},
    {"CommentMarkInLiteral", R"(f("http://x /* y");)", {"http://x /* y"}},
    {"IncludedFile", "#include \"a.h\"\nf(\"b\");", {"b"}},
    {"QuotationMarkAsCharacter", R"(f('"', "a", '\'', "b");)", {"a", "b"}},
    {"DigitSeparator", R"(f(1'000, "a", 2'000);)", {"a"}},
    {"WideLiteral", R"(f(L"a");)", {"a"}},
    {"NoEnd", R"(f("a)", {"a"}},
};

class SourceTextsOf : public testing::TestWithParam<SourceCase> {};

TEST_P(SourceTextsOf, AreItsLiterals) { EXPECT_EQ(TextsOf(GetParam().source), GetParam().texts); }

INSTANTIATE_TEST_SUITE_P(Sources, SourceTextsOf, testing::ValuesIn(kSources),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(SourceTextsOf, TellWhatStandsInFrontOnTheLine) {
  EXPECT_EQ(SourceTexts("  logger.Warn(\"a\");").at(0).before, "  logger.Warn(");
}

TEST(SourceTextsOf, TellTheLineAboveWhenTheyBeginTheirLine) {
  EXPECT_EQ(SourceTexts("logger.Warn(\n\n    \"a\");").at(0).before, "logger.Warn(");
}

TEST(ResourceTexts, AreThoseThatAreShown) {
  EXPECT_EQ(ResourceTexts("1 24 \"a.manifest\"\n"
                          "VALUE \"FileVersion\", \"1\"\n"
                          "CAPTION \"Title\"\n"
                          "FONT 8, \"Font\"\n"
                          "    LTEXT       \"Note\", IDC_NOTE\n"
                          "    PUSHBUTTON  \"取消\", IDCANCEL\n"
                          "    CONTROL     \"\", IDC_BAR, \"class\"\n"
                          "    IDS_ONE     \"One\"\n"),
            (Texts{"Title", "Note", "取消", "One"}));
}

struct MessageCase {
  const char* message;
  const char* text;
};

TEST(InThePage, HasAnEllipsisForEachConversionAndNoLineEnd) {
  for (const MessageCase& test :
       std::vector<MessageCase>{{"plain", "plain"},
                                {"%s", "…"},
                                {"Step%d Failed, code=%d", "Step… Failed, code=…"},
                                {"[%c]: %08lX, %-5.2f", "[…]: …, …"},
                                {"done!\n", "done!"},
                                {"%s\r\n", "…"},
                                {"", ""}}) {
    EXPECT_EQ(InThePage(test.message), test.text) << test.message;
  }
}

TEST(CodeSpans, StandBetweenBackquotesOfOneLine) {
  EXPECT_EQ(CodeSpans("| `a b` | c `d` |\n`e\nf`\n"), (Texts{"a b", "d"}));
}

}  // namespace
}  // namespace tests
