#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/inheritance.h"
#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

constexpr BYTE kOI = OBJECT_INHERIT_ACE;
constexpr BYTE kCI = CONTAINER_INHERIT_ACE;
constexpr BYTE kNP = NO_PROPAGATE_INHERIT_ACE;
constexpr BYTE kIO = INHERIT_ONLY_ACE;
constexpr BYTE kID = INHERITED_ACE;

const Sid kMe{5, {21, 1, 2, 3, 1001}};
const Sid kMyGroup{5, {21, 1, 2, 3, 513}};
const Sid kOther{5, {21, 1, 2, 3, 1002}};

Identity Me() {
  Identity me;
  me.user = kMe;
  me.default_owner = kMe;
  me.primary_group = kMyGroup;
  return me;
}

Ace Allow(int flags, ACCESS_MASK mask, const Sid& sid) {
  Ace ace;
  ace.flags = static_cast<BYTE>(flags);
  ace.mask = mask;
  ace.sid = sid;
  return ace;
}

Descriptor With(std::vector<Ace> aces, int control = SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED) {
  Descriptor descriptor;
  descriptor.control = static_cast<WORD>(control);
  descriptor.owner = kOther;
  descriptor.group = kOther;
  descriptor.dacl = Acl{ACL_REVISION, std::move(aces)};
  return descriptor;
}

std::vector<Ace> ChildOf(std::vector<Ace> parent, bool is_folder) {
  return InheritedDescriptor(With(std::move(parent)), is_folder, Me()).dacl->aces;
}

constexpr bool kFile = false;
constexpr bool kFolder = true;
constexpr int kNothing = -1;

struct FlagRow {
  int parent;
  int file;    // the child's flags, or kNothing
  int folder;  // likewise
};

// The entry that CREATOR OWNER becomes.
TEST(InheritedDescriptor, LeavesTheCreatorOutWhereAnEarlierEntrySaysAsMuch) {
  const Ace owner = Allow(kOI | kCI | kIO, GENERIC_ALL, kCreatorOwner);
  EXPECT_EQ(ChildOf({Allow(kOI | kCI, FILE_ALL_ACCESS, kMe), owner}, kFolder),
            (std::vector<Ace>{Allow(kOI | kCI | kID, FILE_ALL_ACCESS, kMe),
                              Allow(kOI | kCI | kIO | kID, GENERIC_ALL, kCreatorOwner)}));
  EXPECT_EQ(ChildOf({Allow(kOI | kCI, FILE_ALL_ACCESS, kMe), owner}, kFile),
            std::vector<Ace>{Allow(kID, FILE_ALL_ACCESS, kMe)});
  // Less is said, or only to what is below.
  EXPECT_EQ(ChildOf({Allow(kOI | kCI, FILE_GENERIC_READ, kMe), owner}, kFile).size(), 2u);
  EXPECT_EQ(ChildOf({Allow(kOI, FILE_ALL_ACCESS, kMe), owner}, kFolder).size(), 3u);
}

// https://learn.microsoft.com/windows/win32/secauthz/ace-inheritance-rules
TEST(InheritedDescriptor, GivesChildrenTheFlagsOfTheDocumentedTable) {
  // One more entry, so that the list is never made anew for want of any.
  const Ace witness = Allow(kOI | kCI, FILE_READ_DATA, kEveryone);
  for (const FlagRow& row : std::vector<FlagRow>{
           {0, kNothing, kNothing},
           {kOI, kID, kOI | kIO | kID},
           {kOI | kIO, kID, kOI | kIO | kID},
           {kOI | kNP, kID, kNothing},
           {kOI | kNP | kIO, kID, kNothing},
           {kCI, kNothing, kCI | kID},
           {kCI | kIO, kNothing, kCI | kID},
           {kCI | kNP, kNothing, kID},
           {kCI | kNP | kIO, kNothing, kID},
           {kOI | kCI, kID, kOI | kCI | kID},
           {kOI | kCI | kIO, kID, kOI | kCI | kID},
           {kOI | kCI | kNP, kID, kID},
           {kOI | kCI | kNP | kIO, kID, kID},
           {kOI | kCI | kID, kID, kOI | kCI | kID},
       }) {
    for (const bool is_folder : {kFile, kFolder}) {
      const int flags = is_folder ? row.folder : row.file;
      std::vector<Ace> expected;
      if (flags != kNothing) expected.push_back(Allow(flags, FILE_WRITE_DATA, kOther));
      expected.push_back(Allow(is_folder ? kOI | kCI | kID : kID, FILE_READ_DATA, kEveryone));
      EXPECT_EQ(ChildOf({Allow(row.parent, FILE_WRITE_DATA, kOther), witness}, is_folder), expected)
          << row.parent << (is_folder ? " folder" : " file");
    }
  }
}

