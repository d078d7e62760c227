#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "support/sddl_texts.h"
#include "support/test_names.h"

namespace simulator {
namespace {

constexpr SECURITY_INFORMATION kAll = OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION |
                                      DACL_SECURITY_INFORMATION | SACL_SECURITY_INFORMATION;

const AccountDomains kAlone{{5, {21, 1, 2, 3}}, std::nullopt};
const AccountDomains kJoined{{5, {21, 1, 2, 3}}, Sid{5, {21, 7, 8, 9}}};

DWORD ErrorOf(const std::string& text, const AccountDomains& domains = kAlone) {
  Descriptor descriptor;
  return ParseSddl(text, domains, &descriptor);
}

Descriptor Parsed(const std::string& text) {
  Descriptor descriptor;
  EXPECT_EQ(ParseSddl(text, kAlone, &descriptor), DWORD{ERROR_SUCCESS}) << text;
  return descriptor;
}

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return text;
}

struct AliasExample {
  const char* alias;
  const char* sid;
};

void PrintTo(const AliasExample& example, std::ostream* out) { *out << example.alias; }

class Alias : public testing::TestWithParam<AliasExample> {};

TEST_P(Alias, StandsForItsSid) {
  const std::optional<Sid> sid = ParseSid(GetParam().alias, kJoined);
  ASSERT_TRUE(sid);
  EXPECT_EQ(SidText(*sid), GetParam().sid);
}

TEST_P(Alias, IsPrintedForItsSid) {
  Descriptor descriptor;
  descriptor.owner = ParseSid(GetParam().sid, kJoined);
  EXPECT_EQ(SddlText(descriptor, kJoined, kAll), std::string("O:") + GetParam().alias);
}

INSTANTIATE_TEST_SUITE_P(
    WellKnown, Alias,
    testing::Values(AliasExample{"AA", "S-1-5-32-579"}, AliasExample{"AC", "S-1-15-2-1"},
                    AliasExample{"AN", "S-1-5-7"}, AliasExample{"AO", "S-1-5-32-548"},
                    AliasExample{"AS", "S-1-18-1"}, AliasExample{"AU", "S-1-5-11"},
                    AliasExample{"BA", "S-1-5-32-544"}, AliasExample{"BG", "S-1-5-32-546"},
                    AliasExample{"BO", "S-1-5-32-551"}, AliasExample{"BU", "S-1-5-32-545"},
                    AliasExample{"CD", "S-1-5-32-574"}, AliasExample{"CG", "S-1-3-1"},
                    AliasExample{"CO", "S-1-3-0"}, AliasExample{"CY", "S-1-5-32-569"},
                    AliasExample{"ED", "S-1-5-9"}, AliasExample{"ER", "S-1-5-32-573"},
                    AliasExample{"ES", "S-1-5-32-576"}, AliasExample{"HA", "S-1-5-32-578"},
                    AliasExample{"HI", "S-1-16-12288"}, AliasExample{"HO", "S-1-5-32-584"},
                    AliasExample{"IS", "S-1-5-32-568"}, AliasExample{"IU", "S-1-5-4"},
                    AliasExample{"LS", "S-1-5-19"}, AliasExample{"LU", "S-1-5-32-559"},
                    AliasExample{"LW", "S-1-16-4096"}, AliasExample{"ME", "S-1-16-8192"},
                    AliasExample{"MP", "S-1-16-8448"}, AliasExample{"MS", "S-1-5-32-577"},
                    AliasExample{"MU", "S-1-5-32-558"}, AliasExample{"NO", "S-1-5-32-556"},
                    AliasExample{"NS", "S-1-5-20"}, AliasExample{"NU", "S-1-5-2"},
                    AliasExample{"OW", "S-1-3-4"}, AliasExample{"PO", "S-1-5-32-550"},
                    AliasExample{"PS", "S-1-5-10"}, AliasExample{"PU", "S-1-5-32-547"},
                    AliasExample{"RA", "S-1-5-32-575"}, AliasExample{"RC", "S-1-5-12"},
                    AliasExample{"RD", "S-1-5-32-555"}, AliasExample{"RE", "S-1-5-32-552"},
                    AliasExample{"RM", "S-1-5-32-580"}, AliasExample{"RU", "S-1-5-32-554"},
                    AliasExample{"SI", "S-1-16-16384"}, AliasExample{"SO", "S-1-5-32-549"},
                    AliasExample{"SS", "S-1-18-2"}, AliasExample{"SU", "S-1-5-6"},
                    AliasExample{"SY", "S-1-5-18"}, AliasExample{"UD", "S-1-5-84-0-0-0-0-0"},
                    AliasExample{"WD", "S-1-1-0"}, AliasExample{"WR", "S-1-5-33"}),
    tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(OfTheServer, Alias,
                         testing::Values(AliasExample{"LA", "S-1-5-21-1-2-3-500"},
                                         AliasExample{"LG", "S-1-5-21-1-2-3-501"}),
                         tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    OfTheDomain, Alias,
    testing::Values(
        AliasExample{"AP", "S-1-5-21-7-8-9-525"}, AliasExample{"CA", "S-1-5-21-7-8-9-517"},
        AliasExample{"CN", "S-1-5-21-7-8-9-522"}, AliasExample{"DA", "S-1-5-21-7-8-9-512"},
        AliasExample{"DC", "S-1-5-21-7-8-9-515"}, AliasExample{"DD", "S-1-5-21-7-8-9-516"},
        AliasExample{"DG", "S-1-5-21-7-8-9-514"}, AliasExample{"DU", "S-1-5-21-7-8-9-513"},
        AliasExample{"EA", "S-1-5-21-7-8-9-519"}, AliasExample{"EK", "S-1-5-21-7-8-9-527"},
        AliasExample{"KA", "S-1-5-21-7-8-9-526"}, AliasExample{"PA", "S-1-5-21-7-8-9-520"},
        AliasExample{"RO", "S-1-5-21-7-8-9-498"}, AliasExample{"RS", "S-1-5-21-7-8-9-553"},
        AliasExample{"SA", "S-1-5-21-7-8-9-518"}),
    tests::NamedAsPrinted());

TEST(ParseSddl, FindsNoAccountsOfADomainWhereThereIsNone) {
  EXPECT_EQ(ErrorOf("O:DA"), DWORD{ERROR_NONE_MAPPED});
  EXPECT_EQ(ErrorOf("D:(A;;FA;;;DU)"), DWORD{ERROR_NONE_MAPPED});
  EXPECT_EQ(ErrorOf("D:(A;;FA;;;DU)", kJoined), DWORD{ERROR_SUCCESS});
}

TEST(SddlText, KnowsNoAccountsOfADomainWhereThereIsNone) {
  EXPECT_EQ(SddlText(Parsed("O:S-1-5-21-7-8-9-512"), kAlone, kAll), "O:S-1-5-21-7-8-9-512");
}

TEST(ParseSid, TakesNothingButASid) {
  for (const char* text : {"", "B", "BA ", " BA", "BAX", "S-1-5-18 ", "S-1-5--18", "S-1-5-0x",
                           "S-1-:", "S-1-", "S-1-x-1", "S-1-5-1D:"}) {
    EXPECT_FALSE(ParseSid(text, kAlone)) << text;
  }
}

TEST(ParseSddl, EndsASidBeforeTheNextList) {
  const Descriptor descriptor = Parsed("O:S-1-5-0xFD:");
  EXPECT_EQ(descriptor.owner, (Sid{5, {0xF}}));
  EXPECT_TRUE(descriptor.dacl);
}

TEST(ParseSddl, KeepsEveryPart) {
  Ace grant;
  grant.flags = INHERITED_ACE;
  grant.mask = FILE_ALL_ACCESS;
  grant.sid = {5, {32, 544}};
  Ace audit;
  audit.type = SYSTEM_AUDIT_ACE_TYPE;
  audit.flags = SUCCESSFUL_ACCESS_ACE_FLAG | FAILED_ACCESS_ACE_FLAG;
  audit.mask = DELETE;
  audit.sid = {1, {0}};
  Descriptor expected;
  expected.control = SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED | SE_SACL_PRESENT |
                     SE_SACL_PROTECTED | SE_SACL_AUTO_INHERIT_REQ;
  expected.owner = Sid{5, {18}};
  expected.group = Sid{5, {21, 1, 2, 3, 513}};
  expected.dacl = Acl{ACL_REVISION, {grant}};
  expected.sacl = Acl{ACL_REVISION, {audit}};
  EXPECT_EQ(Parsed("O:SYG:S-1-5-21-1-2-3-513D:AI(A;ID;FA;;;BA)S:PAR(AU;SAFA;SD;;;WD)"), expected);
}

TEST(ParseSddl, MakesADirectoryListOfObjectEntries) {
  const Descriptor descriptor =
      Parsed("D:(OA;;RP;00112233-4455-6677-8899-aabbccddeeff;;WD)(A;;FA;;;BA)");
  ASSERT_TRUE(descriptor.dacl);
  EXPECT_EQ(descriptor.dacl->revision, ACL_REVISION_DS);
  EXPECT_EQ(descriptor.dacl->aces[0].object_type,
            (Guid{0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 0x88, 0x99, 0xAA, 0xBB, 0xCC,
                  0xDD, 0xEE, 0xFF}));
  EXPECT_FALSE(descriptor.dacl->aces[0].inherited_object_type);
}

TEST(ParseSddl, RefusesObjectTypesThatAreNone) {
  for (const char* text :
       {"D:(A;;RP;00112233-4455-6677-8899-aabbccddeeff;;WD)", "D:(OA;;RP;0011;;WD)",
        "D:(OA;;RP;00112233-4455-6677-8899-aabbccddeef;;WD)",
        "D:(OA;;RP;0011223344556677-8899-aabbccddeeff;;WD)",
        "D:(OA;;RP;{00112233-4455-6677-8899-aabbccddeeff};;WD)"}) {
    EXPECT_EQ(ErrorOf(text), DWORD{ERROR_INVALID_ACL}) << text;
  }
}

TEST(ParseSddl, KeepsConditionsAndResourceAttributesAsTheyCome) {
  for (const char* text :
       {"D:(XA;;FA;;;WD;( @User.a==1 ))", "D:(XD;;FA;;;WD;((a)||(b&&!(c))))",
        "D:(ZA;;FA;00112233-4455-6677-8899-aabbccddeeff;;WD;(a))",
        "S:(XU;SA;FA;;;WD;(Member_of{SID(BA),SID(SY)}))", "D:(XA;;FA;;;WD;(a==\")(\"))",
        "S:(RA;;;;;WD;(\"(A\",TS,0x0,\"b)\"))", "S:(RA;;;;;WD;(\"A\",TI,0x0,1))"}) {
    EXPECT_EQ(SddlText(Parsed(text), kAlone, kAll), text);
  }
}

TEST(ParseSddl, TakesBlanksAroundAConditionForNoPartOfIt) {
  EXPECT_EQ(Parsed("D:(XA;;FA;;;WD; (a) )"), Parsed("D:(XA;;FA;;;WD;(a))"));
}

TEST(ParseSddl, TellsAResourceAttributeFromACondition) {
  const Acl list = Parsed("S:(RA;;;;;WD;(a))(XU;;;;;WD;(a))").sacl.value();
  EXPECT_EQ(list.aces[0].type, SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE);
  EXPECT_EQ(list.aces[1].type, SYSTEM_AUDIT_CALLBACK_ACE_TYPE);
  EXPECT_EQ(list.aces[0].data, std::string("(a)\0", 4));  // whole DWORDs
  EXPECT_EQ(list.aces[1].data, list.aces[0].data);
}

TEST(ParseSddl, RefusesConditionsThatAreNotInParentheses) {
  for (const char* text : {"D:(XA;;FA;;;WD)", "D:(XA;;FA;;;WD;)", "D:(XA;;FA;;;WD;a)",
                           "D:(XA;;FA;;;WD;(a)", "D:(XA;;FA;;;WD;((a))", "D:(XA;;FA;;;WD;(a)))",
                           "D:(XA;;FA;;;WD;(a)b)", "D:(XA;;FA;;;WD;(\"a))", "D:(XA;;FA;;;WD;)a()",
                           "S:(RA;;;;;WD;\"A\",TI,0,1)", "D:(A;;FA;;;WD;(a))"}) {
    EXPECT_NE(ErrorOf(text), DWORD{ERROR_SUCCESS}) << text;
  }
}

TEST(ParseSddl, RefusesAnEntryWithAConditionForItsOtherFieldsToo) {
  EXPECT_EQ(ErrorOf("D:(XB;;FA;;;WD;(a))"), DWORD{ERROR_INVALID_ACL});    // the type
  EXPECT_EQ(ErrorOf("D:(XA;QQ;FA;;;WD;(a))"), DWORD{ERROR_INVALID_ACL});  // the flags
  EXPECT_EQ(ErrorOf("D:(XA;;QQ;;;WD;(a))"), DWORD{ERROR_INVALID_ACL});    // the rights
  EXPECT_EQ(ErrorOf("D:(XA;;FA;;;QQ;(a))"), ErrorOf("D:(A;;FA;;;QQ)"));   // the account
  EXPECT_NE(ErrorOf("D:(XA;;FA;;;QQ;(a))"), DWORD{ERROR_SUCCESS});
}

TEST(SddlText, AbortsForDataThatIsNoConditionsText) {
  Descriptor descriptor = Parsed("D:(XA;;FA;;;WD;(a))");
  descriptor.dacl->aces[0].data = "artx";
  EXPECT_DEATH(SddlText(descriptor, kAlone, kAll), "the data of an entry of type 9");
}

TEST(ParseSddl, RefusesEntriesBesideANullList) {
  EXPECT_EQ(ErrorOf("D:NO_ACCESS_CONTROL(A;;FA;;;WD)"), DWORD{ERROR_INVALID_ACL});
}

TEST(ParseSddl, RefusesAListThatIsTooLarge) {
  std::string text = "D:";
  for (int i = 0; i < 3276; ++i) text += "(A;;FA;;;WD)";
  EXPECT_EQ(ErrorOf(text), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(ErrorOf(text + "(A;;FA;;;WD)"), DWORD{ERROR_INVALID_ACL});
}

TEST(ParseSddl, ReadsCapitalsAsTheOriginal) {
  for (const tests::SddlSample& sample : tests::kSddlTexts) {
    const std::string text = sample.text;
    if (text.find(";(") != std::string::npos)
      continue;  // conditions and attributes stay as they are
    EXPECT_EQ(Parsed(Upper(text)), Parsed(text)) << sample.about;
  }
}

// Texts come from files: whatever stands there gives a descriptor or an error.
TEST(ParseSddl, TakesAnyDamageWithoutHarm) {
  for (const tests::SddlSample& sample : tests::kSddlTexts) {
    const std::string text = sample.text;
    for (size_t position = 0; position < text.size(); ++position) {
      Descriptor descriptor;
      ParseSddl(text.substr(0, position), kAlone, &descriptor);
      for (const char byte : std::string("(;\"\xFF\0", 5)) {
        std::string damaged = text;
        damaged[position] = byte;
        if (ParseSddl(damaged, kAlone, &descriptor) == ERROR_SUCCESS) {
          const std::string printed = SddlText(descriptor, kAlone, kAll);
          EXPECT_EQ(ErrorOf(printed), DWORD{ERROR_SUCCESS}) << damaged << '\n' << printed;
        }
      }
    }
  }
}

}  // namespace
}  // namespace simulator
