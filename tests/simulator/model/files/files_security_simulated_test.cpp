// What setting a file's descriptor stores, refuses and passes on.
#include <windows.h>

#include <aclapi.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"

namespace simulator {
namespace {

constexpr SECURITY_INFORMATION kOwner = OWNER_SECURITY_INFORMATION;
constexpr SECURITY_INFORMATION kGroup = GROUP_SECURITY_INFORMATION;
constexpr SECURITY_INFORMATION kDacl = DACL_SECURITY_INFORMATION;
constexpr SECURITY_INFORMATION kSacl = SACL_SECURITY_INFORMATION;
constexpr SECURITY_INFORMATION kProtect = PROTECTED_DACL_SECURITY_INFORMATION;
constexpr SECURITY_INFORMATION kUnprotect = UNPROTECTED_DACL_SECURITY_INFORMATION;

class SetSecurity : public testing::Test {
 protected:
  SetSecurity() {
    files_.Write("C:\\folder\\a.txt", "x");
    tests::Secure(server_, "C:\\folder", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)");
    tests::Secure(server_, "C:\\folder\\a.txt", kFile);
  }

  DWORD Set(const std::string& path, SECURITY_INFORMATION information, const std::string& sddl) {
    Descriptor descriptor;
    EXPECT_EQ(ParseSddl(sddl, server_.security().domains(), &descriptor), DWORD{ERROR_SUCCESS});
    SecurityChange change;
    change.information = information;
    change.parts = descriptor;
    return files_.SetSecurity(path, change);
  }
  std::string SddlOf(const std::string& path) { return tests::SddlOf(server_, path); }
  void Enable(const std::string& privilege) {
    ASSERT_TRUE(server_.security().SetEnabled(*Security::Lookup(privilege), true));
  }

  const std::string kFile = "O:BAG:SYD:AI(A;ID;FA;;;BA)(A;ID;FA;;;SY)";

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(SetSecurity, StoresTheDacl) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect, "D:(A;;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI(A;;FR;;;AU)(A;;FA;;;BA)");
}

TEST_F(SetSecurity, StoresOnlyWhatIsAskedFor) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kGroup, "O:SYG:BUD:(A;;FR;;;AU)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:BUD:AI(A;ID;FA;;;BA)(A;ID;FA;;;SY)");
}

TEST_F(SetSecurity, StoresNothingWhenNothingIsAskedFor) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", 0, "O:SYD:(A;;FR;;;AU)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile);
}

TEST_F(SetSecurity, StoresAnEmptyListAndANullOne) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect, "D:"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl, "D:NO_ACCESS_CONTROL"), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(files_.DescriptorOf("C:\\folder\\a.txt")->dacl);
}

TEST_F(SetSecurity, MakesInheritedEntriesAnewFromTheParent) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kUnprotect, "D:AI(A;;FR;;;AU)(A;ID;FX;;;WD)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:AI(A;;FR;;;AU)(A;ID;FA;;;BA)(A;ID;FA;;;SY)");
}

TEST_F(SetSecurity, KeepsAListProtectedThatIs) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:BAG:SYD:PAI(A;;FA;;;BA)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl, "D:(A;;FR;;;AU)(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI(A;;FR;;;AU)(A;;FA;;;BA)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kUnprotect, "D:(A;;FR;;;AU)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:AI(A;;FR;;;AU)(A;ID;FA;;;BA)(A;ID;FA;;;SY)");
}

TEST_F(SetSecurity, StoresGenericRightsAsThoseOfAFile) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect, "D:(A;;GA;;;BA)(A;;GR;;;AU)(A;;GXGW;;;WD)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI(A;;FA;;;BA)(A;;FR;;;AU)(A;;0x1201b6;;;WD)");
}

TEST_F(SetSecurity, SplitsAFoldersInheritableEntryOfGenericRights) {
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;GA;;;BA)(A;OICIIO;GR;;;AU)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder"), "O:BAG:SYD:PAI(A;;FA;;;BA)(A;OICIIO;GA;;;BA)(A;OICIIO;GR;;;AU)");
}