TEST(InheritedDescriptor, KeepsTheFlagsAndTheOrderOfOtherwiseEqualEntries) {
  Ace deny = Allow(kOI | kCI, DELETE, kOther);
  deny.type = ACCESS_DENIED_ACE_TYPE;
  const std::vector<Ace> aces =
      ChildOf({deny, Allow(kOI | kCI, FILE_READ_DATA, kMe), Allow(kOI, DELETE, kMe)}, kFile);
  ASSERT_EQ(aces.size(), 3u);
  EXPECT_EQ(aces[0].type, ACCESS_DENIED_ACE_TYPE);
  EXPECT_EQ(aces[1].mask, DWORD{FILE_READ_DATA});
  EXPECT_EQ(aces[2].mask, DWORD{DELETE});
}

TEST(InheritedDescriptor, PutsTheOwnerAndTheGroupForCreators) {
  EXPECT_EQ(
      ChildOf({Allow(kOI | kCI | kIO, FILE_ALL_ACCESS, kCreatorOwner),
               Allow(kOI | kIO, FILE_READ_DATA, kCreatorGroup)},
              kFile),
      (std::vector<Ace>{Allow(kID, FILE_ALL_ACCESS, kMe), Allow(kID, FILE_READ_DATA, kMyGroup)}));
}

TEST(InheritedDescriptor, SplitsEntriesOfCreatorsForFolders) {
  EXPECT_EQ(ChildOf({Allow(kOI | kCI | kIO, FILE_ALL_ACCESS, kCreatorOwner),
                     Allow(kCI, FILE_READ_DATA, kCreatorGroup)},
                    kFolder),
            (std::vector<Ace>{Allow(kID, FILE_ALL_ACCESS, kMe),
                              Allow(kOI | kCI | kIO | kID, FILE_ALL_ACCESS, kCreatorOwner),
                              Allow(kID, FILE_READ_DATA, kMyGroup),
                              Allow(kCI | kIO | kID, FILE_READ_DATA, kCreatorGroup)}));
}

TEST(InheritedDescriptor, SplitsEntriesOfGenericRightsForFolders) {
  EXPECT_EQ(ChildOf({Allow(kOI | kCI, GENERIC_ALL, kOther)}, kFolder),
            (std::vector<Ace>{Allow(kID, FILE_ALL_ACCESS, kOther),
                              Allow(kOI | kCI | kIO | kID, GENERIC_ALL, kOther)}));
  EXPECT_EQ(ChildOf({Allow(kOI | kCI, GENERIC_ALL, kOther)}, kFile),
            (std::vector<Ace>{Allow(kID, FILE_ALL_ACCESS, kOther)}));
}

TEST(InheritedDescriptor, PassesOnWhatDoesNotActAsItStands) {
  EXPECT_EQ(ChildOf({Allow(kOI, GENERIC_READ, kCreatorOwner)}, kFolder),
            (std::vector<Ace>{Allow(kOI | kIO | kID, GENERIC_READ, kCreatorOwner)}));
}

TEST(InheritedDescriptor, LetsEntriesForAnObjectTypeActOnNothing) {
  Ace ace = Allow(kOI | kCI, FILE_READ_DATA, kOther);
  ace.type = ACCESS_ALLOWED_OBJECT_ACE_TYPE;
  ace.inherited_object_type = Guid{1};
  Descriptor parent = With({ace});
  parent.dacl->revision = ACL_REVISION_DS;
  const Descriptor folder = InheritedDescriptor(parent, kFolder, Me());
  ASSERT_EQ(folder.dacl->aces.size(), 1u);
  EXPECT_EQ(folder.dacl->aces[0].flags, kOI | kCI | kIO | kID);
  EXPECT_EQ(folder.dacl->revision, ACL_REVISION_DS);
  ASSERT_EQ(InheritedDescriptor(parent, kFile, Me()).dacl->aces.size(), 2u);  // the default
}

