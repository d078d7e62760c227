#include "fault_sweep/rules.h"

#include <algorithm>
#include <iterator>
#include <set>

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
constexpr std::string_view kNoRestart = "the user can restart the server himself";
constexpr std::string_view kTold = "Vantoro Restore Not Finished!";

// The window and its thread.
constexpr Rule kWindowRules[] = {
    {"GetVersionExW", kAny, kAny, kNothing, kBox, "Get OS Version Failed"},
    {"SetThreadUILanguage", kAny, kAny, kNothing, kSilent, "English is shown instead"},
    {"GetModuleHandleW", kAny, kAny, kRun, kBox, "Get Architecture Failed."},
    {"GetProcAddress", kAny, kAny, kRun, kBox, "Get Architecture Failed."},
    {"CreateDialogParamW", kAny, kAny, kRun, kWaits, "a program without a window has no early end"},
    {"SetWindowLongPtrW", kAny, "Vantoro Restore Finish", kNothing, kSilent, kGivesBack},
    {"SetWindowLongPtrW", kAny, kAny, kNothing, kWaits, "the dialog does not find its object"},
    {"PostMessageW", ", 1126, 2, ", kAny, kNothing, kWaits, "nobody tells the dialog of the end"},
    {"GetMessageW", kAny, kAny, kNothing, kSilent, "a message that cannot be taken is none"},
    {"CreateThread", kAny, kAny, kRun, kLine, "Vantoro Restore Thread Start Failed."},
    {"GetVersionExA", kAny, "Vantoro Restore Begin", kNothing, kSilent, "without the task bar"},
    {"MessageBoxA", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"LookupPrivilegeValueW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"InitiateSystemShutdownW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"OpenProcessToken", kAny, "Vantoro Restore Fin", kNothing, kSilent, kNoRestart},
    {"AdjustTokenPrivileges", kAny, "Vantoro Restore Fin", kNothing, kSilent, kNoRestart},
    {"LoadStringW", kAny, kAny, kNothing, kSilent, kNoRestart},
    {"DestroyWindow", kAny, kAny, kNothing, kSilent, "the process ends at once"},
    {"TerminateProcess", kAny, kAny, kNothing, kSilent, "the tools have ended long since"},
};

// They only show something: a failure is silent and leaves nothing undone.
constexpr std::string_view kDisplayCalls[] = {"CoCreateInstance",
                                              "CoInitialize",
                                              "DefWindowProcW",
                                              "GetConsoleScreenBufferInfo",
                                              "GetDlgCtrlID",
                                              "GetDlgItem",
                                              "GetParent",
                                              "GetStdHandle",
                                              "GetStockObject",
                                              "GetWindowRect",
                                              "GetWindowTextLengthW",
                                              "ITaskbarList3::SetProgressState",
                                              "ITaskbarList3::SetProgressValue",
                                              "InitCommonControlsEx",
                                              "KillTimer",
                                              "LoadIconW",
                                              "LoadStringA",
                                              "PostMessageA",
                                              "PostMessageW",
                                              "SendMessageW",
                                              "SetBkMode",
                                              "SetConsoleTextAttribute",
                                              "SetTextColor",
                                              "SetTimer",
                                              "SetWindowPos",
                                              "SetWindowTextA",
                                              "ShowWindow",
                                              "SystemParametersInfoW"};
constexpr Rule kDisplay = {"", kAny, kAny, kNothing, kSilent, kProgressOnly};

// The log.
constexpr Rule kLogRules[] = {
    {"_access", "\\Logs\\", kAny, kNothing, kLost, "the lines until the folder is seen"},
    {"_mkdir", "\\Logs\\", kAny, kNothing, kLost, "the lines until the folder can be made"},
    {"_open", "\\Logs\\", kAny, kNothing, kLost, "the lines until the file can be opened"},
    {"_write", "\\Logs\\", kAny, kNothing, kLost, "that line and all behind it"},
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
    return is_end ? &kEndOfRun : &kDisplay;
  }
  if (call.name == "GetModuleFileNameA" || call.name == "PathRemoveFileSpecA") {
    return RuleOfFolder(call);
  }
  if (const Rule* const rule = FirstOf(kWindowRules, call)) return rule;
  if (std::find(std::begin(kDisplayCalls), std::end(kDisplayCalls), call.name) !=
      std::end(kDisplayCalls)) {
    return &kDisplay;
  }
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

std::vector<std::string> RulesWithoutACall(const std::vector<const Reference*>& references) {
  std::set<const Rule*> used;
  std::set<std::string_view> names;
  for (const Reference* reference : references) {
    for (int number = 1; number <= static_cast<int>(reference->calls.size()); ++number) {
      used.insert(RuleOf(*reference, number));
      names.insert(reference->Call(number).name);
    }
  }
  std::vector<std::string> unused;
  const auto look = [&](const auto& rules) {
    for (const Rule& rule : rules) {
      if (used.contains(&rule)) continue;
      unused.push_back(std::string(rule.call) + " " + std::string(rule.argument) + " " +
                       std::string(rule.phase));
    }
  };
  look(kWindowRules);
  look(kLogRules);
  look(kStageRules);
  look(kVolumeRules);
  for (const std::string_view name : kDisplayCalls) {
    if (!names.contains(name)) unused.emplace_back(name);
  }
  return unused;
}

}  // namespace fault_sweep
