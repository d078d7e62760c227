#include "acl/acl_backup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/strings.h"

namespace acl {
namespace {

struct LineCase {
  const char* name;
  std::string line;
  std::string path;
  int32_t attributes;
  std::string sddl;
};

void PrintTo(const LineCase& row, std::ostream* stream) {
  *stream << testing::PrintToString(row.line);
}

class Line : public testing::TestWithParam<LineCase> {};

TEST_P(Line, IsTakenApart) {
  const AclBackupRecord record = ParseAclLine(GetParam().line);
  EXPECT_EQ(record.Path, GetParam().path);
  EXPECT_EQ(record.Attributes, GetParam().attributes);
  EXPECT_EQ(record.Sddl, GetParam().sddl);
}

template <typename Row>
std::string NameOf(const testing::TestParamInfo<Row>& row) {
  return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    WellFormed, Line,
    testing::Values(
        LineCase{"AsWritten", "\"C:\\Data\\x.txt\",32,\"O:BAG:SYD:PAI(A;;FA;;;BA)\"\n",
                 "C:\\Data\\x.txt", 32, "O:BAG:SYD:PAI(A;;FA;;;BA)"},
        LineCase{"WithoutLineEnd", "\"C:\\a\",0,\"D:PAI(A;;FA;;;BA)\"", "C:\\a", 0,
                 "D:PAI(A;;FA;;;BA)"},
        LineCase{"WithCrLf", "\"C:\\a\",1,\"D:\"\r\n", "C:\\a", 1, "D:"},
        LineCase{"InLowerCase", "\"c:\\Data\",0,\"o:bag:syd:ai(a;;fa;;;ba)\"\n", "c:\\Data", 0,
                 "O:BAG:SYD:AI(A;;FA;;;BA)"},
        LineCase{"WithBytesAboveAscii", "\"C:\\\xC3\xA4\xE4\",0,\"D:(A;;FA;;;\xC3\xA4)\"\n",
                 "C:\\\xC3\xA4\xE4", 0, "D:(A;;FA;;;\xC3\xA4)"},
        LineCase{"WithBlanks", "\"C:\\a b \", 32 ,\" D: \"\n", "C:\\a b ", 32, " D: "},
        LineCase{"WithCommasInThePath", "\"C:\\a,b,c\",2,\"D:\"", "C:\\a,b,c", 2, "D:"},
        LineCase{"WithNoAttributes", "\"C:\\a\",,\"D:\"", "C:\\a", 0, "D:"},
        LineCase{"WithNegativeAttributes", "\"C:\\a\",-1,\"D:\"", "C:\\a", -1, "D:"},
        LineCase{"WithASign", "\"C:\\a\",+7,\"D:\"", "C:\\a", 7, "D:"},
        LineCase{"WithAttributesThatEndInText", "\"C:\\a\",32x,\"D:\"", "C:\\a", 32, "D:"},
        LineCase{"WithAttributesThatAreText", "\"C:\\a\",abc,\"D:\"", "C:\\a", 0, "D:"},
        LineCase{"WithManyQuotes", "\"\"\"C:\\a\",0,\"D:\"\"\"\r\n", "C:\\a", 0, "D:"},
        LineCase{"UpToTheFirstZero", std::string("\"C:\\a\",3,\"D:\0(A;;FA;;;BA)\"\n", 23), "C:\\a",
                 3, "D:"}),
    NameOf<LineCase>);

// Positions wrap around: without the first separator the second is searched from the front, and
// without it the last field starts behind the first character.
INSTANTIATE_TEST_SUITE_P(
    Malformed, Line,
    testing::Values(
        LineCase{"Empty", "", "", 0, ""},             //
        LineCase{"OnlyALineFeed", "\n", "", 0, ""},   //
        LineCase{"OnlyALineEnd", "\r\n", "", 0, ""},  //
        LineCase{"OnlyAZero", std::string(1, '\0'), "", 0, ""},
        // The trims never empty a text: the first leaves the line as it is, the second its line
        // end.
        LineCase{"OnlyQuotes", "\"\"\"\n", "\n", 0, ""},
        LineCase{"OnlyOneQuote", "\"", "\"", 0, ""},
        LineCase{"EmptyFieldsBehindThePath", "\"C:\\a\",,\"\"\n", "C:\\a", 0, ":\\A\",,"},
        LineCase{"OneCharacter", "a\n", "a", 0, ""},   //
        LineCase{"Text", "abc\n", "abc", 0, "BC"},     //
        LineCase{"Number", "x32\n", "x32", 32, "32"},  //
        LineCase{"OnlyTheSecondSeparator", "a12,\"d:\n", "a12,\"d:", 12, "D:"},
        LineCase{"SecondSeparatorInFront", ",\"d:\n", ",\"d:", 0, "D:"},
        LineCase{"OnlyTheFirstSeparator", "C:\\a\",17\n", "C:\\a", 17, ":\\A\",17"},
        LineCase{"FirstSeparatorAtTheEnd", "C:\\a\",\n", "C:\\a", 0, ":\\A\","},
        LineCase{"FieldsTouching", "\"C:\\a\",\"D:\"\n", "C:\\a", 0, "D:"},
        LineCase{"EmptyPath", "\",32,\"D:\"\n", ",32,\"D:", 32, "D:"},
        LineCase{"TornBehindThePath", "\"C:\\Data\\fi\n", "C:\\Data\\fi", 0, ":\\DATA\\FI"},
        LineCase{"Utf16", std::string("\xFF\xFE\"\0C\0:\0", 8), "\xFF\xFE", 0, "\xFE"}),
    NameOf<LineCase>);

TEST(ParseAclLine, TakesAnyTwoBytes) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string line{static_cast<char>(first), static_cast<char>(second)};
      const AclBackupRecord record = ParseAclLine(line);
      ASSERT_LE(record.Path.size() + record.Sddl.size(), 3U) << first << " " << second;
    }
  }
}