TEST_F(SetSecurity, PassesOnToAllBelow) {
  files_.Write("C:\\folder\\below\\b.txt", "x");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;OICI;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:AI(A;ID;FR;;;AU)(A;ID;FA;;;BA)");
  const auto dacl_of = [this](const std::string& path) {
    return SddlText(*files_.DescriptorOf(path), server_.security().domains(), kDacl);
  };
  EXPECT_EQ(dacl_of("C:\\folder\\below"), "D:AI(A;OICIID;FR;;;AU)(A;OICIID;FA;;;BA)");
  EXPECT_EQ(dacl_of("C:\\folder\\below\\b.txt"), "D:AI(A;ID;FR;;;AU)(A;ID;FA;;;BA)");
}

TEST_F(SetSecurity, PassesOnBehindExplicitEntries) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:BAG:SYD:AI(D;;FW;;;AU)(A;ID;FA;;;BA)");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:AI(D;;FW;;;AU)(A;ID;FR;;;AU)");
}

TEST_F(SetSecurity, PassesNothingOnToWhatIsProtectedNorBelowIt) {
  files_.Write("C:\\folder\\below\\b.txt", "x");
  tests::Secure(server_, "C:\\folder\\below", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)");
  const std::string before = SddlOf("C:\\folder\\below\\b.txt");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\below"), "O:BAG:SYD:PAI(A;OICI;FA;;;BA)");
  EXPECT_EQ(SddlOf("C:\\folder\\below\\b.txt"), before);
}

TEST_F(SetSecurity, PassesNothingOnThroughJunctions) {
  files_.Write("C:\\elsewhere\\c.txt", "x");
  files_.MakeJunction("C:\\folder\\link", "C:\\elsewhere");
  const std::string before = SddlOf("C:\\elsewhere\\c.txt");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlText(*files_.DescriptorOf("C:\\folder\\link"), server_.security().domains(), kDacl),
            "D:AI(A;OICIID;FR;;;AU)");
  EXPECT_EQ(SddlOf("C:\\elsewhere\\c.txt"), before);
}

TEST_F(SetSecurity, PassesNothingOnToWhatMayNotBeWritten) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:SYG:SYD:AI(A;ID;FA;;;SY)");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:SYG:SYD:AI(A;ID;FA;;;SY)");
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:SYG:SYD:AI(A;ID;FR;;;AU)");
}

// Such entries were inherited when lists did not yet say so.
TEST_F(SetSecurity, KnowsInheritedEntriesFromBeforeTheyWereMarked) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:BAG:SYD:(A;;FX;;;WD)(A;;FA;;;BA)(A;;FA;;;SY)");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICI;FR;;;AU)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:AI(A;;FX;;;WD)(A;ID;FR;;;AU)");
}

TEST_F(SetSecurity, GivesCreatorsEntriesToTheOwnerOfEachFile) {
  Enable(SE_RESTORE_NAME);
  tests::Secure(server_, "C:\\folder\\a.txt", "O:BUG:SYD:AI");
  EXPECT_EQ(Set("C:\\folder", kDacl | kProtect, "D:(A;OICIIO;GA;;;CO)(A;;FA;;;BA)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BUG:SYD:AI(A;ID;FA;;;BU)");
}

TEST_F(SetSecurity, TellsWhatIsNotThere) {
  EXPECT_EQ(Set("C:\\folder\\missing", kDacl, "D:"), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(Set("C:\\missing\\a", kDacl, "D:"), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(Set("C:\\a|b", kDacl, "D:"), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(Set("C:\\folder\\a.txt\\", kDacl, "D:"), DWORD{ERROR_INVALID_NAME});
}

TEST_F(SetSecurity, ActsOnAJunctionItself) {
  files_.MakeJunction("C:\\link", "C:\\folder");
  const std::string before = SddlOf("C:\\folder");
  EXPECT_EQ(Set("C:\\link", kDacl | kProtect, "D:(A;;FR;;;AU)(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlText(*files_.DescriptorOf("C:\\link"), server_.security().domains(), kDacl),
            "D:PAI(A;;FR;;;AU)(A;;FA;;;BA)");
  EXPECT_EQ(SddlOf("C:\\folder"), before);
}

TEST_F(SetSecurity, DoesNotMindThatOthersHoldTheFile) {
  std::shared_ptr<OpenNode> holder;
  HandleMode alone;
  alone.access = GENERIC_READ | GENERIC_WRITE;
  ASSERT_EQ(files_.OpenHandle("C:\\folder\\a.txt", alone, &holder), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect, "D:(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
}

TEST_F(SetSecurity, OfAListNeedsTheRightOrSeRestorePrivilege) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:SYG:SYD:PAI(D;;FA;;;WD)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl, "D:(A;;FA;;;BA)"), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:SYG:SYD:PAI(D;;FA;;;WD)");
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl, "D:(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:SYG:SYD:PAI(A;;FA;;;BA)");
}

TEST_F(SetSecurity, OfAListIsAlwaysTheOwnersRight) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:BAG:SYD:PAI(D;;FA;;;WD)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl, "D:(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
}

TEST_F(SetSecurity, OfTheOwnerNeedsTheRightOrAPrivilege) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:SYG:SYD:PAI(A;;FR;;;BA)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:BA"), DWORD{ERROR_ACCESS_DENIED});
  Enable(SE_TAKE_OWNERSHIP_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:BA"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI(A;;FR;;;BA)");
}

TEST_F(SetSecurity, OfTheGroupNeedsTheSameRight) {
  tests::Secure(server_, "C:\\folder\\a.txt", "O:SYG:SYD:PAI(A;;FR;;;BA)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kGroup, "G:BU"), DWORD{ERROR_ACCESS_DENIED});
  tests::Secure(server_, "C:\\folder\\a.txt", "O:SYG:SYD:PAI(A;;WO;;;BA)");
  EXPECT_EQ(Set("C:\\folder\\a.txt", kGroup, "G:BU"), DWORD{ERROR_SUCCESS});
}

TEST_F(SetSecurity, MakesOnlyThoseOwnersWhomTheTokenAllows) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:LA"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:BA"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:BU"), DWORD{ERROR_INVALID_OWNER});
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:SY"), DWORD{ERROR_INVALID_OWNER});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile);
}

TEST_F(SetSecurity, MakesAnyOwnerWithSeRestorePrivilege) {
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "O:S-1-5-21-1-2-3-1107"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.DescriptorOf("C:\\folder\\a.txt")->owner,
            ParseSid("S-1-5-21-1-2-3-1107", server_.security().domains()));
}

