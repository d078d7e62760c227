#include "common/win/diskpart_output.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/diskpart_results.h"
#include "support/samples.h"
#include "support/test_names.h"

namespace common::win {
namespace {

using tests::Detail;
using tests::Disks;
using tests::kLetterless;
using tests::kNothing;
using tests::ParsedDetail;
using tests::ParsedDisks;

// What the disk tool of many versions and languages printed.

struct ListSample {
  const char* file;
  Disks disks;
};

std::ostream& operator<<(std::ostream& out, const ListSample& test) { return out << test.file; }

class DiskListSample : public testing::TestWithParam<ListSample> {};

TEST_P(DiskListSample, GivesTheDisksThatTheRulesFindInIt) {
  const std::string text = tests::ReadToolSample("diskpart/list_disk/", GetParam().file);
  EXPECT_EQ(ParsedDisks(text), GetParam().disks);
}

// A marked line has the star as its first word, so that its second is "Disk"; a Spanish status has
// two words, so that the fourth is "línea". Neither is a number.
INSTANTIATE_TEST_SUITE_P(
    All, DiskListSample,
    testing::Values(
        ListSample{"de-10.0.18362-two-gpt.txt", {{0, 953}, {1, 57}}},
        ListSample{"en-10.0.17763-gpt-100gb.txt", {{0, 128}, {1, 100}}},
        ListSample{"en-10.0.26100-free28gb.txt", {{0, 953}, {1, 28}}},
        ListSample{"en-6.1.7600-no-media.txt", {{0, 931}}},
        ListSample{"en-6.2.9200-winre-scripted-selected.txt", {{0, 0}}},
        ListSample{"en-6.2.9200-winre-scripted.txt", {{0, 931}}},
        ListSample{"en-missing-M0-dynamic.txt", {{0, 447}, {1, 447}}},
        ListSample{"en-narrow-status-selected-offline-dyn.txt", {{0, 80}}},
        ListSample{"en-winpe-10.0.22621-free804gb.txt", {{0, 931}, {1, 58}}},
        ListSample{"en-xp-1.0-narrow-status.txt", {{0, 75}, {1, 75}}},
        ListSample{"es-10.0.18362-1315mb.txt", {{0, 0}, {1, 0}}},
        ListSample{"es-10.0.19041-five-disks.txt", {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}},
        ListSample{"es-6.1.7600-800mb.txt", {{0, 0}}},
        ListSample{"es-6.3.9600-winre-scripted-padded.txt", {{0, 0}, {1, 0}}},
        ListSample{"fr-931go-1024k.txt", {}},
        ListSample{"ja-four-disks-selected.txt", {{0, 931}, {1, 476}, {2, 931}, {0, 0}}},
        ListSample{"ko-gpt.txt", {{0, 238}}}, ListSample{"zh-10.0.17134-447gb.txt", {{0, 447}}},
        ListSample{"zh-10.0.17134-stdin-pipe-with-prompt.txt", {{0, 465}}},
        ListSample{"zh-10.0.19041-three-disks.txt", {{0, 476}, {1, 465}, {2, 465}}},
        ListSample{"zh-10.0.26100-41mb-5120kb.txt", {{0, 931}, {1, 57}}},
        ListSample{"zh-2003-narrow-dynamic-672kb.txt", {{0, 70}, {1, 100}}},
        ListSample{"zh-6.1.7601-server-six-disks-mb.txt", {{0, 50}}},
        ListSample{"zh-three-gpt.txt", {{0, 476}, {1, 476}, {2, 476}}}),
    tests::NamedAsPrinted());

TEST(DiskListSamples, AreAllInTheTable) {
  EXPECT_EQ(tests::CountSamples("diskpart/list_disk"), 24);
}

struct DetailSample {
  const char* file;
  Detail detail;
};

std::ostream& operator<<(std::ostream& out, const DetailSample& test) { return out << test.file; }

class DiskDetailSample : public testing::TestWithParam<DetailSample> {};

TEST_P(DiskDetailSample, GivesTheLetterThatTheRulesFindInIt) {
  const std::string text = tests::ReadToolSample("diskpart/detail_disk/", GetParam().file);
  EXPECT_EQ(ParsedDetail(text), GetParam().detail);
}

// The star of a marked volume pushes "Volume" into the place of the number.
INSTANTIATE_TEST_SUITE_P(
    All, DiskDetailSample,
    testing::Values(DetailSample{"en-10.0.26100-gpt-boot.txt", {'c', true}},
                    DetailSample{"en-azure-data-disk-1023gb.txt", {'e', true}},
                    DetailSample{"en-azure-data-disk-no-volumes.txt", kNothing},
                    DetailSample{"en-azure-os-disk-padded.txt", {'c', true}},
                    DetailSample{"en-cloud-pvdisk-simple-fat32.txt", kNothing},
                    DetailSample{"en-raid-data-dynamic-simple.txt", {'e', true}},
                    DetailSample{"en-usb-removable-star-offline-nofs.txt", kNothing},
                    DetailSample{"en-xp-ide-volume-without-fs.txt", {'c', true}},
                    DetailSample{"es-6.3.9600-sata-hidden-esp-padded.txt", kNothing},
                    DetailSample{"zh-ata-mbr-one-volume.txt", {'e', true}},
                    DetailSample{"zh-usb-removable-fat32-restored.txt", {'f', true}}),
    tests::NamedAsPrinted());

TEST(DiskDetailSamples, AreAllInTheTable) {
  EXPECT_EQ(tests::CountSamples("diskpart/detail_disk"), 11);
}

// Lines of a listing.

struct ListCase {
  const char* what;
  std::string text;
  Disks disks;
};

std::ostream& operator<<(std::ostream& out, const ListCase& test) { return out << test.what; }

class DiskList : public testing::TestWithParam<ListCase> {};

TEST_P(DiskList, IsReadByWordsAndPieces) {
  EXPECT_EQ(ParsedDisks(GetParam().text), GetParam().disks) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    All, DiskList,
    testing::Values(
        ListCase{"nothing", "", {}}, ListCase{"line ends alone", "\r\n\r\n\r\n", {}},
        ListCase{"a disk", "  Disk 0    Online           40 GB      0 B\r\n", {{0, 40}}},
        ListCase{"a last line without an end", "  Disk 7    Online           40 GB", {{7, 40}}},
        ListCase{"ten pieces", "a 1 b 2 GB c d e f g", {{1, 2}}},
        ListCase{"nine pieces", "a 1 b 2 GB c d e f", {}},
        ListCase{"nine pieces and a final blank", "a 1 b 2 GB c d e f ", {}},
        ListCase{"ten pieces by empty ones", "a      1 b 2 GB", {{1, 2}}},
        ListCase{"leading blanks count", "     a 1 b 2 GB", {{1, 2}}},
        ListCase{"a final run of blanks counts but for the last", "a 1 b 2 GB      ", {{1, 2}}},
        ListCase{"a final run of one blank fewer", "a 1 b 2 GB     ", {}},
        ListCase{"tabs do not divide", "a\t1\tb\t2\tGB          3 y 4", {{3, 4}}},
        ListCase{"GB within a word", "a 1 b 2 xGBx c d e f g", {{1, 2}}},
        ListCase{"gb in lower case", "a 1 b 2 gb c d e f g", {}},
        ListCase{"GB in two words", "a 1 b 2 G B c d e f g", {}},
        ListCase{"MB", "  Disk 1    Online         4096 MB  4096 MB", {}},
        ListCase{"TB", "  Disk 1    Online           16 TB      0 B", {}},
        ListCase{
            "GB of free space alone", "  Disk 1    Online           16 TB    12 GB", {{1, 16}}},
        ListCase{"white space and a sign before a number", "a \t+5 b -7x GB          c", {{5, -7}}},
        ListCase{"no numbers", "a b c d GB          e", {{0, 0}}},
        ListCase{"a lone CR divides nothing", "a 1 b 2 GB\ra 3 b 4 GB          c", {{1, 2}}},
        ListCase{"a lone LF divides nothing", "a 1 b 2 GB\na 3 b 4 GB          c", {{1, 2}}},
        ListCase{"LF CR divides nothing", "a 1 b 2 GB\n\ra 3 b 4 GB          c", {{1, 2}}},
        ListCase{"CR CR LF leaves a CR",
                 "a 1 b 2 GB          c\r\r\na 3 b 4 GB          c",
                 {{1, 2}, {3, 4}}},
        ListCase{"the order of the listing",
                 "a 9 b 1 GB          c\r\na 2 b 1 GB          c\r\na 9 b 3 GB          c\r\n",
                 {{9, 1}, {2, 1}, {9, 3}}},
        ListCase{"fewer than four words", "GB         ", {}},
        ListCase{"three words", "a 1 GB          ", {}},
        ListCase{"bytes above 0x7F", "\xff\xfe 1 \x80 2 GB          \xc3", {{1, 2}}}),
    tests::NamedAsPrinted());

TEST(ParseDiskList, ReadsTheLargestNumbersOfAnInt) {
  EXPECT_EQ(ParsedDisks("a 2147483647 b -2147483648 GB          c"),
            (Disks{{2147483647, -2147483647 - 1}}));
}

TEST(ParseDiskList, SurvivesNumbersBeyondAnInt) {
  const std::string digits(5000, '9');
  EXPECT_EQ(ParsedDisks("a " + digits + " b -" + digits + " GB          c").size(), 1U);
}

TEST(ParseDiskList, ReadsBeyondZeroBytes) {
  const std::string zero(1, '\0');
  EXPECT_EQ(ParsedDisks(zero + "\r\na 1" + zero + "2 b 3 GB          c"), (Disks{{1, 3}}));
}

TEST(ParseDiskList, TakesMegabytes) {
  std::string text;
  Disks expected;
  for (int i = 0; i < 50000; ++i) {
    text += "  Disk " + std::to_string(i) + "    Online           40 GB      0 B\r\n";
    expected.emplace_back(i, 40);
  }
  EXPECT_EQ(ParsedDisks(text), expected);
  EXPECT_EQ(ParsedDisks(std::string(4000000, ' ') + "a 1 b 2 GB"), (Disks{{1, 2}}));
  EXPECT_EQ(ParsedDisks(std::string(4000000, 'x')), Disks{});
}

// Lines of a detail.

struct DetailCase {
  const char* what;
  std::string text;
  Detail detail;
};

std::ostream& operator<<(std::ostream& out, const DetailCase& test) { return out << test.what; }

class DiskDetail : public testing::TestWithParam<DetailCase> {};

TEST_P(DiskDetail, IsReadByWordsAndPieces) {
  EXPECT_EQ(ParsedDetail(GetParam().text), GetParam().detail) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    All, DiskDetail,
    testing::Values(
        DetailCase{"nothing", "", kNothing},
        DetailCase{"the system volume",
                   "  Volume 0     C                NTFS   Partition     39 GB  Healthy    System",
                   {'c', true}},
        DetailCase{"a label and no letter",
                   "  Volume 3         Data         NTFS   Partition    100 GB  Healthy",
                   kLetterless},
        DetailCase{"neither label nor letter",
                   "  Volume 3                      NTFS   Partition    100 GB  Healthy",
                   kLetterless},
        DetailCase{"no volumes", "\r\nThere are no volumes.\r\n", kNothing},
        DetailCase{"MB alone",
                   "  Volume 2     D   Data         NTFS   Partition   8189 MB  Healthy", kNothing},
        DetailCase{"TB alone",
                   "  Volume 2     D   Data         NTFS   Partition     12 TB  Healthy", kNothing},
        DetailCase{"letter A",
                   "  Volume 2     A   Data         NTFS   Partition    100 GB  Healthy",
                   kLetterless},
        DetailCase{"letter B",
                   "  Volume 2     B   Data         NTFS   Partition    100 GB  Healthy",
                   kLetterless},
        DetailCase{"letter z", "V 1 z N P 5 GB", {'z', true}},
        DetailCase{"letter Z in upper case", "V 1 Z N P 5 GB", {'z', true}},
        DetailCase{"the character behind z", "V 1 { N P 5 GB", kLetterless},
        DetailCase{"the character behind upper case Z", "V 1 [ N P 5 GB", kLetterless},
        DetailCase{"a byte above 0x7F", "V 1 \xe4 N P 5 GB", kLetterless},
        DetailCase{"a letter and more", "V 1 D: N P 5 GB", kLetterless},
        DetailCase{"a one-letter label in place of a letter",
                   "  Volume 3         X            NTFS   Partition    100 GB  Healthy",
                   {'x', true}},
        DetailCase{"the first lettered volume",
                   "V 1 Data N P 5 GB\r\nV 2 e N P 5 GB\r\nV 3 d N P 5 GB",
                   {'e', true}},
        DetailCase{"a lettered volume in MB is passed over",
                   "V 1 d N P 5 MB\r\nV 2 e N P 5 GB",
                   {'e', true}},
        DetailCase{"six pieces", "V 1 d P 5 GB", kNothing},
        DetailCase{"seven pieces by a final run of blanks", "V 1 d P 5 GB  ", {'d', true}},
        DetailCase{"six pieces and a final blank", "V 1 d P 5 GB ", kNothing},
        DetailCase{"four words", "V 1 5 GB    ", kLetterless},
        DetailCase{"three words", "1 5 GB     ", kNothing},
        DetailCase{"no word that is GB", "V 1 d N P 5GB x", kNothing},
        DetailCase{"GB as the first word alone", "GB 1 d N P 5 x", kNothing},
        DetailCase{"the last GB counts", "V 1 d 7 GB x GB", kNothing},
        DetailCase{"the last GB counts, also when the first has no number",
                   "V 1 d x GB 7 GB",
                   {'d', true}},
        DetailCase{"GB right behind the number of the volume", "V 1 GB x y z w", kLetterless},
        DetailCase{"a size with a leading zero", "V 1 d N P 040 GB", kNothing},
        DetailCase{"a size with a point", "V 1 d N P 1.5 GB", kNothing},
        DetailCase{"a size with a letter O", "V 1 d N P 4O GB", kNothing},
        DetailCase{"a size with a plus sign", "V 1 d N P +4 GB", kNothing},
        DetailCase{"a negative size", "V 1 d N P -4 GB", {'d', true}},
        DetailCase{"a size of minus zero", "V 1 d N P -0 GB", kNothing},
        DetailCase{"a size of zero", "V 1 d N P 0 GB", {'d', true}},
        DetailCase{"a size behind a tab", "V 1 d N P \t4 GB", kNothing},
        DetailCase{"a size beyond an int", "V 1 d N P 4294967297 GB", kNothing},
        DetailCase{"the largest int", "V 1 d N P 2147483647 GB", {'d', true}},
        DetailCase{"a volume number with a leading zero", "V 01 d N P 5 GB", kNothing},
        DetailCase{"a volume number that is none", "V x d N P 5 GB", kNothing},
        DetailCase{"a marked volume", "* V 1 d N P 5 GB", kNothing},
        DetailCase{"a model that names its size", "Samsung SSD 850 EVO 500GB", kNothing},
        DetailCase{"a model with GB as a word", "A 7 d B C 500 GB", {'d', true}},
        DetailCase{"a lone LF divides nothing", "V 1 d N P 5 MB\nV 2 e N P 5 GB", {'d', true}},
        DetailCase{"CR CR LF leaves a CR to the last word",
                   "V 1 d N P 5 GB\r\r\nV 2 e N P 5 GB",
                   {'e', true}}),
    tests::NamedAsPrinted());

TEST(ParseDiskDetail, ForgetsWhatTheCallerHad) { EXPECT_EQ(ParsedDetail("nothing"), kNothing); }

TEST(ParseDiskDetail, TakesZeroBytesForOrdinaryOnes) {
  const std::string zero(1, '\0');
  EXPECT_EQ(ParsedDetail("V 1 d" + zero + " N P 5 GB"), kLetterless);
  EXPECT_EQ(ParsedDetail("V 1 d N P 5" + zero + " GB"), kNothing);
  EXPECT_EQ(ParsedDetail(zero + "\r\nV 1 d N P 5 GB"), (Detail{'d', true}));
}

TEST(ParseDiskDetail, TakesMegabytes) {
  std::string text;
  for (int i = 0; i < 50000; ++i) text += "V " + std::to_string(i) + " Data NTFS P 5 GB\r\n";
  EXPECT_EQ(ParsedDetail(text), kLetterless);
  EXPECT_EQ(ParsedDetail(text + "V 1 e N P 5 GB"), (Detail{'e', true}));
  EXPECT_EQ(ParsedDetail(std::string(4000000, ' ') + "V 1 e N P 5 GB"), (Detail{'e', true}));
}

}  // namespace
}  // namespace common::win
