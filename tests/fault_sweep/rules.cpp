#include "fault_sweep/rules.h"

#include <algorithm>
#include <array>

namespace fault_sweep {
namespace {

using enum Said;
using enum Undone;

constexpr std::string_view kAny;

constexpr std::string_view kProgressOnly = "shows the progress, which nobody needs to restore";
constexpr std::string_view kPassedOver = "a line that fails is passed over";
constexpr std::string_view kNoJunction = "a junction that cannot be made is no error";
constexpr std::string_view kGivesBack = "only gives something back";
constexpr std::string_view kEngineToken = "a privilege that cannot be had is done without";
constexpr std::string_view kConsole = "the console's colour only";
constexpr std::string_view kNoRestart = "the user can restart the server himself";
constexpr std::string_view kTold = "Vantoro Restore Not Finished!";

// The window and its thread.
constexpr Rule kWindowRules[] = {
    {"GetVersionExW", kAny, kAny, kNothing, kBox, "Get OS Version Failed"},
    {"SetThreadUILanguage", kAny, kAny, kNothing, kSilent, "English is shown instead"},
    {"GetModuleHandleW", kAny, kAny, kRun, kBox, "Get Architecture Failed."},
    {"GetProcAddress", kAny, kAny, kRun, kBox, "Get Architecture Failed."},
    {"CoInitialize", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"DefWindowProcW", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"InitCommonControlsEx", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"CreateDialogParamW", kAny, kAny, kRun, kWaits, "a program without a window has no early end"},
    {"SetWindowLongPtrW", kAny, "Vantoro Restore Finish", kNothing, kSilent, kGivesBack},
    {"SetWindowLongPtrW", kAny, kAny, kNothing, kWaits, "the dialog does not find its object"},
    {"PostMessageW", ", 1126, 2, ", kAny, kNothing, kWaits, "nobody tells the dialog of the end"},
    {"PostMessageW", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"PostMessageA", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetMessageW", kAny, kAny, kNothing, kSilent, "a message that cannot be taken is none"},
    {"CreateThread", kAny, kAny, kRun, kLine, "Vantoro Restore Thread Start Failed."},
    {"GetVersionExA", kAny, "Vantoro Restore Begin", kNothing, kSilent, "without the task bar"},
    {"MessageBoxA", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"LookupPrivilegeValueW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"InitiateSystemShutdownW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"OpenProcessToken", kAny, "Vantoro Restore Fin", kNothing, kSilent, kNoRestart},
    {"AdjustTokenPrivileges", kAny, "Vantoro Restore Fin", kNothing, kSilent, kNoRestart},
    {"LoadStringW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"LoadStringA", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"LoadIconW", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetDlgItem", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetDlgCtrlID", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetParent", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetWindowRect", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"GetStockObject", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SetTextColor", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SetBkMode", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SystemParametersInfoW", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SetWindowPos", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SetWindowTextA", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"ShowWindow", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SendMessageW", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"SetTimer", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"KillTimer", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"CoCreateInstance", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"ITaskbarList3::SetProgressState", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"ITaskbarList3::SetProgressValue", kAny, kAny, kNothing, kSilent, kProgressOnly},
    {"DestroyWindow", kAny, kAny, kNothing, kSilent, "the process ends at once"},
    {"TerminateProcess", kAny, kAny, kNothing, kSilent, "the tools have ended long since"},
};

// The log and the console.
constexpr Rule kLogRules[] = {
    {"_access", "\\Logs\\", kAny, kNothing, kLost, "the lines until the folder is seen"},
    {"_mkdir", "\\Logs\\", kAny, kNothing, kLost, "the lines until the folder can be made"},
    {"_open", "\\Logs\\", kAny, kNothing, kLost, "the lines until the file can be opened"},
    {"_write", "\\Logs\\", kAny, kNothing, kLost, "that line and all behind it"},
    {"_close", "\\Logs\\", kAny, kNothing, kLost, "nothing: every line was flushed"},
    {"GetStdHandle", kAny, kAny, kNothing, kSilent, kConsole},
    {"GetConsoleScreenBufferInfo", kAny, kAny, kNothing, kSilent, kConsole},
    {"SetConsoleTextAttribute", kAny, kAny, kNothing, kSilent, kConsole},
};

// The privileges, the tools, the boot store and the drive letters.
constexpr Rule kStageRules[] = {
    {"OpenProcessToken", kAny, "Modify Privilege", kRun, kLine, kTold},
    {"LookupPrivilegeValueA", kAny, "Modify Privilege", kRun, kLine, kTold},
    {"AdjustTokenPrivileges", kAny, "Modify Privilege", kRun, kLine, kTold},
    {"GetVersionExA", kAny, kAny, kStages, kLine, "WinUtil::GetOSPlatform GetVersionExA Failed: "},
    {"CreatePipe", kAny, kAny, kStages, kLine,
     "WinUtil::ExecCommandWithResults Create Pipe Failed: "},
    {"CreateProcessA", kAny, kAny, kStages, kLine, "WinUtil::CreateProgressNoWait Failed: "},
    {"GetExitCodeProcess", kAny, kAny, kStages, kLine,
     "WinUtil::ExecCommandWithResult Get Exit Code Failed: "},
    {"ReadFile", kAny, kAny, kStages, kSilent, "taken for the end of the output"},
    {"GetTempPathA", kAny, kAny, kStages, kLine, "WinUtil::RunScript Create "},
    {"_open", ".script.", kAny, kStages, kLine, "WinUtil::RunScript Create "},
    {"_write", ".script.", kAny, kStages, kSilent, "what the runtime has taken counts as written"},
    {"_close", ".script.", kAny, kNothing, kSilent, kGivesBack},
    {"PathFileExistsA", "backup_info", "acl restore", kNothing, kLine,
     "ReadBackupInfoLine Backup Info File doesn't Exist."},
    {"PathFileExistsA", "backup_info", "junction restore", kNothing, kLine,
     "ReadBackupInfoLine Backup Info File doesn't Exist."},
    {"_open", "backup_info", "junction restore", kNothing, kLine,
     "ReadBackupInfoLine Backup Info Open Failed."},
    {"_read", "backup_info", "junction restore", kNothing, kLine, "ReadACLCount Empty ACL Count."},
    {"PathFileExistsA", "backup_info", kAny, kStages, kLine,
     "ReadBackupInfoLine Backup Info File doesn't Exist."},
    {"_open", "backup_info", kAny, kStages, kLine, "ReadBackupInfoLine Backup Info Open Failed."},
    {"_read", "backup_info", kAny, kStages, kLine, "ReadBackupInfo Wrong Content: "},
    {"_close", "backup_info", kAny, kNothing, kSilent, kGivesBack},
};

// The volumes and the end of the run.
constexpr Rule kVolumeRules[] = {
    {"_access", "vantoro_prepare", kAny, kVolumes, kLine, "Not Exsit, Skip..."},
    {"_access", ":\\\", 0", "Vantoro Restore Begin", kVolumes, kSilent, "takes it for no volume"},
    {"_access", ":\\\", 0", kAny, kStages, kSilent, "takes the letter for free"},
    {"GetDriveTypeA", kAny, kAny, kVolumes, kSilent, "takes it for no fixed volume"},
    {"_open", "juncbackup", kAny, kVolumes, kLine, "junction restore failed, code=-1"},
    {"_read", "juncbackup", kAny, kVolumes, kLine, "junction restore failed, code=-1"},
    {"MultiByteToWideChar", "juncbackup", kAny, kVolumes, kLine,
     "junction restore failed, code=-1"},
    {"_open", "aclbackup", kAny, kVolumes, kLine, "acl restore failed, code=34"},
    {"_read", "aclbackup", kAny, kVolumes, kLine, "acl restore failed, code=34"},
    {"_close", "backup", kAny, kNothing, kSilent, kGivesBack},
    {"_access", kAny, "junction restore", kObjects, kSilent, kNoJunction},
    {"PathFileExistsA", kAny, "junction restore", kObjects, kSilent, kNoJunction},
    {"DeleteFileA", kAny, "junction restore", kObjects, kSilent, kNoJunction},
    {"MultiByteToWideChar", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"GetFileAttributesW", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"CreateDirectoryA", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"GetFullPathNameW", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"CreateFileW", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"DeviceIoControl", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"RemoveDirectoryA", kAny, kAny, kObjects, kSilent, kNoJunction},
    {"OpenProcessToken", kAny, kAny, kObjects, kSilent, kEngineToken},
    {"LookupPrivilegeValueA", kAny, kAny, kObjects, kSilent, kEngineToken},
    {"AdjustTokenPrivileges", kAny, kAny, kObjects, kSilent, kEngineToken},
    {"LookupAccountNameA", kAny, kAny, kObjects, kSilent, "there is no owner to fall back on"},
    {"CopySid", kAny, kAny, kObjects, kSilent, "there is no owner to fall back on"},
    {"ConvertStringSecurityDescriptorToSecurityDescriptorA", kAny, kAny, kObjects, kSilent,
     kPassedOver},
    {"MakeAbsoluteSD", kAny, kAny, kObjects, kSilent, kPassedOver},
    {"LocalAlloc", kAny, kAny, kObjects, kSilent, kPassedOver},
    {"SetNamedSecurityInfoA", kAny, kAny, kObjects, kSilent, kPassedOver},
    {"SetFileAttributesA", kAny, kAny, kObjects, kSilent, kPassedOver},
    {"SHGetSpecialFolderPathA", kAny, kAny, kObjects, kSilent, "both links stay"},
    {"PathFileExistsA", ".lnk", kAny, kObjects, kSilent, "takes the link for gone"},
    {"DeleteFileA", "Programs", kAny, kObjects, kLine, "Delete Startup Link ["},
    {"DeleteFileA", ".lnk", kAny, kObjects, kLine, "Delete Real Startup Link ["},
    {"LocalFree", kAny, kAny, kNothing, kSilent, kGivesBack},
};

// Where the program's own folder is asked for: for the log, for the boot store's backup, for the
// link in it.
constexpr Rule kFolderOfLog = {"",       kAny,  kAny,
                               kNothing, kLost, "the lines until the folder is known"};
constexpr Rule kFolderOfBackup = {"", kAny, kAny, kStages, kLine, "WinUtil::ExportBCDBoot export "};
constexpr Rule kFolderInMessage = {
    "", kAny, kAny, kNothing, kSilent, "the message names the log without its folder"};
constexpr Rule kFolderOfLink = {"", kAny, kAny, kObjects, kSilent, "the link there stays"};

// Where the system's own letter is asked for.
constexpr Rule kLetterOfBoot = {"", kAny, kAny, kStages, kLine, "WinUtil::RemakeBCDBoot bcdboot "};
constexpr Rule kLetterOfDisks = {
    "", kAny, kAny, kStages, kSilent, "only keeps the system's own letter from being changed"};

constexpr Rule kOtherHandle = {"", kAny, kAny, kNothing, kSilent, kGivesBack};
constexpr Rule kWriteEnd = {"",       kAny,   kAny,
                            kNothing, kWaits, "a pipe with an open write end has no end"};

constexpr Rule kEndOfRun = {"",       kAny,   kAny,
                            kNothing, kWaits, "the dialog does not learn of the end"};
constexpr Rule kOtherMessage = {"", kAny, kAny, kNothing, kSilent, kProgressOnly};
constexpr Rule kEveryMessage = {"",       kAny,   kAny,
                                kNothing, kWaits, "a loop that gets no message waits for one"};

template <size_t Count>
const Rule* FirstOf(const Rule (&rules)[Count], const ReferenceCall& call) {
  const auto* const found = std::find_if(rules, rules + Count, [&call](const Rule& rule) {
    return call.name == rule.call && call.arguments.find(rule.argument) != std::string::npos &&
           call.phase.find(rule.phase) != std::string::npos;
  });
  return found == rules + Count ? nullptr : found;
}

const Rule* RuleOfFolder(const ReferenceCall& call) {
  if (call.phase.find("Finish, Total") != std::string::npos) return &kFolderInMessage;
  if (call.phase.find("Restore [") != std::string::npos ||
      call.phase.find("acl restore") != std::string::npos ||
      call.phase.find("Skip...") != std::string::npos ||
      call.phase.find("junction restore") != std::string::npos) {
    return &kFolderOfLink;
  }
  return call.logged == 0 ? &kFolderOfLog : &kFolderOfBackup;
}

}  // namespace

const Rule* RuleOf(const Reference& reference, int number) {
  const ReferenceCall& call = reference.Call(number);
  const int count = static_cast<int>(reference.calls.size());
  const std::string previous = number > 1 ? reference.Call(number - 1).name : "";
  const std::string next = number < count ? reference.Call(number + 1).name : "";
  if (call.name == "CloseHandle") return previous == "CreateProcessA" ? &kWriteEnd : &kOtherHandle;
  if (call.name == "GetSystemDirectoryA") {
    return next == "CreatePipe" ? &kLetterOfBoot : &kLetterOfDisks;
  }
  if (call.name == "GetWindowLongPtrW") {
    const bool is_end = previous == "PostMessageW" && call.phase.find("Begin") == std::string::npos;
    return is_end ? &kEndOfRun : &kOtherMessage;
  }
  if (call.name == "GetModuleFileNameA" || call.name == "PathRemoveFileSpecA") {
    return RuleOfFolder(call);
  }
  if (const Rule* const rule = FirstOf(kWindowRules, call)) return rule;
  if (const Rule* const rule = FirstOf(kLogRules, call)) return rule;
  if (const Rule* const rule = FirstOf(kStageRules, call)) return rule;
  return FirstOf(kVolumeRules, call);
}

LastingRule LastingRuleOf(const Reference& reference, int number) {
  LastingRule lasting;
  const std::string& name = reference.Call(number).name;
  if (name == "GetMessageW") lasting.waits = &kEveryMessage;
  for (int later = number; later <= static_cast<int>(reference.calls.size()); ++later) {
    if (reference.Call(later).name != name) continue;
    const Rule* const rule = RuleOf(reference, later);
    if (rule == nullptr) continue;
    lasting.undone = std::max(lasting.undone, rule->undone);
    lasting.passes_over = lasting.passes_over || rule->undone == kObjects;
    lasting.has_log = lasting.has_log && rule->said != kLost;
    if (rule->said == kWaits) lasting.waits = rule;
  }
  return lasting;
}

}  // namespace fault_sweep
