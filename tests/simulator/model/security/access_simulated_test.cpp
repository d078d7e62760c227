#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

const Sid kMe{5, {21, 1, 2, 3, 1001}};
const Sid kTeam{5, {21, 1, 2, 3, 2001}};
const Sid kStranger{5, {21, 1, 2, 3, 1002}};

Identity Me() {
  Identity me;
  me.user = kMe;
  me.groups = {kTeam, kEveryone};
  return me;
}

Ace Entry(BYTE type, ACCESS_MASK mask, const Sid& sid, BYTE flags = 0) {
  Ace ace;
  ace.type = type;
  ace.flags = flags;
  ace.mask = mask;
  ace.sid = sid;
  return ace;
}

Ace Allow(ACCESS_MASK mask, const Sid& sid, BYTE flags = 0) {
  return Entry(ACCESS_ALLOWED_ACE_TYPE, mask, sid, flags);
}

Ace Deny(ACCESS_MASK mask, const Sid& sid, BYTE flags = 0) {
  return Entry(ACCESS_DENIED_ACE_TYPE, mask, sid, flags);
}

Descriptor Of(const Sid& owner, std::vector<Ace> aces) {
  Descriptor descriptor;
  descriptor.control = SE_DACL_PRESENT;
  descriptor.owner = owner;
  descriptor.group = kStranger;
  descriptor.dacl = Acl{ACL_REVISION, std::move(aces)};
  return descriptor;
}

bool GrantsMe(std::vector<Ace> aces, ACCESS_MASK wanted, const Sid& owner = kStranger) {
  return Grants(Of(owner, std::move(aces)), Me(), wanted);
}

TEST(Grants, WithoutAListEverything) {
  Descriptor descriptor;
  EXPECT_TRUE(Grants(descriptor, Me(), FILE_ALL_ACCESS));
  descriptor.control = SE_DACL_PRESENT;  // a null list
  EXPECT_TRUE(Grants(descriptor, Me(), FILE_ALL_ACCESS));
}

TEST(Grants, NothingByAnEmptyList) { EXPECT_FALSE(GrantsMe({}, FILE_READ_DATA)); }

TEST(Grants, WhatEntriesForTheUserAndItsGroupsAllowTogether) {
  const std::vector<Ace> aces = {Allow(FILE_READ_DATA, kMe), Allow(FILE_WRITE_DATA, kTeam),
                                 Allow(FILE_EXECUTE, kStranger)};
  EXPECT_TRUE(GrantsMe(aces, FILE_READ_DATA | FILE_WRITE_DATA));
  EXPECT_FALSE(GrantsMe(aces, FILE_READ_DATA | FILE_EXECUTE));
}

TEST(Grants, NothingThatIsDeniedBeforeItIsAllowed) {
  EXPECT_FALSE(GrantsMe({Deny(FILE_READ_DATA, kTeam), Allow(FILE_ALL_ACCESS, kMe)},
                        FILE_READ_DATA | FILE_WRITE_DATA));
  EXPECT_TRUE(
      GrantsMe({Deny(FILE_READ_DATA, kTeam), Allow(FILE_ALL_ACCESS, kMe)}, FILE_WRITE_DATA));
}

TEST(Grants, WhatIsAllowedBeforeItIsDenied) {
  EXPECT_TRUE(GrantsMe({Allow(FILE_READ_DATA, kMe), Deny(FILE_READ_DATA, kMe)}, FILE_READ_DATA));
}

TEST(Grants, PassesOverEntriesForChildrenOnly) {
  EXPECT_FALSE(GrantsMe({Allow(FILE_READ_DATA, kMe, OBJECT_INHERIT_ACE | INHERIT_ONLY_ACE)},
                        FILE_READ_DATA));
  EXPECT_TRUE(GrantsMe({Deny(FILE_READ_DATA, kMe, CONTAINER_INHERIT_ACE | INHERIT_ONLY_ACE),
                        Allow(FILE_READ_DATA, kMe, CONTAINER_INHERIT_ACE)},
                       FILE_READ_DATA));
}

