#include "acl/acl_restore.h"

#include <utility>

#include "acl/account_sid.h"
#include "restore/messages.h"

namespace acl {

int32_t RestoreACLFile(logger::Logger& logger, const std::string& volume_root,
                       const std::string& acl_file_path, uint32_t total_entries,
                       ProgressRange& progress) {
  ACLUtil engine;
  // Oddity: unused values, see docs/oddities.md.
  engine.SetObjectPath(volume_root);
  engine.SetInputFile(acl_file_path);
  // Oddity: Administrators by name, see docs/oddities.md.
  common::UniqueLocal<void> administrators;
  static_cast<void>(GetAccountSid("Administrators", administrators));
  engine.SetAdminSid(std::move(administrators));

  // There is only one stage.
  logger.Info("ACLRestore (Stage %d/%d)...", 0, 1);
  const int32_t result = engine.RestoreFromFile(true, total_entries, progress);
  if (result != kRestored) logger.Error("ACLRestore Restore Failed: code=%d", result);
  // Oddity: Done after a failure, see docs/oddities.md.
  progress.base += progress.span;
  restore::ReportProgress(progress.base);
  logger.Info("ACLRestore (Stage %d/%d) Done.", 1, 1);
  logger.Info("ACLRestore Done.");
  return result;
}

}  // namespace acl