TEST_F(SetSecurity, StoresNothingWhenOnePartIsRefused) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner | kDacl | kProtect, "O:SYD:(A;;FR;;;AU)"),
            DWORD{ERROR_INVALID_OWNER});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile);
}

TEST_F(SetSecurity, OfASaclNeedsItsPrivilege) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl, "S:(AU;SA;FA;;;WD)"), DWORD{ERROR_PRIVILEGE_NOT_HELD});
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl, "S:(AU;SA;FA;;;WD)"), DWORD{ERROR_PRIVILEGE_NOT_HELD});
  Enable(SE_SECURITY_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl, "S:(AU;SA;FA;;;WD)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile + "S:AI(AU;SA;FA;;;WD)");
}

TEST_F(SetSecurity, OfASaclPassesItOn) {
  Enable(SE_SECURITY_NAME);
  EXPECT_EQ(Set("C:\\folder", kSacl | PROTECTED_SACL_SECURITY_INFORMATION, "S:(AU;OICISA;FA;;;WD)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder"),
            "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)S:PAI(AU;OICISA;FA;;;WD)");
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile + "S:AI(AU;IDSA;FA;;;WD)");
}

TEST_F(SetSecurity, OfASaclStoresNoLabelAttributeOrPolicy) {
  Enable(SE_SECURITY_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl,
                "S:(ML;;NW;;;HI)(AU;SA;FA;;;WD)(RA;;;;;WD;(\"A\",TI,0x0,1))(SP;;;;;S-1-17-1)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile + "S:AI(AU;SA;FA;;;WD)");
}

TEST_F(SetSecurity, OfASaclLeavesTheLabelAttributesAndPolicyOfTheObject) {
  const std::string own = "(ML;;NW;;;LW)(RA;;;;;WD;(\"A\",TI,0x0,1))(SP;;;;;S-1-17-1)";
  const std::string inherited = "(ML;ID;NW;;;LW)";
  tests::Secure(server_, "C:\\folder\\a.txt", kFile + "S:AI(AU;SA;FR;;;BU)" + own + inherited);
  Enable(SE_SECURITY_NAME);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl, "S:(AU;SA;FA;;;WD)(ML;;NW;;;HI)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile + "S:AI" + own + "(AU;SA;FA;;;WD)" + inherited);
  // Setting the same again changes nothing, nor does the place of the entries.
  const std::string mixed = kFile + "S:AI(AU;SA;FA;;;WD)" + own;
  tests::Secure(server_, "C:\\folder\\a.txt", mixed);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kSacl, "S:(AU;SA;FA;;;WD)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), mixed);
}

TEST_F(SetSecurity, OfASaclPassesOnNoLabel) {
  tests::Secure(server_, "C:\\folder",
                "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)S:AI(ML;OICI;NW;;;LW)");
  tests::Secure(server_, "C:\\folder\\a.txt", kFile + "S:AI(ML;;NW;;;HI)");
  files_.Write("C:\\folder\\b.txt", "x");
  tests::Secure(server_, "C:\\folder\\b.txt", kFile);
  Enable(SE_SECURITY_NAME);
  EXPECT_EQ(Set("C:\\folder", kSacl, "S:(AU;OICISA;FA;;;WD)(ML;OICI;NW;;;SI)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile + "S:AI(ML;;NW;;;HI)(AU;IDSA;FA;;;WD)");
  EXPECT_EQ(SddlOf("C:\\folder\\b.txt"), kFile + "S:AI(AU;IDSA;FA;;;WD)");
}

TEST_F(SetSecurity, OfTheOtherPartsLeavesTheSacl) {
  const std::string sacl = "S:AI(ML;;NW;;;LW)(AU;SA;FA;;;WD)";
  tests::Secure(server_, "C:\\folder\\a.txt", kFile + sacl);
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect, "D:(A;;FA;;;BA)S:(ML;;NW;;;HI)"),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), "O:BAG:SYD:PAI(A;;FA;;;BA)" + sacl);
}