// Every text of up to seven of the characters that matter: nothing but pieces of the line come out.
TEST(ParseAclLine, GivesPiecesOfTheLineWhateverItIs) {
  const std::string alphabet = "\",x1\n";
  std::vector<std::string> lines{""};
  for (size_t first = 0; lines.back().size() < 7; ++first) {
    for (const char c : alphabet) lines.push_back(lines[first] + c);
  }
  for (const std::string& line : lines) {
    const AclBackupRecord record = ParseAclLine(line);
    ASSERT_NE(line.find(record.Path), std::string::npos) << line;
    ASSERT_NE(common::ToUpperAscii(line).find(record.Sddl), std::string::npos) << line;
  }
}

TEST(ParseAclLine, TakesAMegabyte) {
  const std::string path(1'000'000, 'a');
  EXPECT_EQ(ParseAclLine("\"" + path + "\",5,\"D:\"").Path, path);
  EXPECT_EQ(ParseAclLine(std::string(1'000'000, '"')).Path.size(), 1'000'000U);
}

struct InformationCase {
  const char* name;
  const char* sddl;
  uint32_t information;
};

void PrintTo(const InformationCase& row, std::ostream* stream) {
  *stream << '"' << row.sddl << '"';
}

class Information : public testing::TestWithParam<InformationCase> {};

TEST_P(Information, IsWhatTheTextNames) {
  EXPECT_EQ(SecurityInformationOf(GetParam().sddl), GetParam().information);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Information,
    testing::Values(
        InformationCase{"Nothing", "", 0},                                            //
        InformationCase{"Owner", "O:BA", 0x1},                                        //
        InformationCase{"Group", "G:SY", 0x2},                                        //
        InformationCase{"ProtectedDacl", "D:PAI(A;;FA;;;BA)", 0x80000004},            //
        InformationCase{"OnlyProtected", "D:P(A;;FA;;;BA)", 0x80000004},              //
        InformationCase{"ProtectedBehindOthers", "D:ARAIP(A;;FA;;;BA)", 0x80000004},  //
        InformationCase{"Dacl", "D:(A;;FA;;;BA)", 0x20000004},                        //
        InformationCase{"InheritedDacl", "D:AI(A;;FA;;;BA)", 0x20000004},             //
        InformationCase{"RequestedDacl", "D:ARAI(A;;FA;;;BA)", 0x20000004},           //
        InformationCase{"DaclWithoutEntries", "D:", 0x20000004},                      //
        InformationCase{"ProtectedDaclWithoutEntries", "D:P", 0x20000004},            //
        InformationCase{"PInAnEntry", "D:(A;;RPWP;;;PO)", 0x20000004},                //
        InformationCase{"ProtectedSacl", "S:P(AU;SAFA;FA;;;WD)", 0x40000008},         //
        InformationCase{"Sacl", "S:AI(AU;SAFA;FA;;;WD)", 0x10000008},                 //
        InformationCase{"SaclWithoutEntries", "S:P", 0x10000008},                     //
        InformationCase{"Everything", "O:BAG:SYD:PAI(A;;FA;;;BA)S:AI(AU;SAFA;FA;;;WD)",
                        0x8000000F | 0x10000000},
        InformationCase{"BothProtected", "D:P(A;;FA;;;BA)S:PAI(AU;SAFA;FA;;;WD)", 0xC000000C},
        // The first entry that is found ends the control letters, even one of the other list.
        InformationCase{"ProtectionOfTheOtherList", "D:S:P(AU;SAFA;FA;;;WD)", 0xC000000C},
        InformationCase{"OwnerInAnEntry", "D:(XA;;FA;;;WD;(@USER.A==\"O:\"))", 0x20000005},
        InformationCase{"LowerCase", "o:bag:syd:p(a;;fa;;;ba)", 0}),
    NameOf<InformationCase>);

}  // namespace
}  // namespace acl
