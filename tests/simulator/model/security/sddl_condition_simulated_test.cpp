#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/security/account_domains.h"
#include "simulator/model/security/sddl_attribute.h"
#include "simulator/model/security/sddl_condition.h"
#include "simulator/model/security/sddl_literals.h"
#include "simulator/model/security/sddl_text.h"
#include "support/test_names.h"

namespace simulator {
namespace {

const AccountDomains kDomains{{5, {21, 1, 2, 3}}, std::nullopt};

std::optional<std::string> Code(const std::string& text) {
  SddlCursor cursor(text);
  std::optional<std::string> code = TakeCondition(cursor, kDomains);
  return cursor.AtEnd() ? code : std::nullopt;
}

std::string Printed(const std::string& text) {
  const std::optional<std::string> code = Code(text);
  if (!code) return "no condition";
  return ConditionText(*code, kDomains).value_or("no code");
}

std::string Sized(char token, const std::string& value) {
  return token + std::string{static_cast<char>(value.size()), 0, 0, 0} + value;
}

TEST(Condition, IsPostfixCodeBehindASignature) {
  EXPECT_EQ(Code("(@User.Project Any_of @Resource.Project)"),
            "artx" + Sized('\xF9', Utf16Bytes("Project")) + Sized('\xFA', Utf16Bytes("Project")) +
                "\x88");
  EXPECT_EQ(Code("(Title==\"VP\")"),
            "artx" + Sized('\xF8', Utf16Bytes("Title")) + Sized('\x10', Utf16Bytes("VP")) + "\x80");
}

TEST(Condition, KeepsIntegersWithTheirSignAndBase) {
  const std::string attribute = "artx" + Sized('\xF8', Utf16Bytes("a"));
  EXPECT_EQ(Code("(a==1)"), attribute + std::string("\x04\1\0\0\0\0\0\0\0\3\2\x80", 12));
  EXPECT_EQ(Code("(a==+010)"), attribute + std::string("\x04\x08\0\0\0\0\0\0\0\1\1\x80", 12));
  EXPECT_EQ(Code("(a==-0x2)"),
            attribute + std::string("\x04\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\2\3\x80", 12));
}

TEST(Condition, KeepsListsInOnePiece) {
  const std::string administrators =
      std::string("\x51\x10\0\0\0\1\2\0\0\0\0\0\5\x20\0\0\0\x20\2\0\0", 21);
  EXPECT_EQ(Code("(Member_of {SID(BA)})"), "artx" + Sized('\x50', administrators) + "\x89");
  EXPECT_EQ(Code("(Member_of SID(BA))"), "artx" + administrators + "\x89");
}

struct Example {
  const char* name;
  const char* text;
  const char* printed;
};

std::ostream& operator<<(std::ostream& out, const Example& test) { return out << test.name; }

class PrintedCondition : public testing::TestWithParam<Example> {};

TEST_P(PrintedCondition, IsFullyBracketed) {
  EXPECT_EQ(Printed(GetParam().text), GetParam().printed);
}

TEST_P(PrintedCondition, MeansTheSame) {
  EXPECT_EQ(Code(GetParam().printed), Code(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Operators, PrintedCondition,
    testing::Values(
        Example{"Attribute", "(a)", "(a)"}, Example{"Blanks", "( a )", "(a)"},
        Example{"Brackets", "((a))", "(a)"}, Example{"Not", "(!a)", "(!(a))"},
        Example{"NotOfAComparison", "(!a==1)", "(!(a == 1))"},
        Example{"AndBindsCloser", "(a||b&&c)", "(a || (b && c))"},
        Example{"AndInFront", "(a&&b||c)", "((a && b) || c)"},
        Example{"BracketsAroundOr", "((a||b)&&c)", "((a || b) && c)"},
        Example{"AndTwice", "(a&&b&&c)", "((a && b) && c)"},
        Example{"NotEqual", "(a!=1)", "(a != 1)"}, Example{"Less", "(a<1)", "(a < 1)"},
        Example{"LessOrEqual", "(a<=1)", "(a <= 1)"}, Example{"Greater", "(a>1)", "(a > 1)"},
        Example{"GreaterOrEqual", "(a>=1)", "(a >= 1)"},
        Example{"ExistsInUpperCase", "(EXISTS WIN://SYSAPPID)", "(Exists WIN://SYSAPPID)"},
        Example{"NotExistsOnTheDevice", "(Not_Exists @device.x)", "(Not_Exists @DEVICE.x)"},
        Example{"BlankBehind", "(a contains {1,\"b\" , #01Ff}) ", "no condition"},
        Example{"Contains", "(a contains {1,\"b\" , #01Ff})", "(a Contains {1, \"b\", #01ff})"},
        Example{"NotContains", "(a Not_Contains 1)", "(a Not_Contains 1)"},
        Example{"NotAnyOf", "(a Not_Any_of {1})", "(a Not_Any_of {1})"},
        Example{"MemberOfAnyInUpperCase", "(MEMBER_OF_ANY{SID(BA),SID(SY)})",
                "(Member_of_Any {SID(BA), SID(SY)})"},
        Example{"DeviceMemberOf", "(Device_Member_of {SID(BA)})", "(Device_Member_of {SID(BA)})"},
        Example{"DeviceMemberOfAny", "(Device_Member_of_Any {SID(BA)})",
                "(Device_Member_of_Any {SID(BA)})"},
        Example{"NotMemberOf", "(Not_Member_of {SID(BA)})", "(Not_Member_of {SID(BA)})"},
        Example{"NotMemberOfAny", "(Not_Member_of_Any {SID(BA)})", "(Not_Member_of_Any {SID(BA)})"},
        Example{"NotDeviceMemberOf", "(Not_Device_Member_of {SID(BA)})",
                "(Not_Device_Member_of {SID(BA)})"},
        Example{"NotDeviceMemberOfAny", "(Not_Device_Member_of_Any {SID(BA)})",
                "(Not_Device_Member_of_Any {SID(BA)})"},
        Example{"WordThatBeginsAsAnOperator", "(Members==1)", "(Members == 1)"},
        Example{"NameOfAClaim", "(@User.a%0020b==\"\xC3\xA4\xF0\x9F\x98\x80\")",
                "(@USER.a%0020b == \"\xC3\xA4\xF0\x9F\x98\x80\")"}),
    tests::NamedAsPrinted());

class NoCondition : public testing::TestWithParam<std::string> {};

TEST_P(NoCondition, IsTaken) { EXPECT_FALSE(Code(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Texts, NoCondition,
                         testing::Values("", "a", "(", "()", "(a", "(a==)", "(a=1)", "(==1)",
                                         "(a==b)", "(a==1 b)", "(a&&)", "(a&b)", "(!)", "(a=={})",
                                         "(a=={1)", "(a=={1,})", "(a==\"b)",
                                         "(a==99999999999999999999)", "(a==0x8000000000000000)",
                                         "(a==SID(XX))", "(a==SID(BA)", "(Member_of {1})",
                                         "(Member_of {})", "(Exists)", "(Exists 1 2)",
                                         "(@Other.a==1)", "(@User.==1)", "(@User)"),
                         tests::NamedAsPrinted());

TEST(Condition, IsOfBoundedDepth) {
  const auto nested = [](size_t depth) {
    return std::string(depth, '(') + "a" + std::string(depth, ')');
  };
  EXPECT_TRUE(Code(nested(100)));
  EXPECT_FALSE(Code(nested(101)));
  EXPECT_FALSE(Code(std::string(1'000'000, '(')));
  EXPECT_FALSE(Code("(" + std::string(1'000'000, '!')));
}

// However few brackets it was read from.
TEST(Condition, IsReadAgainFromWhatIsPrinted) {
  const auto joined = [](const std::string& word, int operators) {
    std::string text = "(a==1";
    for (int i = 0; i < operators; ++i) text += word + "a==1";
    return text + ")";
  };
  for (const std::string& deepest :
       {joined("&&", 99), joined("||", 99), "(" + std::string(49, '!') + "a)"}) {
    EXPECT_TRUE(Code(deepest));
    EXPECT_EQ(Code(Printed(deepest)), Code(deepest));
  }
  EXPECT_FALSE(Code(joined("&&", 100)));
  EXPECT_FALSE(Code(joined("||", 100)));
  EXPECT_FALSE(Code("(" + std::string(50, '!') + "a)"));
}

TEST(ConditionText, RefusesCodeThatIsNotWellFormed) {
  const std::string attribute = Sized('\xF8', Utf16Bytes("a"));
  for (const std::string& code : std::vector<std::string>{
           std::string(), std::string("artx"), std::string("artq") + attribute, "artx\x80",
           "artx" + attribute + attribute, "artx" + attribute + "\xA0", "artx" + attribute + "\x05",
           std::string("artx\xF8\xFF\xFF\xFF\xFF", 9), "artx" + attribute + "\x04" + "1",
           "artx" + Sized('\x50', Sized('\x50', "")) + "\x89"}) {
    EXPECT_FALSE(ConditionText(code, kDomains)) << code;
  }
}

TEST(ConditionText, TakesAnyDamageWithoutHarm) {
  const std::string code = Code("(@User.a Any_of {1, \"b\", #01, SID(BA)} && !(Exists c))").value();
  for (size_t position = 0; position < code.size(); ++position) {
    ConditionText(code.substr(0, position), kDomains);
    for (int byte = 0; byte < 256; ++byte) {
      std::string damaged = code;
      damaged[position] = static_cast<char>(byte);
      const std::optional<std::string> text = ConditionText(damaged, kDomains);
      EXPECT_TRUE(!text || text->front() == '(');
    }
  }
}

TEST(ResourceAttribute, IsARelativeClaim) {
  SddlCursor text("(\"A\",TU,0x10000,7)");
  // Where the name is, the type, nothing, the flags, one value and where it is; name, value.
  EXPECT_EQ(TakeAttribute(text, kDomains),
            std::string("\x14\0\0\0\2\0\0\0\0\0\1\0\1\0\0\0\x18\0\0\0A\0\0\0\7\0\0\0\0\0\0\0", 32));
}

TEST(ResourceAttribute, IsRefusedWhenItIsNoAttribute) {
  for (const char* wrong :
       {"", "(", "(\"A\")", "(\"\",TI,0,1)", "(\"A\",TQ,0,1)", "(\"A\",TI,,1)", "(\"A\",TI,0,x)",
        "(\"A\",TI,0,1", "(\"A\",TB,0,2)", "(\"A\",TU,0,-1)", "(\"A\",TI,0,9223372036854775808)",
        "(\"A\",TS,0,x)", "(\"A\",TD,0,XX)", "(\"A\",TX,0,01)", "(\"A\",TI,0x100000000,1)"}) {
    SddlCursor text(wrong);
    EXPECT_FALSE(TakeAttribute(text, kDomains)) << wrong;
  }
}

TEST(ResourceAttribute, TakesAnyDamageWithoutHarm) {
  SddlCursor text("(\"A\",TS,0,\"b\",\"c\")");
  const std::string bytes = TakeAttribute(text, kDomains).value();
  EXPECT_EQ(AttributeText(bytes, kDomains), "(\"A\",TS,0x0,\"b\",\"c\")");
  for (size_t position = 0; position < bytes.size(); ++position) {
    EXPECT_FALSE(AttributeText(bytes.substr(0, position), kDomains) ==
                 "(\"A\",TS,0x0,\"b\",\"c\")");
    for (int byte = 0; byte < 256; ++byte) {
      std::string damaged = bytes;
      damaged[position] = static_cast<char>(byte);
      const std::optional<std::string> printed = AttributeText(damaged, kDomains);
      EXPECT_TRUE(!printed || printed->front() == '(');
    }
  }
}

}  // namespace
}  // namespace simulator
