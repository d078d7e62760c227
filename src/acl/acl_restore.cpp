#include "acl/acl_restore.h"

#include <utility>

#include "acl/account_sid.h"
#include "restore/messages.h"

namespace acl {

int32_t RestoreACLFile(logger::Logger& logger, const std::string& volume_root,
                       const std::string& acl_file_path, uint32_t total_entries,
                       ProgressRange& progress) {
  ACLUtil engine;
  engine.SetObjectPath(volume_root);
  engine.SetInputFile(acl_file_path);
  // The group has another name on servers of some languages; there is no fallback owner then.
  common::UniqueLocal<void> administrators;
  static_cast<void>(GetAccountSid("Administrators", administrators));
  engine.SetAdminSid(std::move(administrators));

  // There is one stage.
  logger.Info("ACLRestore (Stage %d/%d)...", 0, 1);
  const int32_t result = engine.RestoreFromFile(true, total_entries, progress);
  if (result != kRestored) logger.Error("ACLRestore Restore Failed: code=%d", result);
  progress.base += progress.span;
  restore::ReportProgress(progress.base);
  logger.Info("ACLRestore (Stage %d/%d) Done.", 1, 1);
  logger.Info("ACLRestore Done.");
  return result;
}

}  // namespace acl