TEST(Grants, WhatGenericRightsOfAnEntryStandFor) {
  EXPECT_TRUE(GrantsMe({Allow(GENERIC_READ, kMe)}, FILE_GENERIC_READ));
  EXPECT_FALSE(GrantsMe({Allow(GENERIC_READ, kMe)}, FILE_WRITE_DATA));
  EXPECT_FALSE(GrantsMe({Deny(GENERIC_WRITE, kMe), Allow(GENERIC_ALL, kMe)}, FILE_APPEND_DATA));
}

TEST(Grants, TheOwnerTheRightToChangeTheList) {
  EXPECT_TRUE(GrantsMe({}, READ_CONTROL | WRITE_DAC, kMe));
  EXPECT_TRUE(GrantsMe({}, READ_CONTROL | WRITE_DAC, kTeam));
  EXPECT_TRUE(GrantsMe({Deny(FILE_ALL_ACCESS, kMe)}, WRITE_DAC, kMe));
  EXPECT_FALSE(GrantsMe({}, WRITE_OWNER, kMe));
  EXPECT_FALSE(GrantsMe({}, READ_CONTROL));
}

TEST(Grants, TheOwnerOnlyWhatAnEntryForOwnersSays) {
  EXPECT_FALSE(GrantsMe({Allow(FILE_READ_DATA, kOwnerRights)}, WRITE_DAC, kMe));
  EXPECT_TRUE(GrantsMe({Allow(FILE_READ_DATA, kOwnerRights)}, FILE_READ_DATA, kMe));
  EXPECT_FALSE(GrantsMe({Allow(FILE_READ_DATA, kOwnerRights)}, FILE_READ_DATA));
  EXPECT_TRUE(GrantsMe({Allow(FILE_READ_DATA, kOwnerRights, OBJECT_INHERIT_ACE | INHERIT_ONLY_ACE)},
                       WRITE_DAC, kMe));
}

TEST(Grants, NoImplicitRightsWithoutAnOwner) {
  Descriptor descriptor = Of(kMe, {Allow(FILE_READ_DATA, kOwnerRights)});
  descriptor.owner.reset();
  EXPECT_FALSE(Grants(descriptor, Me(), READ_CONTROL));
  EXPECT_FALSE(Grants(descriptor, Me(), FILE_READ_DATA));
}

TEST(Grants, ByObjectEntriesWhatTheySayOfTheWholeFile) {
  Ace ace = Entry(ACCESS_ALLOWED_OBJECT_ACE_TYPE, FILE_READ_DATA, kMe);
  ace.object_type = Guid{1, 2, 3};
  EXPECT_TRUE(GrantsMe({ace}, FILE_READ_DATA));
  ace.type = ACCESS_DENIED_OBJECT_ACE_TYPE;
  EXPECT_FALSE(GrantsMe({ace, Allow(FILE_READ_DATA, kMe)}, FILE_READ_DATA));
}

TEST(Grants, NothingOnAConditionAndDeniesOnOne) {
  EXPECT_FALSE(
      GrantsMe({Entry(ACCESS_ALLOWED_CALLBACK_ACE_TYPE, FILE_READ_DATA, kMe)}, FILE_READ_DATA));
  EXPECT_FALSE(GrantsMe(
      {Entry(ACCESS_DENIED_CALLBACK_ACE_TYPE, FILE_READ_DATA, kMe), Allow(FILE_READ_DATA, kMe)},
      FILE_READ_DATA));
}

TEST(Grants, NothingByEntriesThatAudit) {
  EXPECT_FALSE(GrantsMe({Entry(SYSTEM_AUDIT_ACE_TYPE, FILE_READ_DATA, kMe)}, FILE_READ_DATA));
}

// https://learn.microsoft.com/windows/win32/fileio/file-security-and-access-rights
TEST(MapGeneric, GivesTheRightsOfAFile) {
  EXPECT_EQ(MapGeneric(GENERIC_READ), 0x120089u);
  EXPECT_EQ(MapGeneric(GENERIC_WRITE), 0x120116u);
  EXPECT_EQ(MapGeneric(GENERIC_EXECUTE), 0x1200A0u);
  EXPECT_EQ(MapGeneric(GENERIC_ALL), 0x1F01FFu);
  EXPECT_EQ(MapGeneric(GENERIC_READ | GENERIC_EXECUTE | DELETE), 0x1300A9u);
  EXPECT_EQ(MapGeneric(0x1301BF), 0x1301BFu);
}

}  // namespace
}  // namespace simulator
