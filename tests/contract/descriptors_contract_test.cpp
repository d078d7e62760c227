// Security descriptors from text and back.
#include <windows.h>

#include <sddl.h>

#include <cstring>
#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"
#include "support/sddl_texts.h"
#include "support/test_names.h"

namespace tests {
namespace {

constexpr SECURITY_INFORMATION kAll = OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION |
                                      DACL_SECURITY_INFORMATION | SACL_SECURITY_INFORMATION;

class DescriptorContract : public HostTest {
 protected:
  using Descriptor = common::UniqueLocal<void>;

  static DWORD ErrorOfText(const std::string& text, DWORD revision = SDDL_REVISION_1) {
    Descriptor descriptor;
    return ErrorOf([&] {
      return ::ConvertStringSecurityDescriptorToSecurityDescriptorA(text.c_str(), revision,
                                                                    descriptor.put(), nullptr);
    });
  }

  static Descriptor FromText(const std::string& text, ULONG* size = nullptr) {
    Descriptor descriptor;
    EXPECT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorA(
        text.c_str(), SDDL_REVISION_1, descriptor.put(), size))
        << text << ": " << ::GetLastError();
    return descriptor;
  }

  static std::string Printed(void* descriptor, SECURITY_INFORMATION information = kAll) {
    common::UniqueLocal<char> text;
    EXPECT_TRUE(::ConvertSecurityDescriptorToStringSecurityDescriptorA(
        descriptor, SDDL_REVISION_1, information, text.put(), nullptr))
        << ::GetLastError();
    return text.get() == nullptr ? "" : text.get();
  }

  static std::string Reprinted(const std::string& text) {
    const Descriptor descriptor = FromText(text);
    return descriptor ? Printed(descriptor.get()) : "";
  }

  static SECURITY_DESCRIPTOR_RELATIVE HeaderOf(const std::string& text) {
    SECURITY_DESCRIPTOR_RELATIVE header = {};
    const Descriptor descriptor = FromText(text);
    if (descriptor) std::memcpy(&header, descriptor.get(), sizeof(header));
    return header;
  }
};

class PrintedDescriptor : public DescriptorContract,
                          public testing::WithParamInterface<SddlSample> {};

TEST_P(PrintedDescriptor, IsWhatWasStored) {
  if (IsUnderWine() && GetParam().wine_difference != nullptr) {
    GTEST_SKIP() << GetParam().wine_difference;
  }
  EXPECT_EQ(Reprinted(GetParam().text), GetParam().Printed());
}

TEST_P(PrintedDescriptor, IsPrintedTheSameWhenItIsReadAgain) {
  if (IsUnderWine() && GetParam().wine_difference != nullptr) {
    GTEST_SKIP() << GetParam().wine_difference;
  }
  EXPECT_EQ(Reprinted(GetParam().Printed()), GetParam().Printed());
}

INSTANTIATE_TEST_SUITE_P(Samples, PrintedDescriptor, testing::ValuesIn(kSddlTexts),
                         NamedAsPrinted());

struct Refusal {
  const char* name;
  const char* text;
  DWORD error;
  const char* wine_difference = nullptr;
};

void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.name; }

class WrongText : public DescriptorContract, public testing::WithParamInterface<Refusal> {};

