#include "acl/prepare_dir.h"

#include <windows.h>

#include "acl/acl_restore.h"
#include "acl/junctions.h"
#include "common/files.h"
#include "common/numbers.h"
#include "common/product.h"
#include "restore/backup_info.h"
#include "restore/messages.h"

namespace acl {
namespace {

constexpr double kJunctionShare = 0.2;
constexpr double kAclShare = 0.8;

// Returns the whole seconds since the tick count `begin`, which may have wrapped around.
int32_t SecondsSince(DWORD begin) {
  constexpr DWORD kMillisecondsPerSecond = 1000;
  return static_cast<int32_t>((::GetTickCount() - begin) / kMillisecondsPerSecond);
}

void Advance(double& progress, double amount) {
  progress += amount;
  restore::ReportProgress(progress);
}

int32_t RestoreVolumeJunctions(logger::Logger& logger, double& progress, double share,
                               const std::string& volume_root, const std::string& list_path) {
  logger.Info("junction restore begin...");
  const DWORD begin = ::GetTickCount();
  const int32_t result = RestoreJunctions(volume_root, list_path);
  logger.Info("junction restore cost %ds", SecondsSince(begin));
  if (result != 0) {
    logger.Error("junction restore failed, code=%d", result);
    return result;
  }
  logger.Info("junction restore done!");
  Advance(progress, kJunctionShare * share);
  return 0;
}

int32_t RestoreVolumeAcls(logger::Logger& logger, double& progress, double share,
                          const std::string& volume_root, const std::string& acl_file_path) {
  uint32_t count = 0;
  static_cast<void>(ReadACLCount(logger, volume_root[0], count));
  logger.Info("acl restore begin...");
  const DWORD begin = ::GetTickCount();
  ProgressRange range{progress, kAclShare * share};
  const int32_t result = RestoreACLFile(logger, volume_root, acl_file_path, count, range);
  logger.Info("acl restore cost %ds", SecondsSince(begin));
  if (result != 0) {
    logger.Error("acl restore failed, code=%d", result);
    return result;
  }
  // Oddity: line ends in messages, see docs/oddities.md.
  logger.Info("acl restore done!\n");
  // Oddity: more than a share, see docs/oddities.md.
  Advance(progress, share);
  return 0;
}

}  // namespace

int32_t RestorePrepareDir(logger::Logger& logger, double& progress, double share,
                          const std::string& volume_root, const std::string& prepare_dir) {
  const std::string folder =
      prepare_dir.empty() ? volume_root + common::kPrepareFolder + "\\" : prepare_dir;
  if (!common::Exists(folder)) {
    // Oddity: missing prepare folder, see docs/oddities.md.
    // Oddity: wording of messages, see docs/oddities.md.
    logger.Info("Prepare Dir [%s] Not Exsit, Skip...", folder.c_str());
    return 0;
  }
  const std::string file_end = volume_root.substr(0, 1) + ".dat";
  const int32_t result = RestoreVolumeJunctions(logger, progress, share, volume_root,
                                                folder + "juncbackup_" + file_end);
  // Oddity: junctions before descriptors, see docs/oddities.md.
  if (result != 0) return result;
  return RestoreVolumeAcls(logger, progress, share, volume_root, folder + "aclbackup_" + file_end);
}

bool ReadACLCount(logger::Logger& logger, char drive_letter, uint32_t& count) {
  constexpr int kACLCountLine = 3;
  std::string line;
  if (!restore::ReadBackupInfoLine(logger, drive_letter, kACLCountLine, line)) return false;
  const int value = common::ReadDecimal(line);
  if (value <= 0) {
    logger.Error("ReadACLCount Empty ACL Count.");
    return false;
  }
  count = static_cast<uint32_t>(value);
  return true;
}

}  // namespace acl