TEST(InheritedDescriptor, BelongsToItsCreator) {
  const Descriptor made = InheritedDescriptor(With({}), kFile, Me());
  EXPECT_EQ(made.owner, kMe);
  EXPECT_EQ(made.group, kMyGroup);
}

TEST(InheritedDescriptor, MarksWhatIsInheritedAutomatically) {
  const Descriptor made =
      InheritedDescriptor(With({Allow(kOI, FILE_READ_DATA, kOther)}), kFile, Me());
  EXPECT_EQ(made.control, SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED);
}

TEST(InheritedDescriptor, MarksNothingBelowAParentWithoutAutomaticInheritance) {
  const Descriptor parent = With({Allow(kOI, FILE_READ_DATA, kOther)}, SE_DACL_PRESENT);
  const Descriptor made = InheritedDescriptor(parent, kFile, Me());
  EXPECT_EQ(made.control, SE_DACL_PRESENT);
  EXPECT_EQ(made.dacl->aces, (std::vector<Ace>{Allow(0, FILE_READ_DATA, kOther)}));
}

TEST(InheritedDescriptor, PassesOnWhatAProtectedParentHas) {
  const Descriptor parent = With({Allow(kOI, FILE_READ_DATA, kOther)},
                                 SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED | SE_DACL_PROTECTED);
  const Descriptor made = InheritedDescriptor(parent, kFile, Me());
  EXPECT_EQ(made.control, SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED);
  EXPECT_EQ(made.dacl->aces.size(), 1u);
}

TEST(InheritedDescriptor, TakesTheTokensListWhenNothingIsInherited) {
  Descriptor nulled = With({});
  nulled.dacl.reset();
  for (const Descriptor& parent :
       {With({Allow(0, FILE_ALL_ACCESS, kOther)}), With({Allow(kCI, FILE_ALL_ACCESS, kOther)}),
        With({}), nulled, Descriptor{}}) {
    const Descriptor made = InheritedDescriptor(parent, kFile, Me());
    EXPECT_EQ(made.control, SE_DACL_PRESENT);
    EXPECT_EQ(made.dacl,
              (Acl{ACL_REVISION,
                   {Allow(0, FILE_ALL_ACCESS, kMe), Allow(0, FILE_ALL_ACCESS, kLocalSystem)}}));
  }
}

TEST(InheritedDescriptor, InheritsAuditingLikewise) {
  Descriptor parent = With({});
  parent.control |= SE_SACL_PRESENT | SE_SACL_AUTO_INHERITED;
  Ace audit = Allow(kOI | kCI | FAILED_ACCESS_ACE_FLAG, GENERIC_ALL, kEveryone);
  audit.type = SYSTEM_AUDIT_ACE_TYPE;
  Ace label = Allow(0, SYSTEM_MANDATORY_LABEL_NO_WRITE_UP, Sid{16, {12288}});
  label.type = SYSTEM_MANDATORY_LABEL_ACE_TYPE;
  parent.sacl = Acl{ACL_REVISION, {label, audit}};
  const Descriptor made = InheritedDescriptor(parent, kFile, Me());
  EXPECT_EQ(made.control, SE_DACL_PRESENT | SE_SACL_PRESENT | SE_SACL_AUTO_INHERITED);
  audit.flags = kID | FAILED_ACCESS_ACE_FLAG;
  audit.mask = FILE_ALL_ACCESS;
  EXPECT_EQ(made.sacl, (Acl{ACL_REVISION, {audit}}));
}

TEST(InheritedDescriptor, HasNoSystemListWhenNothingIsInherited) {
  const Descriptor made = InheritedDescriptor(With({}), kFolder, Me());
  EXPECT_FALSE(made.sacl);
}

TEST(Reinherited, PutsInheritedEntriesBehindTheExplicitOnes) {
  const Descriptor own = With({Allow(kID, DELETE, kOther), Allow(kOI, FILE_READ_DATA, kMe),
                               Allow(kID, WRITE_DAC, kOther), Allow(0, FILE_EXECUTE, kMe)});
  const Descriptor parent = With({Allow(kOI | kCI, FILE_WRITE_DATA, kEveryone)});
  EXPECT_EQ(Reinherited(own, parent, kFolder).dacl->aces,
            (std::vector<Ace>{Allow(kOI, FILE_READ_DATA, kMe), Allow(0, FILE_EXECUTE, kMe),
                              Allow(kOI | kCI | kID, FILE_WRITE_DATA, kEveryone)}));
}

