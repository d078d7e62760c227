#include <algorithm>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/server.h"
#include "simulator/tools/columns.h"
#include "simulator/tools/diskpart_parts.h"
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

const char* YesOrNo(bool value) { return value ? "Yes" : "No"; }

std::string VolumeType(const Volume& volume) {
  if (volume.drive_type == DRIVE_FIXED) return "Partition";
  if (volume.drive_type == DRIVE_REMOVABLE) return "Removable";
  Unsupported("diskpart: a partition of drive type " + std::to_string(volume.drive_type));
}

std::string VolumeLine(int number, const Partition& partition, const Volume* selected,
                       const Machine& machine) {
  const Volume& volume = *partition.volume;
  constexpr size_t kNameWidth = 10, kLabelWidth = 11, kFileSystemWidth = 5, kTypeWidth = 10;
  constexpr size_t kSizeWidth = 7, kStatusWidth = 9, kInfoWidth = 8;
  std::string line = &volume == selected ? "* " : "  ";
  line += LeftColumn("Volume " + std::to_string(number), kNameWidth) + "   ";
  line += machine.LetterOf(volume).value_or(' ');
  line += "   ";
  line += LeftColumn(volume.label, kLabelWidth) + "  ";
  line += LeftColumn(volume.file_system, kFileSystemWidth) + "  ";
  line += LeftColumn(VolumeType(volume), kTypeWidth) + "  ";
  line += RightColumn(SizeText(partition.size), kSizeWidth) + "  ";
  line += LeftColumn("Healthy", kStatusWidth) + "  ";
  line += LeftColumn(partition.info, kInfoWidth);
  return line + "\r\n";
}

// What stands above the volumes.
std::string Properties(const Disk& disk, const Machine& machine) {
  const System& system = machine.system();
  const bool boot = std::any_of(disk.partitions.begin(), disk.partitions.end(),
                                [windows = WindowsVolume(machine)](const Partition& part) {
                                  return part.volume != nullptr && part.volume == windows;
                                });
  // On these buses the logical unit tells the disks of one adapter apart.
  const int unit = disk.bus == "SCSI" || disk.bus == "SAS" ? disk.number : 0;
  std::string text = "\r\n" + disk.model + "\r\n";
  text += "Disk ID: " + disk.id + "\r\n";
  text += "Type   : " + disk.bus + "\r\n";
  if (IsOld(system)) {
    return text + "Bus    : 0\r\nTarget : 0\r\nLUN ID : " + std::to_string(unit) + "\r\n\r\n";
  }
  text += disk.online ? "Status : Online\r\n" : "Status : Offline\r\n";
  text += "Path   : 0\r\n";
  text += "Target : 0\r\n";
  text += "LUN ID : " + std::to_string(unit) + "\r\n";
  text += "Location Path : UNAVAILABLE\r\n";
  text += "Current Read-only State : No\r\n";
  text += "Read-only  : No\r\n";
  text += std::string("Boot Disk  : ") + YesOrNo(boot) + "\r\n";
  text += std::string("Pagefile Disk  : ") + YesOrNo(boot) + "\r\n";
  text += "Hibernation File Disk  : No\r\n";
  text += "Crashdump Disk  : No\r\n";
  text += "Clustered Disk  : No\r\n";
  return text + "\r\n";
}

}  // namespace

std::string DiskpartVersion(const System& system) {
  std::string version = "Microsoft DiskPart version " + std::to_string(system.major_version) + "." +
                        std::to_string(system.minor_version) + "." + std::to_string(system.build);
  if (system.major_version >= 10) version += ".0";
  return version + "\r\n";
}

std::string DiskpartBanner(const System& system) {
  return "\r\n" + DiskpartVersion(system) + Copyright(system) +
         "On computer: " + system.computer_name + "\r\n";
}

std::string DiskSizeText(uint64_t bytes, const System& /*system*/) { return SizeText(bytes); }

std::string DiskListing(const std::vector<Disk>& disks, std::optional<int> selected,
                        const System& system) {
  if (disks.empty()) return "\r\nThere are no fixed disks to show.\r\n";
  constexpr size_t kNameWidth = 8, kSizeWidth = 7;
  const size_t status_width = IsOld(system) ? 10 : 13;
  std::string text = "\r\n  Disk ###  ";
  text += LeftColumn("Status", status_width) + "  Size     Free     Dyn  Gpt\r\n";
  text += "  --------  " + std::string(status_width, '-') + "  -------  -------  ---  ---\r\n";
  for (const Disk& disk : disks) {
    text += disk.number == selected ? "* " : "  ";
    text += LeftColumn("Disk " + std::to_string(disk.number), kNameWidth) + "  ";
    text += LeftColumn(disk.online ? "Online" : "Offline", status_width) + "  ";
    text += RightColumn(SizeText(disk.size), kSizeWidth) + "  ";
    text += RightColumn(SizeText(disk.free), kSizeWidth);
    // Basic disks only: nothing under "Dyn".
    text += disk.gpt ? "        *\r\n" : "         \r\n";
  }
  return text;
}

std::string DiskDetail(const Disk& disk, const Volume* selected, const Machine& machine) {
  std::string text = Properties(disk, machine);
  std::string lines;
  int number = 0;
  for (const Disk& other : machine.disks()) {
    if (!other.online) continue;
    for (const Partition& partition : other.partitions) {
      if (!partition.volume) continue;
      if (&other == &disk) lines += VolumeLine(number, partition, selected, machine);
      ++number;
    }
  }
  if (lines.empty()) return text + "There are no volumes.\r\n";
  return text +
         "  Volume ###  Ltr  Label        Fs     Type        Size     Status     Info    \r\n"
         "  ----------  ---  -----------  -----  ----------  -------  ---------  --------\r\n" +
         lines;
}

}  // namespace simulator
