// The simulated disk tool's output against captures of the real one's. The captures hold LF where
// the tool prints CR LF.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/disks.h"
#include "simulator/model/server.h"
#include "support/simulated_disks.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using tests::AddTwoDisks;
using tests::DiskpartBannerOf;
using tests::DiskpartOutput;
using tests::kGB;
using tests::kMB;
using tests::MakeVolume;

// Without the blanks at the ends of lines, which most captures have lost, and empty last lines.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    line.resize(line.find_last_not_of(" \r") + 1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

std::string Capture(const std::string& name) {
  std::ifstream stream(TEST_DATA_DIR "/diskpart/" + name, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << name;
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The last `count` lines, or all.
std::vector<std::string> Tail(std::vector<std::string> lines, size_t count) {
  if (lines.size() > count) lines.erase(lines.begin(), lines.end() - static_cast<ptrdiff_t>(count));
  return lines;
}

struct ListedDisk {
  uint64_t size;
  uint64_t free;
  bool gpt = false;
  bool dynamic = false;
  bool online = true;
  bool has_medium = true;
};

struct ListCapture {
  const char* file;
  const char* script;
  std::vector<ListedDisk> disks;
  DWORD major = 10;
  DWORD minor = 0;
  LANGID language = 1033;
  size_t heading = 2;  // lines
};

std::ostream& operator<<(std::ostream& out, const ListCapture& test) { return out << test.file; }

class DiskpartListing : public testing::TestWithParam<ListCapture> {};

TEST_P(DiskpartListing, EqualsTheCapture) {
  Server server;
  server.system().major_version = GetParam().major;
  server.system().minor_version = GetParam().minor;
  server.system().language = GetParam().language;
  for (const ListedDisk& listed : GetParam().disks) {
    Disk disk;
    disk.number = static_cast<int>(server.disks().size());
    disk.size = listed.size;
    disk.free = listed.free;
    disk.gpt = listed.gpt;
    disk.dynamic = listed.dynamic;
    disk.online = listed.online;
    disk.has_medium = listed.has_medium;
    server.disks().push_back(disk);
  }
  const size_t table = GetParam().heading + GetParam().disks.size();
  EXPECT_EQ(Tail(Lines(DiskpartOutput(GetParam().script, server)), table),
            Tail(Lines(Capture(GetParam().file)), table));
}

// Sizes as they lie on real disks, not multiples of what is shown.
INSTANTIATE_TEST_SUITE_P(
    Captures, DiskpartListing,
    testing::Values(
        ListCapture{"list_disk/en-10.0.17763-gpt-100gb.txt",
                    "list disk",
                    {{128 * kGB, 0, true}, {100 * kGB, kMB, true}}},
        ListCapture{"list_disk/en-10.0.26100-free28gb.txt",
                    "list disk",
                    {{1024209543168, 2 * kMB, true}, {30752636928, 30752636928, false}}},
        ListCapture{"list_disk/en-6.1.7600-no-media.txt",
                    "list disk",
                    {{1000204886016, kMB, false},
                     {0, 0, false, false, true, false},
                     {0, 0, false, false, true, false}},
                    6,
                    1},
        ListCapture{
            "list_disk/en-6.2.9200-winre-scripted.txt", "list disk", {{1000204886016, 0, true}}},
        ListCapture{"list_disk/en-6.2.9200-winre-scripted-selected.txt",
                    "list disk\r\nsel disk 0\r\nlist disk",
                    {{1000204886016, 0, true}}},
        ListCapture{
            "list_disk/en-winpe-10.0.22621-free804gb.txt",
            "list disk",
            {{1000204886016, 804 * kGB + 900 * kMB, true}, {62277025792, 26 * kGB + 1, false}}},
        ListCapture{"list_disk/en-xp-1.0-narrow-status.txt",
                    "list disk",
                    {{75 * kGB, 0, false}, {75 * kGB, 54 * kGB, false}},
                    5},
        ListCapture{"list_disk/en-narrow-status-selected-offline-dyn.txt",
                    "sel disk 1\r\nlist disk",
                    {{80 * kGB, 0},
                     {4096 * kMB, 4096 * kMB, false, false, false},
                     {4096 * kMB, 4096 * kMB, false, true}},
                    5}),
    tests::NamedAsPrinted());

INSTANTIATE_TEST_SUITE_P(
    OtherLanguages, DiskpartListing,
    testing::Values(
        ListCapture{"list_disk/de-10.0.18362-two-gpt.txt",
                    "list disk",
                    {{1024209543168, 0, true}, {57 * kGB, 0, true}},
                    10,
                    0,
                    1031},
        ListCapture{"list_disk/es-6.1.7600-800mb.txt",
                    "list disk",
                    {{32 * kGB, 0}, {800 * kMB, 199 * kMB}, {1024 * kMB, 1022 * kMB}},
                    6,
                    1,
                    3082},
        ListCapture{"list_disk/es-6.3.9600-winre-scripted-padded.txt",
                    "list disk",
                    {{750156374016, 0, true}, {30752636928, 0}},
                    6,
                    3,
                    3082},
        ListCapture{"list_disk/es-10.0.18362-1315mb.txt",
                    "list disk",
                    {{1000204886016, 0, true}, {30752636928, 1315 * kMB}},
                    10,
                    0,
                    2058},
        ListCapture{"list_disk/fr-931go-1024k.txt",
                    "list disk",
                    {{256060514304, 0, true}, {1000204886016, kMB, true}},
                    10,
                    0,
                    1036},
        ListCapture{"list_disk/ja-four-disks-selected.txt",
                    "sel disk 3\r\nlist disk",
                    {{1000204886016, kMB, true},
                     {512110190592, 0, true},
                     {1000204886016, 0},
                     {256060514304, 256060514304, true}},
                    10,
                    0,
                    1041,
                    3},
        ListCapture{"list_disk/ko-gpt.txt", "list disk", {{256060514304, kMB, true}}, 10, 0, 1042},
        ListCapture{"list_disk/zh-10.0.17134-447gb.txt",
                    "list disk",
                    {{480103981056, 247 * kGB, true}},
                    10,
                    0,
                    2052},
        ListCapture{"list_disk/zh-6.1.7601-server-six-disks-mb.txt",
                    "list disk",
                    {{50 * kGB, 0},
                     {1024 * kMB, 1984 << 10},
                     {1024 * kMB, 1984 << 10},
                     {1024 * kMB, 1984 << 10},
                     {2048 * kMB, 1984 << 10},
                     {4096 * kMB, 1024 << 10}},
                    6,
                    1,
                    2052},
        ListCapture{"list_disk/zh-2003-narrow-dynamic-672kb.txt",
                    "list disk",
                    {{70 * kGB, 10 * kGB}, {100 * kGB, 672 << 10, false, true}},
                    5,
                    2,
                    2052}),
    tests::NamedAsPrinted());

TEST(DiskpartListing, MarksDynamicDisksAsTheCapture) {
  Server server;
  Disk first;
  first.size = 480103981056;
  first.dynamic = true;
  Disk second;
  second.number = 1;
  second.size = 480103981056;
  second.free = second.size;
  server.disks() = {first, second};
  // The last line of the capture is a disk that is missing.
  std::vector<std::string> capture = Lines(Capture("list_disk/en-missing-M0-dynamic.txt"));
  capture.pop_back();
  EXPECT_EQ(Tail(Lines(DiskpartOutput("list disk", server)), 4), capture);
}

TEST(Diskpart, PadsADiskLineAsTheCaptureThatKeptItsBlanks) {
  Server server;
  Disk first;
  first.size = 750156374016;
  first.gpt = true;
  Disk second;
  second.number = 1;
  second.size = 30752636928;
  server.disks() = {first, second};
  const std::string output = DiskpartOutput("list disk", server);
  const std::string capture = Capture("list_disk/es-6.3.9600-winre-scripted-padded.txt");
  // From the size on there are no words of any language.
  for (const char* const size : {" 698 GB", "  28 GB"}) {
    const size_t begin = output.find(size);
    const size_t captured = capture.find(size);
    ASSERT_NE(begin, std::string::npos);
    ASSERT_NE(captured, std::string::npos);
    EXPECT_EQ(output.substr(begin, output.find('\r', begin) - begin),
              capture.substr(captured, capture.find('\n', captured) - captured));
  }
}

struct BannerCapture {
  const char* file;
  DWORD minor;
  DWORD build;
  LANGID language = 1033;
  const char* computer = "HOST";
};

std::ostream& operator<<(std::ostream& out, const BannerCapture& test) { return out << test.file; }

class DiskpartBanner : public testing::TestWithParam<BannerCapture> {};

TEST_P(DiskpartBanner, EqualsTheCapture) {
  Server server;
  server.system().major_version = 6;
  server.system().minor_version = GetParam().minor;
  server.system().build = GetParam().build;
  server.system().language = GetParam().language;
  server.system().computer_name = GetParam().computer;
  const std::vector<std::string> banner = Lines(DiskpartBannerOf(server).substr(2));
  std::vector<std::string> capture = Lines(Capture(GetParam().file));
  capture.resize(banner.size());
  EXPECT_EQ(banner, capture);
}

INSTANTIATE_TEST_SUITE_P(
    Captures, DiskpartBanner,
    testing::Values(BannerCapture{"list_disk/en-6.1.7600-no-media.txt", 1, 7600},
                    BannerCapture{"list_disk/en-6.2.9200-winre-scripted.txt", 2, 9200},
                    BannerCapture{"list_disk/es-6.1.7600-800mb.txt", 1, 7600, 3082, "HOST-PC"},
                    BannerCapture{"list_disk/zh-6.1.7601-server-six-disks-mb.txt", 1, 7601, 2052,
                                  "RAC1"}),
    tests::NamedAsPrinted());

// The lines from the disk's model on, without those whose facts the simulator does not keep.
std::vector<std::string> DetailLines(const std::string& text, const std::string& model) {
  const size_t begin = text.find(model);
  if (begin == std::string::npos) return {"no line " + model};
  std::vector<std::string> lines = Lines(std::string_view(text).substr(begin));
  std::erase_if(lines, [](const std::string& line) {
    return line.starts_with("Location Path") || line.starts_with("Crashdump Disk");
  });
  return lines;
}

Disk MakeDisk(int number, const std::string& model, const std::string& id, const std::string& bus) {
  Disk disk;
  disk.number = number;
  disk.model = model;
  disk.id = id;
  disk.bus = bus;
  return disk;
}

TEST(DiskpartDetail, EqualsTheCaptureOfACloudServersSystemDisk) {
  Server server;
  Disk disk = MakeDisk(0, "Virtual HD ATA Device", "EF349D83", "ATA");
  disk.partitions = {{1, 500 * kMB, "System", MakeVolume(server, "System Reserved", std::nullopt)},
                     {2, 126 * kGB + 523 * kMB, "Boot", MakeVolume(server, "Windows", 'C')}};
  server.disks() = {disk};
  const std::string output = DiskpartOutput("sel disk 0\r\ndetail disk", server);
  const std::string capture = Capture("detail_disk/en-azure-os-disk-padded.txt");
  EXPECT_EQ(DetailLines(output, disk.model), DetailLines(capture, disk.model));
  // This capture kept the blanks of its table.
  std::string table = output.substr(output.find("  Volume ###"));
  std::erase(table, '\r');
  EXPECT_EQ(table, capture.substr(capture.find("  Volume ###")));
}

TEST(DiskpartDetail, EqualsTheCaptureOfACloudServersDataDisk) {
  Server server;
  AddTwoDisks(server);
  server.disks()[0].partitions.push_back({2, kGB, "", MakeVolume(server, "second", std::nullopt)});
  server.disks()[0].partitions.push_back({3, kGB, "", MakeVolume(server, "third", std::nullopt)});
  Disk& disk = server.disks()[1];
  disk.model = "Microsoft Virtual Disk";
  disk.id = "97AFC1BB";
  disk.bus = "SAS";
  disk.partitions[0].size = 1023 * kGB + 1000 * kMB;
  disk.partitions[0].volume->label = "";
  EXPECT_EQ(DetailLines(DiskpartOutput("sel disk 1\r\ndetail disk", server), disk.model),
            DetailLines(Capture("detail_disk/en-azure-data-disk-1023gb.txt"), disk.model));
}

TEST(DiskpartDetail, EqualsTheCaptureOfAnOldSystemsDisk) {
  Server server;
  server.system().major_version = 5;
  server.system().minor_version = 2;
  Disk disk = MakeDisk(0, "WDC WD800BB-32BSA0", "3E423E41", "IDE");
  disk.partitions = {{1, 39 * kGB + 1, "System", MakeVolume(server, "", 'C')},
                     {2, 35 * kGB + 1, "", MakeVolume(server, "", 'F')}};
  disk.partitions[1].volume->file_system = "";
  // Its volumes were numbered behind those of two other drives.
  Disk drives = MakeDisk(1, "other", "00000000", "IDE");
  drives.partitions = {{1, kGB, "", MakeVolume(server, "", 'D')},
                       {2, kGB, "", MakeVolume(server, "", 'E')}};
  server.disks() = {drives, disk};
  EXPECT_EQ(DetailLines(DiskpartOutput("sel disk 0\r\ndetail disk", server), disk.model),
            DetailLines(Capture("detail_disk/en-xp-ide-volume-without-fs.txt"), disk.model));
}

TEST(DiskpartDetail, EqualsTheCaptureOfADiskWithoutVolumes) {
  Server server;
  const Disk disk = MakeDisk(1, "Microsoft Virtual Disk", "00000000", "SAS");
  server.disks() = {disk};
  EXPECT_EQ(DetailLines(DiskpartOutput("sel disk 1\r\ndetail disk", server), disk.model),
            DetailLines(Capture("detail_disk/en-azure-data-disk-no-volumes.txt"), disk.model));
}

TEST(DiskpartDetail, EqualsTheCaptureOfALaterWindows) {
  Server server;
  Disk other = MakeDisk(0, "other", "00000000", "SATA");
  other.partitions = {{1, kGB, "", MakeVolume(server, "", 'D')},
                      {2, kGB, "", MakeVolume(server, "", 'E')}};
  Disk disk =
      MakeDisk(1, "Samsung SSD 850 EVO 500GB", "{4BE16DC4-3E72-11E8-A1F2-E03F49850ACF}", "SATA");
  disk.partitions = {{1, 464 * kGB + 900 * kMB, "Boot", MakeVolume(server, "", 'C')},
                     {2, 100 * kMB, "System", MakeVolume(server, "", std::nullopt)},
                     {3, 765 * kMB, "Hidden", MakeVolume(server, "", std::nullopt)}};
  disk.partitions[1].volume->file_system = "FAT32";
  server.disks() = {other, disk};
  EXPECT_EQ(DetailLines(DiskpartOutput("sel disk 1\r\ndetail disk", server), disk.model),
            DetailLines(Capture("detail_disk/en-10.0.26100-gpt-boot.txt"), disk.model));
}

TEST(DiskpartDetail, EqualsTheCaptureOfASelectedVolumeWithoutAFileSystem) {
  Server server;
  Disk other = MakeDisk(0, "other", "00000000", "SATA");
  for (int number = 1; number <= 6; ++number) {
    other.partitions.push_back({number, kGB, "", MakeVolume(server, "", std::nullopt)});
  }
  Disk disk = MakeDisk(1, "Generic- SD/MMC USB Device", "A557D540", "USB");
  disk.partitions = {{1, 14 * kGB, "Offline", MakeVolume(server, "", std::nullopt)}};
  disk.partitions[0].volume->file_system = "";
  disk.partitions[0].volume->drive_type = DRIVE_REMOVABLE;
  server.disks() = {other, disk};
  EXPECT_EQ(
      DetailLines(DiskpartOutput("sel disk 1\r\nsel part 1\r\ndetail disk", server), disk.model),
      DetailLines(Capture("detail_disk/en-usb-removable-star-offline-nofs.txt"), disk.model));
}

TEST(DiskpartDetail, EqualsTheCaptureOfADynamicDisk) {
  Server server;
  Disk disk = MakeDisk(0, "AVAGO SMC3108 SCSI Disk Device",
                       "{057A21CC-17C6-45E2-893C-D68B128CAD35}", "RAID");
  disk.dynamic = true;
  disk.partitions = {{1, 7151 * kGB, "", MakeVolume(server, "New Volume", 'E')}};
  server.disks() = {disk};
  std::vector<std::string> output =
      DetailLines(DiskpartOutput("sel disk 0\r\ndetail disk", server), disk.model);
  std::vector<std::string> capture =
      DetailLines(Capture("detail_disk/en-raid-data-dynamic-simple.txt"), disk.model);
  // The path of the adapter, which the simulator does not keep.
  for (std::vector<std::string>* lines : {&output, &capture}) {
    std::erase_if(*lines, [](const std::string& line) {
      return line.starts_with("Path ") || line.starts_with("Target ");
    });
  }
  EXPECT_EQ(output, capture);
}

struct DetailCapture {
  const char* file;
  LANGID language;
  Disk disk;
  Volume volume;
  int number;            // of the volume
  const char* location;  // what the line that the simulator does not keep begins with
};

std::ostream& operator<<(std::ostream& out, const DetailCapture& test) { return out << test.file; }

class DiskpartDetailInLanguage : public testing::TestWithParam<DetailCapture> {};

TEST_P(DiskpartDetailInLanguage, EqualsTheCapture) {
  Server server;
  server.system().language = GetParam().language;
  Disk other = MakeDisk(0, "other", "00000000", "SATA");
  for (int i = 1; i <= GetParam().number; ++i) {
    other.partitions.push_back({i, kGB, "", MakeVolume(server, "", std::nullopt)});
  }
  Disk disk = GetParam().disk;
  disk.number = 1;
  disk.partitions[0].volume = server.files().AddVolume(GetParam().volume);
  if (GetParam().volume.label == "zwybk") server.files().Mount('E', disk.partitions[0].volume);
  if (GetParam().volume.drive_type == DRIVE_REMOVABLE) {
    server.files().Mount('F', disk.partitions[0].volume);
  }
  server.disks() = {other, disk};
  const auto lines = [&disk](const std::string& text) {
    std::vector<std::string> all = DetailLines(text, disk.model);
    std::erase_if(all,
                  [](const std::string& line) { return line.starts_with(GetParam().location); });
    return all;
  };
  EXPECT_EQ(lines(DiskpartOutput("sel disk 1\r\ndetail disk", server)),
            lines(Capture(GetParam().file)));
}

Volume VolumeOf(const std::string& label, const std::string& file_system, UINT drive_type) {
  Volume volume;
  volume.label = label;
  volume.file_system = file_system;
  volume.drive_type = drive_type;
  return volume;
}

DetailCapture DetailOf(const char* file, LANGID language, const char* model, const char* id,
                       const char* bus, const Partition& partition, const Volume& volume,
                       int number, const char* location) {
  Disk disk = MakeDisk(1, model, id, bus);
  disk.partitions = {partition};
  return {file, language, disk, volume, number, location};
}

INSTANTIATE_TEST_SUITE_P(
    Captures, DiskpartDetailInLanguage,
    testing::Values(DetailOf("detail_disk/es-6.3.9600-sata-hidden-esp-padded.txt", 3082,
                             "ST750LM022 HN-M750MBB", "{866607CD-B86C-411D-88C1-181B2B90BC39}",
                             "SATA", {1, 512 * kMB, "Hidden", nullptr},
                             VolumeOf("", "FAT32", DRIVE_FIXED), 0, "Ruta de"),
                    DetailOf("detail_disk/zh-ata-mbr-one-volume.txt", 2052,
                             "ST500DM002-1ER14C ATA Device", "C81657A2", "ATA",
                             {1, 465 * kGB, "", nullptr}, VolumeOf("zwybk", "NTFS", DRIVE_FIXED), 4,
                             "位置路径"),
                    DetailOf("detail_disk/zh-usb-removable-fat32-restored.txt", 2052,
                             "Generic Masstorage USB Device", "00000000", "USB",
                             {1, 29 * kGB, "", nullptr}, VolumeOf("", "FAT32", DRIVE_REMOVABLE), 4,
                             "位置路径")),
    tests::NamedAsPrinted());

TEST(DiskpartSelection, IsInSpanishAsTheCapture) {
  Server server;
  AddTwoDisks(server);
  server.system().language = 3082;
  const std::vector<std::string> capture =
      Lines(Capture("detail_disk/es-6.3.9600-sata-hidden-esp-padded.txt"));
  EXPECT_EQ(Lines(DiskpartOutput("sel disk 0", server)).back(), capture.front());
}

}  // namespace
}  // namespace simulator
