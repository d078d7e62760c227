#include <gtest/gtest.h>

#include "simulator/model/common/command_line.h"

namespace {

using simulator::ProgramName;
using simulator::ProgramOf;
using simulator::SplitCommandLine;

using Arguments = std::vector<std::string>;

TEST(ProgramOf, EndsAtTheFirstBlank) {
  EXPECT_EQ(ProgramOf("diskpart /s C:\\a b"), "diskpart");
  EXPECT_EQ(ProgramOf("diskpart\t/s"), "diskpart");
  EXPECT_EQ(ProgramOf("diskpart"), "diskpart");
}

TEST(ProgramOf, StandsBetweenQuotationMarks) {
  EXPECT_EQ(ProgramOf("\"C:\\Program Files\\a.exe\" x"), "C:\\Program Files\\a.exe");
  EXPECT_EQ(ProgramOf("\"open"), "open");
}

TEST(ProgramOf, IsEmptyWithoutOne) {
  EXPECT_EQ(ProgramOf(""), "");
  EXPECT_EQ(ProgramOf(" a"), "");
}

TEST(ProgramName, HasNoFolderNoEndingAndNoCase) {
  EXPECT_EQ(ProgramName("C:\\Windows/System32\\DiskPart.EXE"), "diskpart");
  EXPECT_EQ(ProgramName("bcdedit"), "bcdedit");
  EXPECT_EQ(ProgramName("a.com"), "a.com");
}

TEST(SplitCommandLine, SplitsAtRunsOfBlanks) {
  EXPECT_EQ(SplitCommandLine("a  b\tc "), (Arguments{"a", "b", "c"}));
}

TEST(SplitCommandLine, KeepsBlanksWithinQuotationMarks) {
  EXPECT_EQ(SplitCommandLine("\"a b\"c \"d e\"f"), (Arguments{"a bc", "d ef"}));
}

TEST(SplitCommandLine, KeepsAnEmptyArgument) {
  EXPECT_EQ(SplitCommandLine("a \"\" b"), (Arguments{"a", "", "b"}));
}

TEST(SplitCommandLine, HalvesBackslashesBeforeAQuotationMarkOnly) {
  EXPECT_EQ(SplitCommandLine(R"(a b\\c)"), (Arguments{"a", R"(b\\c)"}));
  EXPECT_EQ(SplitCommandLine(R"(a "b\\" c)"), (Arguments{"a", R"(b\)", "c"}));
  EXPECT_EQ(SplitCommandLine(R"(a b\"c)"), (Arguments{"a", R"(b"c)"}));
  EXPECT_EQ(SplitCommandLine(R"(a b\)"), (Arguments{"a", R"(b\)"}));
}

TEST(SplitCommandLine, TakesTwoQuotationMarksWithinAPairForOne) {
  EXPECT_EQ(SplitCommandLine(R"(a "b""c")"), (Arguments{"a", R"(b"c)"}));
}

TEST(SplitCommandLine, HasNoEscapesInTheProgram) {
  EXPECT_EQ(SplitCommandLine(R"("a\" b)"), (Arguments{R"(a\)", "b"}));
}

TEST(SplitCommandLine, GivesAnEmptyProgramForEmptyText) {
  EXPECT_EQ(SplitCommandLine(""), Arguments{""});
}

}  // namespace
