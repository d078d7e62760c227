// Inspection and changes of the BCD store with bcdedit and bcdboot.
#include "common/locations.h"
#include "common/win/platform_cache.h"
#include "common/win/win_util.h"

namespace common::win {

bool WinUtil::FindPlatform(BootOperation operation, bool& has_boot_tools) {
  std::string& platform = CachedPlatform(operation);
  if (platform == kPlatformUnknown && !GetOSPlatform(platform)) {
    platform = kPlatformUnknown;
    return false;
  }
  // Oddity: platform name, see docs/oddities.md.
  has_boot_tools = platform != platform_names_[0];
  return true;
}

bool WinUtil::GetBCDBootInfo(BCDBootInfo& info) {
  bool has_boot_tools = false;
  if (!FindPlatform(BootOperation::kInspect, has_boot_tools)) return false;
  if (!has_boot_tools) return true;
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

bool WinUtil::EditBootStore(BootOperation operation, const std::string& arguments, DWORD& code) {
  code = 0;
  bool has_boot_tools = false;
  if (!FindPlatform(operation, has_boot_tools)) return false;
  std::string output;
  if (has_boot_tools) code = ExecCommandWithResults("", "bcdedit " + arguments, output);
  return code == 0;
}

bool WinUtil::ExportBCDBoot(const std::string& path) {
  DWORD code = 0;
  const bool is_done = EditBootStore(BootOperation::kExport, "/export \"" + path + "\"", code);
  if (code != 0) {
    logger_->Error("WinUtil::ExportBCDBoot export %s Failed, code=%d", path.c_str(),
                   static_cast<int>(code));
  }
  return is_done;
}

bool WinUtil::ImportBCDBoot(const std::string& path) {
  DWORD code = 0;
  const bool is_done = EditBootStore(BootOperation::kImport, "/import \"" + path + "\"", code);
  if (code != 0) {
    logger_->Error("WinUtil::ImportBCDBoot import %s Failed, code=%d", path.c_str(),
                   static_cast<int>(code));
  }
  return is_done;
}

bool WinUtil::DeleteBCDBootOSLoader(const std::string& identifier) {
  DWORD code = 0;
  // Oddity: deletion without a switch, see docs/oddities.md.
  const bool is_done = EditBootStore(BootOperation::kDelete, "/delete " + identifier, code);
  if (code != 0) {
    logger_->Error("WinUtil::DeleteBCDBootOSLoader delete %s Failed, code=%d", identifier.c_str(),
                   static_cast<int>(code));
  }
  return is_done;
}

bool WinUtil::RemakeBCDBoot(const std::string& locale) {
  bool has_boot_tools = false;
  if (!FindPlatform(BootOperation::kRemake, has_boot_tools)) return false;
  if (!has_boot_tools) return true;
  // If the system drive is unknown, the path has only the colon and bcdboot fails.
  // Oddity: boot files on the system drive, see docs/oddities.md.
  const int letter = GetSystemDriveLetter();
  const std::string drive = (letter != 0 ? std::string(1, static_cast<char>(letter)) : "") + ":";
  std::string output;
  const DWORD code = ExecCommandWithResults(
      "", "bcdboot " + drive + "\\Windows /s " + drive + " /l " + locale, output);
  if (code == 0) return true;
  logger_->Error("WinUtil::RemakeBCDBoot bcdboot %s %s Failed, code=%d", drive.c_str(),
                 locale.c_str(), static_cast<int>(code));
  return false;
}

}  // namespace common::win
