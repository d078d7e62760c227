#include "restore/run.h"

#include <shlobj.h>
#include <shlwapi.h>

#include <array>
#include <memory>
#include <vector>

#include "acl/prepare_dir.h"
#include "common/files.h"
#include "common/locations.h"
#include "common/paths.h"
#include "common/privileges.h"
#include "common/product.h"
#include "common/times.h"
#include "restore/bcd_boot.h"
#include "restore/disks.h"
#include "restore/messages.h"
#include "ui/show_message.h"

namespace restore {
namespace {

struct RestoreTotals {
  int32_t total;   // volumes visited
  int32_t errors;  // volumes that failed

  int32_t Finished() const { return total - errors; }
};

// Returns the roots of all fixed volumes from c: upward, in the order of their drive letters.
std::vector<std::string> FixedVolumes() {
  std::vector<std::string> roots;
  // Oddity: one past z, see docs/oddities.md.
  // Oddity: drives A and B, see docs/oddities.md.
  for (char letter = 'c'; letter <= 'z' + 1; ++letter) {
    const std::string root = std::string(1, letter) + ":\\";
    if (common::Exists(root) && ::GetDriveTypeA(root.c_str()) == DRIVE_FIXED) {
      roots.push_back(root);
    }
  }
  return roots;
}

// Returns false if the shortcut exists and cannot be deleted.
bool DeleteLink(const std::string& path) {
  return ::PathFileExistsA(path.c_str()) != TRUE || ::DeleteFileA(path.c_str());
}

// Deletes the shortcut that started this tool and the one of the same name in the program's folder.
// Both remain if the start-up folder is unknown.
// Oddity: shortcuts after a failure, see docs/oddities.md.
void DeleteStartupLinks(logger::Logger& logger) {
  std::array<char, MAX_PATH> folder{};
  if (!::SHGetSpecialFolderPathA(nullptr, folder.data(), CSIDL_COMMON_STARTUP, TRUE)) return;

  const std::string startup_link = common::JoinPath(folder.data(), common::kLinkName);
  if (!DeleteLink(startup_link)) {
    logger.InfoOut("Delete Startup Link [%s] Failed.", startup_link.c_str());
  }
  const std::string real_startup_link =
      common::JoinPath(common::GetCurrentDir(), common::kLinkName);
  if (!DeleteLink(real_startup_link)) {
    // Oddity: second link's message, see docs/oddities.md.
    logger.InfoOut("Delete Real Startup Link [%s] Failed.", startup_link.c_str());
  }
}

}  // namespace

uint32_t RestoreThreadProc(void* argument) {
  const std::unique_ptr<RunStart> start(static_cast<RunStart*>(argument));
  logger::Logger& logger = *start->logger;

  PostState(start->dialog, RestoreState::kStarted, 0);
  const int64_t begin = common::GetSeconds();
  logger.InfoOut("Vantoro Restore Begin...");
  const int32_t result = RestoreWorker(logger, start->dialog, "", "");
  if (result != 0) {
    logger.WarnOut("Vantoro Restore Not Finished! See Details Info In Log File [%s].",
                   logger.GetLogFilePath().c_str());
  } else {
    const auto elapsed = static_cast<int32_t>(common::GetSeconds() - begin);
    logger.DoneOut("Vantoro Restore Finished! time: %s", common::FormatDuration(elapsed).c_str());
  }
  PostState(start->dialog, RestoreState::kEnded, result);
  return 0;
}

int32_t RestoreWorker(logger::Logger& logger, HWND owner, const std::string& volume_root,
                      const std::string& prepare_dir) {
  logger.Info("Modify Privilege...");
  if (common::EnablePrivilege("SeBackupPrivilege") != 0) {
    ui::ShowMessage(owner, MB_OK, "ModifyPrivilege 1 Failed.");
    return 1;
  }
  if (common::EnablePrivilege("SeRestorePrivilege") != 0) {
    ui::ShowMessage(owner, MB_OK, "ModifyPrivilege 2 Failed.");
    return 1;
  }

  // Oddity: stages outside the result, see docs/oddities.md.
  logger.InfoOut("Restore BCD Begin...");
  if (RestoreBCDBoot(logger)) {
    logger.InfoOut("Restore BCD Done!");
  } else {
    logger.WarnOut("Restore BCD Error.");
  }

  logger.InfoOut("Restore Disks Begin...");
  if (RestoreDisks(logger)) {
    logger.InfoOut("Restore Disks Done!");
  } else {
    logger.WarnOut("Restore Disks Error.");
  }

  const std::vector<std::string> roots =
      volume_root.empty() ? FixedVolumes() : std::vector<std::string>{volume_root};
  // Oddity: line ends in messages, see docs/oddities.md.
  logger.InfoOut("Vantoro Restore Begin...\n");
  RestoreTotals totals{static_cast<int32_t>(roots.size()), 0};
  // Oddity: run without volumes, see docs/oddities.md.
  const double share = 100.0 / totals.total;
  double progress = 0.0;
  for (const std::string& root : roots) {
    logger.InfoOut("Restore [%s]...", root.c_str());
    if (acl::RestorePrepareDir(logger, progress, share, root, prepare_dir) != 0) ++totals.errors;
  }

  DeleteStartupLinks(logger);

  // Oddity: wording of messages, see docs/oddities.md.
  logger.InfoOut("Vantoro Restore Finish, Total %d disks, Finish %d, Error %d!", totals.total,
                 totals.Finished(), totals.errors);
  return totals.total < 1 || totals.errors != 0 ? 1 : 0;
}

}  // namespace restore
