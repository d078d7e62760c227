// Inspection and changes of the BCD store with bcdedit and bcdboot.
#include "common/locations.h"
#include "common/win/platform_cache.h"
#include "common/win/win_util.h"

namespace common::win {

WinUtil::BootTools WinUtil::FindBootTools(BootOperation operation) {
  std::string& platform = CachedPlatform(operation);
  if (platform == kPlatformUnknown && !GetOSPlatform(platform)) {
    platform = kPlatformUnknown;
    return BootTools::kUnknown;
  }
  // Oddity: platform name, see docs/oddities.md.
  return platform == platform_names_[0] ? BootTools::kNone : BootTools::kPresent;
}

bool WinUtil::GetBCDBootInfo(BCDBootInfo& info) {
  const BootTools tools = FindBootTools(BootOperation::kInspect);
  if (tools != BootTools::kPresent) return tools == BootTools::kNone;
  std::string output;
  const DWORD code = ExecCommandWithResults("", "bcdedit", output);
  if (code != 0) {
    logger_->Error("WinUtil::GetBCDBootInfo getbcdinfo Failed, code=%d", static_cast<int>(code));
    return false;
  }
  const std::string failure = ParseBootConfiguration(output, default_locale_, info);
  if (failure.empty()) return true;
  logger_->Error("%s", failure.c_str());
  return false;
}

bool WinUtil::RunBootTool(const std::string& command_line, const char* failure,
                          const std::string& object) {
  std::string output;
  const DWORD code = ExecCommandWithResults("", command_line, output);
  if (code != 0) logger_->Error(failure, object.c_str(), static_cast<int>(code));
  return code == 0;
}

bool WinUtil::EditBootStore(BootOperation operation, const std::string& arguments,
                            const char* failure, const std::string& object) {
  const BootTools tools = FindBootTools(operation);
  if (tools != BootTools::kPresent) return tools == BootTools::kNone;
  return RunBootTool("bcdedit " + arguments, failure, object);
}

bool WinUtil::ExportBCDBoot(const std::string& path) {
  return EditBootStore(BootOperation::kExport, "/export \"" + path + "\"",
                       "WinUtil::ExportBCDBoot export %s Failed, code=%d", path);
}

bool WinUtil::ImportBCDBoot(const std::string& path) {
  return EditBootStore(BootOperation::kImport, "/import \"" + path + "\"",
                       "WinUtil::ImportBCDBoot import %s Failed, code=%d", path);
}

bool WinUtil::DeleteBCDBootOSLoader(const std::string& identifier) {
  // Oddity: deletion without a switch, see docs/oddities.md.
  return EditBootStore(BootOperation::kDelete, "/delete " + identifier,
                       "WinUtil::DeleteBCDBootOSLoader delete %s Failed, code=%d", identifier);
}

bool WinUtil::RemakeBCDBoot(const std::string& locale) {
  const BootTools tools = FindBootTools(BootOperation::kRemake);
  if (tools != BootTools::kPresent) return tools == BootTools::kNone;
  // If the system drive is unknown, the path has only the colon and bcdboot fails.
  // Oddity: boot files on the system drive, see docs/oddities.md.
  const int letter = GetSystemDriveLetter();
  const std::string drive = (letter != 0 ? std::string(1, static_cast<char>(letter)) : "") + ":";
  return RunBootTool("bcdboot " + drive + "\\Windows /s " + drive + " /l " + locale,
                     "WinUtil::RemakeBCDBoot bcdboot %s Failed, code=%d", drive + " " + locale);
}

}  // namespace common::win