TEST_P(WrongText, IsRefused) {
  if (IsUnderWine() && GetParam().wine_difference != nullptr) {
    GTEST_SKIP() << GetParam().wine_difference;
  }
  EXPECT_EQ(ErrorOfText(GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Parts, WrongText,
    testing::Values(
        Refusal{"MarkOfAnError", "ERROR:(D;;GA;;;WD)", ERROR_INVALID_PARAMETER},
        Refusal{"UnknownPart", "X:BA", ERROR_INVALID_PARAMETER},
        Refusal{"PartWithoutAColon", "D(A;;GA;;;WD)", ERROR_INVALID_PARAMETER},
        Refusal{"ListWithoutABracket", "D:A;;GA;;;WD)", ERROR_INVALID_PARAMETER, wine::kEndOfList},
        Refusal{"TextBehindAList", "D:(A;;GA;;;WD)x", ERROR_INVALID_PARAMETER, wine::kEndOfList},
        Refusal{"OwnerTwice", "O:BAO:BA", ERROR_INVALID_PARAMETER, wine::kPartTwice},
        Refusal{"GroupTwice", "G:BAG:BA", ERROR_INVALID_PARAMETER, wine::kPartTwice},
        Refusal{"DaclTwice", "D:D:", ERROR_INVALID_PARAMETER, wine::kPartTwice},
        Refusal{"SaclTwice", "S:S:", ERROR_INVALID_PARAMETER, wine::kPartTwice}),
    NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    Sids, WrongText,
    testing::Values(
        Refusal{"UnknownAlias", "O:XX", ERROR_INVALID_SID},
        Refusal{"OneLetter", "O:B", ERROR_INVALID_SID},
        Refusal{"NoSubauthority", "O:S-1-5", ERROR_INVALID_SID},
        Refusal{"EmptySubauthority", "O:S-1-5-", ERROR_INVALID_SID},
        Refusal{"AnotherRevision", "O:S-2-5-32-544", ERROR_INVALID_SID},
        Refusal{"TooManySubauthorities", "O:S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15-16",
                ERROR_INVALID_SID, wine::kLongSid},
        Refusal{"NoOwner", "O:", ERROR_INVALID_SID, wine::kSddlErrors},
        Refusal{"UnknownAliasInAnEntry", "D:(A;;GA;;;XX)", ERROR_INVALID_SID, wine::kSddlErrors},
        Refusal{"LettersInASubauthority", "D:(A;;GA;;;S-1-5-x)", ERROR_INVALID_SID,
                wine::kSddlErrors}),
    NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    Entries, WrongText,
    testing::Values(Refusal{"BlankBehindTheType", "D:(D ;;GA;;;WD)", ERROR_INVALID_ACL,
                            wine::kSddlErrors},
                    Refusal{"UnknownType", "D:(Q;;GA;;;WD)", ERROR_INVALID_ACL, wine::kSddlErrors},
                    Refusal{"NoType", "D:(;;GA;;;WD)", ERROR_INVALID_ACL, wine::kSddlErrors},
                    Refusal{"UnknownFlag", "D:(A;XX;GA;;;WD)", ERROR_INVALID_ACL},
                    Refusal{"BlankBetweenFlags", "D:(A;OI CI;GA;;;WD)", ERROR_INVALID_ACL},
                    Refusal{"BlankBehindTheRights", "D:(A;;GA ;;;WD)", ERROR_INVALID_ACL},
                    Refusal{"UnknownRight", "D:(A;;ROB;;;WD)", ERROR_INVALID_ACL},
                    Refusal{"TextBehindAnAlias", "D:(A;;GA;;;WDANDSUCH)", ERROR_INVALID_ACL},
                    Refusal{"AccountByName", "D:(A;;GA;;;Nonexistent account)", ERROR_INVALID_ACL},
                    Refusal{"OneFieldTooFew", "D:(A;;GA;;)", ERROR_INVALID_ACL},
                    Refusal{"NoEndOfTheEntry", "D:(A;;GA;;;WD", ERROR_INVALID_ACL},
                    Refusal{"OneFieldTooMany", "D:(A;;GA;;;WD;)", ERROR_INVALID_ACL},
                    Refusal{"NoEntry", "D:(", ERROR_INVALID_ACL, wine::kSddlErrors}),
    NamedAsPrinted());

TEST_F(DescriptorContract, IsOfRevisionOneOnly) {
  EXPECT_EQ(ErrorOfText("D:(A;;GA;;;WD)", 0), ERROR_UNKNOWN_REVISION);
  EXPECT_EQ(ErrorOfText("D:(A;;GA;;;WD)", 2), ERROR_UNKNOWN_REVISION);
}

TEST_F(DescriptorContract, NeedsAText) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNoSddl;
  Descriptor descriptor;
  EXPECT_EQ(ErrorOf([&] {
              return ::ConvertStringSecurityDescriptorToSecurityDescriptorA(
                  nullptr, SDDL_REVISION_1, descriptor.put(), nullptr);
            }),
            ERROR_INVALID_PARAMETER);
}

TEST_F(DescriptorContract, NeedsAPlaceForTheResult) {
  EXPECT_EQ(ErrorOf([] {
              return ::ConvertStringSecurityDescriptorToSecurityDescriptorA(
                  "D:(A;;GA;;;WD)", SDDL_REVISION_1, nullptr, nullptr);
            }),
            ERROR_INVALID_PARAMETER);
}

TEST_F(DescriptorContract, IsSelfRelative) {
  const SECURITY_DESCRIPTOR_RELATIVE header = HeaderOf("O:BAG:SYD:PAI(A;;FA;;;BA)");
  EXPECT_EQ(header.Revision, SECURITY_DESCRIPTOR_REVISION);
  EXPECT_EQ(header.Control,
            SE_SELF_RELATIVE | SE_DACL_PRESENT | SE_DACL_PROTECTED | SE_DACL_AUTO_INHERITED);
  EXPECT_NE(header.Owner, 0u);
  EXPECT_NE(header.Group, 0u);
  EXPECT_NE(header.Dacl, 0u);
  EXPECT_EQ(header.Sacl, 0u);
}

TEST_F(DescriptorContract, IsAsLargeAsItsPartsTogether) {
  ULONG size = 0;
  // A header of 20 bytes, SIDs of 16 and 12, and a list of 8 with one entry of 8 + 16.
  const Descriptor descriptor = FromText("O:BAG:SYD:(A;;FA;;;BA)", &size);
  EXPECT_EQ(size, 80u);
}

TEST_F(DescriptorContract, HasAnEmptyListWhereTheTextHasNoEntries) {
  const Descriptor descriptor = FromText("D:");
  SECURITY_DESCRIPTOR_RELATIVE header = {};
  std::memcpy(&header, descriptor.get(), sizeof(header));
  ACL list = {};
  std::memcpy(&list, static_cast<const char*>(descriptor.get()) + header.Dacl, sizeof(list));
  EXPECT_EQ(list.AclRevision, ACL_REVISION);
  EXPECT_EQ(list.AclSize, sizeof(ACL));
  EXPECT_EQ(list.AceCount, 0);
}

TEST_F(DescriptorContract, HasANullListForNoAccessControl) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNullList;
  const SECURITY_DESCRIPTOR_RELATIVE header = HeaderOf("D:NO_ACCESS_CONTROL");
  EXPECT_EQ(header.Control, SE_SELF_RELATIVE | SE_DACL_PRESENT);
  EXPECT_EQ(header.Dacl, 0u);
}

