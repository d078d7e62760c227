#include "restore/disks.h"

#include <string>
#include <vector>

#include "common/files.h"
#include "common/locations.h"
#include "common/win/win_util.h"
#include "restore/backup_info.h"

namespace restore {
namespace {

using common::win::DiskpartInfo;
using common::win::WinUtil;

// A disk whose drive letter must change.
struct PendingDisk {
  DiskpartInfo disk;
  char source_letter;
  bool removed;  // its current drive letter was removed

  bool NeedsLetter() const { return removed && source_letter != disk.Letter; }
};

uint32_t NumberOf(const DiskpartInfo& disk) { return static_cast<uint32_t>(disk.DiskNumber); }

// Oddity: second partition, see docs/oddities.md.
bool UsesSecondPartition(const DiskpartInfo& disk) { return disk.SizeGB > 2048; }

// Assigns any free drive letter and stores it in `disk`.
bool AssignFreeLetter(logger::Logger& logger, WinUtil& tools, DiskpartInfo& disk) {
  disk.Letter = 0;
  if (tools.AssignDiskLetter(NumberOf(disk), UsesSecondPartition(disk), disk.Letter)) return true;
  logger.Warn("RestoreDisks Assign Disk %d Random Letter Failed.", disk.DiskNumber);
  return false;
}

bool RemoveLetter(logger::Logger& logger, WinUtil& tools, const DiskpartInfo& disk) {
  if (tools.RemoveDiskLetter(NumberOf(disk), UsesSecondPartition(disk))) {
    logger.InfoOut("RestoreDisks Remove Disk %d Letter Successfully!", disk.DiskNumber);
    return true;
  }
  logger.Warn("RestoreDisks Remove Disk %d Letter Failed.", disk.DiskNumber);
  return false;
}

bool AssignSourceLetter(logger::Logger& logger, WinUtil& tools, const PendingDisk& pending) {
  const DiskpartInfo& disk = pending.disk;
  char letter = pending.source_letter;
  if (tools.AssignDiskLetter(NumberOf(disk), UsesSecondPartition(disk), letter)) {
    // Oddity: wording of messages, see docs/oddities.md.
    logger.InfoOut("RestoreDisks Assign Disk %d Letter[%c] Successfully!", disk.DiskNumber,
                   pending.source_letter);
    return true;
  }
  logger.Warn("RestoreDisks Assign Disk %d Letter [%c] Failed.", disk.DiskNumber,
              pending.source_letter);
  return false;
}

}  // namespace

bool RestoreDisks(logger::Logger& logger) {
  WinUtil tools("", "", "");
  tools.SetLogger(&logger);
  std::vector<DiskpartInfo> disks;
  if (!tools.EnumDiskpartInfos(disks)) {
    logger.Warn("RestoreDisks Get Diskpart Infos Failed.");
    return false;
  }
  const int system_letter = common::GetSystemDriveLetter();

  // All wrong drive letters are removed before any recorded one is assigned, so that volumes can
  // exchange their letters.
  bool result = true;
  std::vector<PendingDisk> with_source;
  std::vector<PendingDisk> without_source;
  for (DiskpartInfo& disk : disks) {
    if (disk.HasVolume && disk.Letter == 0) {
      if (!AssignFreeLetter(logger, tools, disk)) return false;
      logger.InfoOut("RestoreDisks Assign Disk %d Random Letter Successfully!", disk.DiskNumber);
    }
    char source_letter = 0;
    // Oddity: disk without backup_info, see docs/oddities.md.
    if (!ReadBackupInfo(logger, disk.Letter, source_letter)) return false;
    if (disk.Letter == source_letter || disk.Letter == system_letter) continue;

    const bool removed = RemoveLetter(logger, tools, disk);
    if (!removed) result = false;
    // Oddity: disks without a source letter, see docs/oddities.md.
    (source_letter != 0 ? with_source : without_source)
        .push_back(PendingDisk{disk, source_letter, removed});
  }

  for (PendingDisk& pending : with_source) {
    if (!pending.NeedsLetter()) continue;
    const std::string root = std::string(1, pending.source_letter) + ":\\";
    if (!common::Exists(root)) {
      if (!AssignSourceLetter(logger, tools, pending)) result = false;
      continue;
    }
    result = false;
    logger.Warn("RestoreDisks Disk %d Src Dir [%s] Exist.", pending.disk.DiskNumber, root.c_str());
    static_cast<void>(AssignFreeLetter(logger, tools, pending.disk));  // already a failure
  }

  for (PendingDisk& pending : without_source) {
    if (pending.NeedsLetter() && !AssignFreeLetter(logger, tools, pending.disk)) result = false;
  }
  return result;
}

}  // namespace restore
