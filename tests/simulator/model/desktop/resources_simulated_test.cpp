#include <gtest/gtest.h>

#include "simulator/model/desktop/resource_script.h"
#include "simulator/model/desktop/resources.h"

namespace {

using simulator::ReadResources;
using simulator::Resources;

using Strings = std::map<std::pair<LANGID, UINT>, std::string>;

Strings Read(std::string_view script) {
  const Resources read = ReadResources(script, "#define IDS_A 7\n#define IDS_B 0x10\n");
  EXPECT_EQ(read.error, "");
  return read.strings;
}

std::string ErrorOf(std::string_view script) {
  return ReadResources(script, "#define IDS_A 7\n").error;
}

TEST(ResourceStrings, ResolveNamesAndNumbers) {
  EXPECT_EQ(Read("STRINGTABLE\nBEGIN\n IDS_A \"a\"\n IDS_B, \"b\"\n 3 \"c\"\nEND\n"),
            (Strings{{{1033, 7}, "a"}, {{1033, 16}, "b"}, {{1033, 3}, "c"}}));
}

TEST(ResourceStrings, BelongToTheLanguageInForce) {
  EXPECT_EQ(Read("LANGUAGE 0x09, 0x01\nSTRINGTABLE { 1 \"a\" }\n"
                 "LANGUAGE 0x04, 0x02\nSTRINGTABLE { 1 \"b\" }\n"),
            (Strings{{{1033, 1}, "a"}, {{2052, 1}, "b"}}));
}

TEST(ResourceStrings, MayNameALanguageForOneTable) {
  EXPECT_EQ(Read("STRINGTABLE DISCARDABLE LANGUAGE 4, 2 { 1 \"a\" } STRINGTABLE { 1 \"b\" }"),
            (Strings{{{2052, 1}, "a"}, {{1033, 1}, "b"}}));
}

TEST(ResourceStrings, HoldQuotationMarksTwiceAndEscapes) {
  EXPECT_EQ(Read(R"(STRINGTABLE { 1 "say ""x""" 2 "a\n\t\\b" 3 "" })"),
            (Strings{{{1033, 1}, "say \"x\""}, {{1033, 2}, "a\n\t\\b"}, {{1033, 3}, ""}}));
}

TEST(ResourceStrings, StandBetweenComments) {
  EXPECT_EQ(Read("// STRINGTABLE {\n/* \" */ STRINGTABLE { 1 \"a // b\" // c\n }"),
            (Strings{{{1033, 1}, "a // b"}}));
}

TEST(ResourceStrings, AreFoundBetweenOtherResources) {
  EXPECT_EQ(Read("\xEF\xBB\xBF#include \"ui/resource.h\"\n#pragma code_page(65001)\n"
                 "1 24 \"tool.manifest\"\nIDR_TOOL RT_MANIFEST \"tool.manifest\"\n"
                 "1 VERSIONINFO\nFILEVERSION 1,1,0,1\nFILEFLAGSMASK 0x3fL\n"
                 "BEGIN\n BLOCK \"StringFileInfo\"\n BEGIN\n  VALUE \"END\", \"x\\0\"\n END\nEND\n"
                 "stringtable begin 1 \"a\" end"),
            (Strings{{{1033, 1}, "a"}}));
}

TEST(ResourceStrings, HoldAZeroWhereItIsEscaped) {
  EXPECT_EQ(Read("STRINGTABLE { 1 \"a\\0b\" }"), (Strings{{{1033, 1}, std::string("a\0b", 3)}}));
}

TEST(ResourceIcons, AreTheirFiles) {
  const Resources read = ReadResources(
      "IDI_A ICON \"icons/a.ico\"\n5 icon DISCARDABLE \"b.ico\"\n"
      "LANGUAGE 4, 2\n5 ICON \"c.ico\"",
      "#define IDI_A 104");
  EXPECT_EQ(read.error, "");
  EXPECT_EQ(read.icons,
            (Strings{{{1033, 104}, "icons/a.ico"}, {{1033, 5}, "b.ico"}, {{2052, 5}, "c.ico"}}));
}

TEST(ResourceIcons, NameTheLineOfWhatIsWrong) {
  EXPECT_EQ(ErrorOf("\n7 ICON a.ico"), "line 2: expected a text");
  EXPECT_EQ(ErrorOf("7 ICON \"a\"\nIDS_A ICON \"b\"\n"), "line 3: a second icon of the same id");
}

TEST(ResourceStrings, NameTheLineOfWhatIsWrong) {
  EXPECT_EQ(ErrorOf("STRINGTABLE\n{\nIDS_Z \"a\"\n}"), "line 3: expected a number or a known name");
  EXPECT_EQ(ErrorOf("STRINGTABLE {\nIDS_A 3\n}"), "line 2: expected a text");
  EXPECT_EQ(ErrorOf("STRINGTABLE { 1 \"a\" }\nSTRINGTABLE { 1 \"b\" }"),
            "line 2: a second text of the same id");
  EXPECT_EQ(ErrorOf("STRINGTABLE { 1 \"a\n\" }"), "line 1: a text without an end");
  EXPECT_EQ(ErrorOf("STRINGTABLE { 1 \"\\q\" }"), "line 1: an unknown escape");
  EXPECT_EQ(ErrorOf("STRINGTABLE { 1 \"a\""), "line 1: a string table without an end");
  EXPECT_EQ(ErrorOf("1 MENU {"), "line 1: a block without an end");
  EXPECT_EQ(ErrorOf("LANGUAGE 9 1"), "line 1: expected a comma");
  EXPECT_EQ(ErrorOf("\n#ifdef A"), "line 2: only #include and #pragma are honoured");
}

TEST(ResourceStrings, OfTheProgramAreReadable) {
  const Resources read = ReadResources(simulator::kResourceScript, simulator::kResourceNames);
  EXPECT_EQ(read.error, "");
  for (const UINT id : {112u, 113u, 114u, 115u, 116u, 117u}) {
    EXPECT_TRUE(read.strings.contains({1033, id})) << id;
    EXPECT_TRUE(read.strings.contains({2052, id})) << id;
  }
}

}  // namespace
