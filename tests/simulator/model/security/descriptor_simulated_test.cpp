#include <gtest/gtest.h>

#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "support/sddl_texts.h"
#include "support/test_names.h"

namespace simulator {
namespace {

// "01 0a" as bytes.
std::string Bytes(const std::string& hex) {
  std::string bytes;
  for (size_t i = 0; i + 1 < hex.size(); i += 3) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

const Sid kEveryone{1, {0}};
const std::string kEveryoneBytes = Bytes("01 01 00 00 00 00 00 01 00 00 00 00");
constexpr Guid kGuid{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
const std::string kGuidBytes = Bytes("01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10");

const std::string kPlainList =
    Bytes("02 00 1c 00 01 00 00 00 00 03 14 00 ff 01 1f 00") + kEveryoneBytes;

Acl PlainList() {
  Ace ace;
  ace.flags = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;
  ace.mask = FILE_ALL_ACCESS;
  ace.sid = kEveryone;
  return {ACL_REVISION, {ace}};
}

Descriptor Parsed(const char* text) {
  Descriptor descriptor;
  const AccountDomains domains{{5, {21, 1, 2, 3}}, std::nullopt};
  EXPECT_EQ(ParseSddl(text, domains, &descriptor), DWORD{ERROR_SUCCESS}) << text;
  return descriptor;
}

TEST(SidBytes, KeepTheAuthorityBigAndThePartsLittleEndian) {
  EXPECT_EQ(SidBytes({0x010203040506, {32, 0x01020304}}),
            Bytes("01 02 01 02 03 04 05 06 20 00 00 00 04 03 02 01"));
}

TEST(ReadSid, IsTheInverse) {
  const Sid sid{0x010203040506, {32, 0x01020304}};
  EXPECT_EQ(ReadSid(SidBytes(sid)), sid);
}

TEST(ReadSid, IgnoresWhatFollows) { EXPECT_EQ(ReadSid(kEveryoneBytes + "more"), kEveryone); }

TEST(ReadSid, NeedsEveryByte) {
  for (size_t size = 0; size < kEveryoneBytes.size(); ++size) {
    EXPECT_FALSE(ReadSid(kEveryoneBytes.substr(0, size))) << size;
  }
}

TEST(ReadSid, RefusesOtherRevisionsAndTooManyParts) {
  const std::string parts(16 * sizeof(DWORD), '\0');
  EXPECT_TRUE(ReadSid(Bytes("01 0f 00 00 00 00 00 05") + parts));
  EXPECT_FALSE(ReadSid(Bytes("01 10 00 00 00 00 00 05") + parts));
  EXPECT_FALSE(ReadSid(Bytes("02 0f 00 00 00 00 00 05") + parts));
}

TEST(AclBytes, AreAHeaderAndTheEntries) { EXPECT_EQ(AclBytes(PlainList()), kPlainList); }

TEST(AclBytes, HaveTheObjectTypesThatThereAre) {
  Acl list = PlainList();
  list.revision = ACL_REVISION_DS;
  list.aces[0].type = ACCESS_ALLOWED_OBJECT_ACE_TYPE;
  list.aces[0].inherited_object_type = kGuid;
  EXPECT_EQ(AclBytes(list), Bytes("04 00 30 00 01 00 00 00 05 03 28 00 ff 01 1f 00 02 00 00 00") +
                                kGuidBytes + kEveryoneBytes);
  EXPECT_EQ(ReadAcl(AclBytes(list)), list);
}

TEST(AclBytes, HaveTheDataBehindTheSid) {
  Acl list = PlainList();
  list.aces[0].type = ACCESS_ALLOWED_CALLBACK_ACE_TYPE;
  list.aces[0].data = "artx";
  EXPECT_EQ(AclBytes(list),
            Bytes("02 00 20 00 01 00 00 00 09 03 18 00 ff 01 1f 00") + kEveryoneBytes + "artx");
  EXPECT_EQ(ReadAcl(AclBytes(list)), list);
}

TEST(AclBytesDeathTest, HaveNoRoomForMoreThanTheirSizeCanSay) {
  // 65532 bytes are the most that entries of this kind fill.
  Acl list = PlainList();
  list.aces.resize(3276, list.aces[0]);
  EXPECT_EQ(AclSize(list), 65528u);
  EXPECT_EQ(AclBytes(list).size(), 65528u);
  list.aces.push_back(list.aces[0]);
  EXPECT_DEATH(AclBytes(list), "an access control list of 65548");
}

TEST(ReadAcl, IsTheInverse) { EXPECT_EQ(ReadAcl(kPlainList), PlainList()); }

TEST(ReadAcl, NeedsEveryByte) {
  for (size_t size = 0; size < kPlainList.size(); ++size) {
    EXPECT_FALSE(ReadAcl(kPlainList.substr(0, size))) << size;
  }
}

TEST(ReadAcl, IgnoresRoomBehindTheLastEntry) {
  std::string roomy = kPlainList + std::string(8, '\xFF');
  roomy[2] = static_cast<char>(roomy.size());
  EXPECT_EQ(ReadAcl(roomy), PlainList());
}

struct Damage {
  const char* what;
  size_t position;
  char byte;
};

void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.what; }

class DamagedAcl : public testing::TestWithParam<Damage> {};

TEST_P(DamagedAcl, IsNotRead) {
  std::string bytes = kPlainList;
  bytes[GetParam().position] = GetParam().byte;
  EXPECT_FALSE(ReadAcl(bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, DamagedAcl,
    testing::Values(Damage{"an old revision", 0, 1}, Damage{"a revision to come", 0, 5},
                    Damage{"a list shorter than its header", 2, 7},
                    Damage{"a list longer than the memory", 2, 0x20},
                    Damage{"one entry too many", 4, 2}, Damage{"a compound entry", 8, 4},
                    Damage{"an object entry in a plain list", 8, 5},
                    Damage{"an entry of unknown type", 8, 0x14}, Damage{"an empty entry", 10, 0},
                    Damage{"an entry of odd size", 10, 0x13},
                    Damage{"an entry too short for its SID", 10, 0x10},
                    Damage{"an entry longer than the list", 10, 0x18},
                    Damage{"a SID of another revision", 16, 2},
                    Damage{"a SID longer than its entry", 17, 2}),
    tests::NamedAsPrinted());

TEST(DescriptorBytes, ArrangeSaclDaclOwnerAndGroup) {
  EXPECT_EQ(DescriptorBytes(Parsed("O:WDG:BAD:P(A;OICI;FA;;;WD)S:")),
            Bytes("01 00 14 90 38 00 00 00 44 00 00 00 14 00 00 00 1c 00 00 00") +
                Bytes("02 00 08 00 00 00 00 00") + kPlainList + kEveryoneBytes +
                Bytes("01 02 00 00 00 00 00 05 20 00 00 00 20 02 00 00"));
}

TEST(DescriptorBytes, AreAHeaderWhenThereIsNothing) {
  EXPECT_EQ(DescriptorBytes({}),
            Bytes("01 00 00 80 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"));
}

TEST(ReadDescriptor, IsTheInverse) {
  for (const tests::SddlSample& sample : tests::kSddlTexts) {
    const Descriptor descriptor = Parsed(sample.text);
    EXPECT_EQ(ReadDescriptor(DescriptorBytes(descriptor)), descriptor) << sample.about;
  }
}

TEST(ReadDescriptor, NeedsEveryByte) {
  const std::string bytes = DescriptorBytes(Parsed("O:WDG:BAD:P(A;OICI;FA;;;WD)S:"));
  for (size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_FALSE(ReadDescriptor(bytes.substr(0, size))) << size;
  }
}

TEST(ReadDescriptor, IgnoresAListThatIsNotPresent) {
  std::string bytes = DescriptorBytes(Parsed("D:(A;;FA;;;WD)"));
  bytes[2] = 0;
  EXPECT_EQ(ReadDescriptor(bytes), Descriptor{});
}

class DamagedDescriptor : public testing::TestWithParam<Damage> {};

TEST_P(DamagedDescriptor, IsNotRead) {
  std::string bytes = DescriptorBytes(Parsed("O:WDG:BAD:P(A;OICI;FA;;;WD)"));
  bytes[GetParam().position] = GetParam().byte;
  EXPECT_FALSE(ReadDescriptor(bytes));
}

INSTANTIATE_TEST_SUITE_P(Bytes, DamagedDescriptor,
                         testing::Values(Damage{"another revision", 0, 2},
                                         Damage{"the absolute form", 3, 0},
                                         Damage{"an owner within the header", 4, 0x10},
                                         Damage{"an owner at an odd place", 4, 0x32},
                                         Damage{"a group behind the end", 9, 1},
                                         Damage{"a group at the end", 8, 0x4C},
                                         Damage{"a list where the owner is", 16, 0x30}),
                         tests::NamedAsPrinted());

TEST(ReadDescriptor, TakesAnyDamageWithoutHarm) {
  for (const tests::SddlSample& sample : tests::kSddlTexts) {
    const std::string bytes = DescriptorBytes(Parsed(sample.text));
    for (size_t position = 0; position < bytes.size(); ++position) {
      for (const int byte : {0x00, 0x05, 0xFF}) {
        std::string damaged = bytes;
        damaged[position] = static_cast<char>(byte);
        const std::optional<Descriptor> read = ReadDescriptor(damaged);
        if (read) {
          EXPECT_EQ(ReadDescriptor(DescriptorBytes(*read)), read) << sample.about << position;
        }
      }
    }
  }
}

}  // namespace
}  // namespace simulator
