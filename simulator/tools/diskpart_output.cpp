#include <algorithm>
#include <map>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/server.h"
#include "simulator/tools/columns.h"
#include "simulator/tools/diskpart_parts.h"
#include "simulator/tools/diskpart_texts.h"
#include "simulator/tools/machine.h"

namespace simulator {
namespace {

// Windows XP and Server 2003.
bool IsOld(const System& system) { return system.major_version < 6; }

const char* Copyright(const System& system) {
  if (IsOld(system)) return "Copyright (C) 1999-2001 Microsoft Corporation.\r\n";
  if (system.major_version == 6 && system.minor_version == 0) {
    return "Copyright (C) 1999-2007 Microsoft Corporation.\r\n";
  }
  if (system.major_version == 6 && system.minor_version == 1) {
    return "Copyright (C) 1999-2008 Microsoft Corporation.\r\n";
  }
  if (system.major_version == 6 && system.minor_version == 2) {
    return "\r\nCopyright (C) 1999-2012 Microsoft Corporation.\r\n";
  }
  constexpr DWORD kFirstBuildWithoutYears = 15063;
  if (system.build < kFirstBuildWithoutYears) {
    return "\r\nCopyright (C) 1999-2013 Microsoft Corporation.\r\n";
  }
  return "\r\nCopyright (C) Microsoft Corporation.\r\n";
}

std::string InfoText(const std::string& info, const DiskpartTexts& texts) {
  const auto names = DiskpartTexts::Names();
  const bool is_known = std::find(names.begin(), names.end(), info) != names.end();
  return is_known ? texts.Of(info) : info;
}

// One of the English texts.
const char* StatusOf(const Disk& disk) {
  if (!disk.has_medium) return "No Media";
  return disk.online ? "Online" : "Offline";
}

// The disks and partitions that a volume extends over.
struct Extent {
  size_t partitions = 0;
  uint64_t size = 0;
};

Extent ExtentOf(const Volume& volume, const std::vector<Disk>& disks) {
  Extent extent;
  for (const Disk& disk : disks) {
    for (const Partition& partition : disk.partitions) {
      if (partition.volume.get() != &volume) continue;
      ++extent.partitions;
      extent.size += partition.size;
    }
  }
  return extent;
}

std::string VolumeType(const Volume& volume, const Disk& disk, const Extent& extent) {
  if (volume.drive_type == DRIVE_FIXED && disk.dynamic) {
    return extent.partitions > 1 ? "Spanned" : "Simple";
  }
  if (volume.drive_type == DRIVE_FIXED) return "Partition";
  if (volume.drive_type == DRIVE_REMOVABLE) return "Removable";
  Unsupported("diskpart: a partition of drive type " + std::to_string(volume.drive_type));
}

std::string VolumeLine(int number, const Disk& disk, const Partition& partition,
                       const Volume* selected, const Machine& machine) {
  const DiskpartTexts texts(machine.system());
  const Volume& volume = *partition.volume;
  const Extent extent = ExtentOf(volume, machine.disks());
  constexpr size_t kLabelWidth = 11, kFileSystemWidth = 5, kTypeWidth = 10;
  constexpr size_t kStatusWidth = 9, kInfoWidth = 8;
  std::string line = &volume == selected ? "* " : "  ";
  line += texts.Of("Volume") + " ";
  line += LeftColumn(std::to_string(number), texts.VolumeNumberWidth()) + "   ";
  line += machine.LetterOf(volume).value_or(' ');
  line += "   ";
  line += LeftColumn(volume.label, kLabelWidth) + "  ";
  line += LeftColumn(volume.file_system, kFileSystemWidth) + "  ";
  line += LeftColumn(texts.Of(VolumeType(volume, disk, extent)), kTypeWidth) + "  ";
  line += texts.Size(extent.size) + "  ";
  line += LeftColumn(texts.Of("Healthy"), kStatusWidth) + "  ";
  line += LeftColumn(InfoText(partition.info, texts), kInfoWidth);
  return line + "\r\n";
}

// A heading of one or several lines.
std::string Heading(const std::string& text) {
  std::string lines = "  ";
  for (const char c : text) lines += c == '\n' ? "\r\n  " : std::string(1, c);
  return lines + "\r\n";
}

// What stands above the volumes.
std::string Properties(const Disk& disk, const Machine& machine) {
  const System& system = machine.system();
  const DiskpartTexts texts(system);
  const bool boot = std::any_of(disk.partitions.begin(), disk.partitions.end(),
                                [windows = WindowsVolume(machine)](const Partition& part) {
                                  return part.volume != nullptr && part.volume == windows;
                                });
  // On these buses the logical unit tells the disks of one adapter apart.
  const int unit = disk.bus == "SCSI" || disk.bus == "SAS" ? disk.number : 0;
  std::string text = "\r\n" + disk.model + "\r\n";
  const auto add = [&texts, &text](std::string_view name, const std::string& value) {
    text += texts.Of(name) + value + "\r\n";
  };
  const auto add_flag = [&texts, &add](std::string_view name, bool flag) {
    add(name, texts.Of(flag ? "Yes" : "No"));
  };
  add("Disk ID: ", disk.id);
  add("Type   : ", disk.bus);
  if (IsOld(system)) {
    return text + "Bus    : 0\r\nTarget : 0\r\nLUN ID : " + std::to_string(unit) + "\r\n\r\n";
  }
  add("Status : ", texts.Of(StatusOf(disk)));
  add("Path   : ", "0");
  add("Target : ", "0");
  add("LUN ID : ", std::to_string(unit));
  add("Location Path : ", "UNAVAILABLE");
  add_flag("Current Read-only State : ", false);
  add_flag("Read-only  : ", false);
  add_flag("Boot Disk  : ", boot);
  add_flag("Pagefile Disk  : ", boot);
  add_flag("Hibernation File Disk  : ", false);
  add_flag("Crashdump Disk  : ", false);
  add_flag("Clustered Disk  : ", false);
  return text + "\r\n";
}

}  // namespace

std::string DiskpartVersion(const System& system) {
  std::string version = DiskpartTexts(system).Of("Microsoft DiskPart version ") +
                        std::to_string(system.major_version) + "." +
                        std::to_string(system.minor_version) + "." + std::to_string(system.build);
  if (system.major_version >= 10) version += ".0";
  return version + "\r\n";
}

std::string DiskpartBanner(const System& system) {
  return "\r\n" + DiskpartVersion(system) + Copyright(system) +
         DiskpartTexts(system).Of("On computer: ") + system.computer_name + "\r\n";
}

std::string SelectedDiskText(int number, const System& system) {
  constexpr std::string_view kNumber = "{}";
  std::string text = DiskpartTexts(system).Of("Disk {} is now the selected disk.");
  const size_t place = text.find(kNumber);
  return place == std::string::npos ? text
                                    : text.replace(place, kNumber.size(), std::to_string(number));
}

std::string DiskSizeText(uint64_t bytes, const System& system) {
  const std::string text = DiskpartTexts(system).Size(bytes);
  return text.substr(text.find_first_not_of(' '));
}

std::string DiskListing(const std::vector<Disk>& disks, std::optional<int> selected,
                        const System& system) {
  if (disks.empty()) return "\r\nThere are no fixed disks to show.\r\n";
  constexpr size_t kNumberWidth = 3;
  const DiskpartTexts texts(system);
  std::string text = "\r\n" + Heading(texts.Of(IsOld(system) ? kOldDiskHeading : kDiskHeading));
  for (const Disk& disk : disks) {
    text += disk.number == selected ? "* " : "  ";
    text += texts.Of("Disk") + " ";
    text += LeftColumn(std::to_string(disk.number), kNumberWidth) + "  ";
    text += LeftColumn(texts.Of(StatusOf(disk)), texts.StatusWidth()) + "  ";
    text += texts.Size(disk.size) + "  ";
    text += RightColumn(texts.Size(disk.free), texts.FreeWidth());
    text += disk.dynamic ? "   *" : "    ";
    text += disk.gpt ? "    *\r\n" : "     \r\n";
  }
  return text;
}

std::string DiskDetail(const Disk& disk, const Volume* selected, const Machine& machine) {
  if (!disk.has_medium) Unsupported("diskpart: details of a disk without a medium");
  const DiskpartTexts texts(machine.system());
  std::string lines;
  std::map<const Volume*, int> numbers;
  for (const Disk& other : machine.disks()) {
    if (!other.online) continue;
    for (const Partition& partition : other.partitions) {
      if (!partition.volume) continue;
      // A spanned volume is on several disks.
      const auto number = static_cast<int>(numbers.size());
      const auto [found, is_new] = numbers.try_emplace(partition.volume.get(), number);
      if (&other == &disk) lines += VolumeLine(found->second, disk, partition, selected, machine);
    }
  }
  const std::string text = Properties(disk, machine);
  if (lines.empty()) return text + texts.Of("There are no volumes.") + "\r\n";
  return text + Heading(texts.Of(kVolumeHeading)) + lines;
}

}  // namespace simulator