TEST_F(SetSecurity, RefusesToProtectAndUnprotectAtOnce) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kDacl | kProtect | kUnprotect, "D:(A;;FA;;;BA)"),
            DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(SetSecurity, RefusesAMissingOwnerAndGroup) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kOwner, "D:"), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(Set("C:\\folder\\a.txt", kGroup, "D:"), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(SetSecurity, IgnoresFlagsOfAListThatIsNotSet) {
  EXPECT_EQ(Set("C:\\folder\\a.txt", kProtect, "D:"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\a.txt"), kFile);
}

TEST_F(SetSecurity, RefusesAListThatGrowsBeyondWhatAnyCanHold) {
  Enable(SE_RESTORE_NAME);
  SecurityChange change;
  change.information = kDacl | kUnprotect;
  Acl& dacl = change.parts.dacl.emplace();
  Ace ace;
  ace.mask = FILE_ALL_ACCESS;
  ace.sid = server_.security().identity().default_owner;  // an entry of 24 bytes
  dacl.aces.assign((kLargestAcl - sizeof(ACL)) / 24, ace);
  EXPECT_EQ(files_.SetSecurity("C:\\folder\\a.txt", change), DWORD{ERROR_INVALID_ACL});
  change.information = kDacl | kProtect;
  EXPECT_EQ(files_.SetSecurity("C:\\folder\\a.txt", change), DWORD{ERROR_SUCCESS});
}

TEST_F(SetSecurity, SucceedsOnFatAndKeepsNothing) {
  Volume fat;
  fat.file_system = "FAT32";
  files_.Mount('F', files_.AddVolume(fat));
  files_.Write("F:\\a.txt", "x");
  EXPECT_EQ(Set("F:\\a.txt", kDacl, "D:"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("F:\\a.txt"), "none");
}

TEST_F(SetSecurity, TakesASharedDescriptorFromNobodyElse) {
  files_.Write("C:\\folder\\b.txt", "x");
  files_.Write("C:\\folder\\c.txt", "x");
  const std::string before = SddlOf("C:\\folder\\c.txt");
  EXPECT_EQ(Set("C:\\folder\\b.txt", kDacl | kProtect, "D:(A;;FA;;;BA)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(SddlOf("C:\\folder\\c.txt"), before);
}

// Files of the same folder with the same descriptor still share one when it has been passed on.
TEST_F(SetSecurity, GivesOneDescriptorToAllThatInheritTheSame) {
  const auto volume = files_.AddVolume({});
  files_.Mount('D', volume);
  files_.Write("D:\\a", "");
  files_.Write("D:\\b", "");
  EXPECT_EQ(Set("D:\\", kDacl | kProtect, "D:(A;OICI;FA;;;BA)"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(volume->root->Child("a")->security, volume->root->Child("b")->security);
  EXPECT_EQ(SddlText(*volume->root->Child("a")->security, server_.security().domains(), kDacl),
            "D:AI(A;ID;FA;;;BA)");
}

}  // namespace
}  // namespace simulator