TEST_F(DescriptorContract, IsReadWhateverTheCaseOfItsText) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLowerCase;
  EXPECT_EQ(Reprinted("o:bag:s-1-5-18d:pai(a;oici;fa;;;ba)"), "O:BAG:SYD:PAI(A;OICI;FA;;;BA)");
}

TEST_F(DescriptorContract, TakesHexadecimalsInCapitals) {
  EXPECT_EQ(Reprinted("D:(A;;0X1301BF;;;BA)"), "D:(A;;0x1301bf;;;BA)");
}

TEST_F(DescriptorContract, TakesTooLargeRightsForAllRights) {
  EXPECT_EQ(Reprinted("D:(A;;0x123456789;;;BA)"), "D:(A;;0xffffffff;;;BA)");
}

TEST_F(DescriptorContract, TakesNegativeRights) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kNegativeRights;
  EXPECT_EQ(Reprinted("D:(A;;-2;;;BA)"), "D:(A;;0xfffffffe;;;BA)");
}

TEST_F(DescriptorContract, TakesNamesAndNumbersTogether) {
  EXPECT_EQ(Reprinted("D:(A;;GR0x1;;;BA)"), "D:(A;;CCGR;;;BA)");
}

TEST_F(DescriptorContract, TakesHexadecimalSids) {
  EXPECT_EQ(Reprinted("O:S-1-0x5-0x20-0x220"), "O:BA");
}

TEST_F(DescriptorContract, PrintsLargeAuthoritiesInTwelveDigits) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kLargeAuthority;
  EXPECT_EQ(Reprinted("O:S-1-0x100000000-1"), "O:S-1-0x000100000000-1");
}

TEST_F(DescriptorContract, PrintsOnlyThePartsAskedFor) {
  const Descriptor descriptor = FromText("O:BAG:SYD:(A;;FA;;;BA)S:(AU;SA;FA;;;WD)");
  EXPECT_EQ(Printed(descriptor.get(), OWNER_SECURITY_INFORMATION), "O:BA");
  EXPECT_EQ(Printed(descriptor.get(), GROUP_SECURITY_INFORMATION), "G:SY");
  EXPECT_EQ(Printed(descriptor.get(), DACL_SECURITY_INFORMATION), "D:(A;;FA;;;BA)");
  EXPECT_EQ(Printed(descriptor.get(), SACL_SECURITY_INFORMATION), "S:(AU;SA;FA;;;WD)");
  EXPECT_EQ(Printed(descriptor.get(), 0), "");
}

TEST_F(DescriptorContract, CountsTheTerminatorOfItsText) {
  const Descriptor descriptor = FromText("O:BA");
  common::UniqueLocal<char> text;
  ULONG length = 0;
  ASSERT_TRUE(::ConvertSecurityDescriptorToStringSecurityDescriptorA(
      descriptor.get(), SDDL_REVISION_1, kAll, text.put(), &length));
  EXPECT_EQ(length, std::strlen("O:BA") + 1);
}

TEST_F(DescriptorContract, IsPrintedInRevisionOneOnly) {
  const Descriptor descriptor = FromText("O:BA");
  common::UniqueLocal<char> text;
  EXPECT_EQ(ErrorOf([&] {
              return ::ConvertSecurityDescriptorToStringSecurityDescriptorA(
                  descriptor.get(), 2, kAll, text.put(), nullptr);
            }),
            ERROR_UNKNOWN_REVISION);
}

TEST_F(DescriptorContract, IsPrintedFromItsAbsoluteForm) {
  const Descriptor owner = FromText("O:BA");
  SECURITY_DESCRIPTOR_RELATIVE header = {};
  std::memcpy(&header, owner.get(), sizeof(header));
  SECURITY_DESCRIPTOR absolute = {};
  absolute.Revision = SECURITY_DESCRIPTOR_REVISION;
  absolute.Owner = static_cast<char*>(owner.get()) + header.Owner;
  EXPECT_EQ(Printed(&absolute), "O:BA");
}

}  // namespace
}  // namespace tests