TEST(Reinherited, MarksEntriesWhateverTheParentsMark) {
  const Descriptor own = With({}, SE_DACL_PRESENT);
  const Descriptor parent = With({Allow(kOI, FILE_READ_DATA, kOther)}, SE_DACL_PRESENT);
  const Descriptor made = Reinherited(own, parent, kFile);
  EXPECT_EQ(made.dacl->aces, (std::vector<Ace>{Allow(kID, FILE_READ_DATA, kOther)}));
  EXPECT_EQ(made.control, SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED);
}

TEST(Reinherited, TakesTheHigherRevisionOfTheTwoLists) {
  Descriptor parent = With({Allow(kOI, FILE_READ_DATA, kOther)});
  parent.dacl->revision = ACL_REVISION_DS;
  EXPECT_EQ(Reinherited(With({}), parent, kFile).dacl->revision, ACL_REVISION_DS);
  Descriptor own = With({});
  own.dacl->revision = ACL_REVISION_DS;
  parent.dacl->revision = ACL_REVISION;
  EXPECT_EQ(Reinherited(own, parent, kFile).dacl->revision, ACL_REVISION_DS);
}

TEST(Reinherited, PutsItsOwnOwnerAndGroupForCreators) {
  Descriptor own = With({});
  own.owner = kMe;
  own.group = kMyGroup;
  const Descriptor parent =
      With({Allow(kOI, FILE_READ_DATA, kCreatorOwner), Allow(kOI, FILE_READ_DATA, kCreatorGroup)});
  EXPECT_EQ(
      Reinherited(own, parent, kFile).dacl->aces,
      (std::vector<Ace>{Allow(kID, FILE_READ_DATA, kMe), Allow(kID, FILE_READ_DATA, kMyGroup)}));
}

TEST(Reinherited, KeepsAProtectedListAsItIs) {
  const Descriptor own = With({Allow(kID, DELETE, kOther)}, SE_DACL_PRESENT | SE_DACL_PROTECTED);
  EXPECT_EQ(Reinherited(own, With({Allow(kOI, FILE_READ_DATA, kOther)}), kFile), own);
}

TEST(Reinherited, LosesInheritedEntriesThatTheParentNoLongerHas) {
  const Descriptor own = With({Allow(kID, DELETE, kOther)});
  EXPECT_EQ(Reinherited(own, With({}), kFile), With({}));
}

TEST(Reinherited, KeepsANullList) {
  Descriptor own = With({});
  own.dacl.reset();
  EXPECT_EQ(Reinherited(own, With({Allow(kOI, FILE_READ_DATA, kOther)}), kFile), own);
}

TEST(Reinherited, MakesAListOnlyForWhatIsInherited) {
  Descriptor own;
  own.owner = kMe;
  EXPECT_EQ(Reinherited(own, With({}), kFile), own);
  const Descriptor made = Reinherited(own, With({Allow(kOI, FILE_READ_DATA, kOther)}), kFile);
  EXPECT_EQ(made.control, SE_DACL_PRESENT | SE_DACL_AUTO_INHERITED);
  EXPECT_EQ(made.dacl->aces.size(), 1u);
}

TEST(Reinherited, KeepsTheOtherListWhenOneIsProtected) {
  Descriptor own = With({}, SE_DACL_PRESENT | SE_DACL_PROTECTED);
  Descriptor parent = With({Allow(kOI, FILE_READ_DATA, kOther)});
  parent.control |= SE_SACL_PRESENT;
  Ace audit = Allow(kOI | SUCCESSFUL_ACCESS_ACE_FLAG, DELETE, kEveryone);
  audit.type = SYSTEM_AUDIT_ACE_TYPE;
  parent.sacl = Acl{ACL_REVISION, {audit}};
  const Descriptor made = Reinherited(own, parent, kFile);
  EXPECT_TRUE(made.dacl->aces.empty());
  ASSERT_TRUE(made.sacl);
  ASSERT_EQ(made.sacl->aces.size(), 1u);
  EXPECT_EQ(made.sacl->aces[0].flags, kID | SUCCESSFUL_ACCESS_ACE_FLAG);
  EXPECT_EQ(made.control,
            SE_DACL_PRESENT | SE_DACL_PROTECTED | SE_SACL_PRESENT | SE_SACL_AUTO_INHERITED);
}

}  // namespace
}  // namespace simulator
