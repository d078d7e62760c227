#include "common/win/win_util.h"

#include <utility>

#include "common/errors.h"
#include "common/windows_version.h"

namespace common::win {

WinUtil::WinUtil(std::string base_folder, std::string second, std::string third)
    : base_folder_(std::move(base_folder)), second_(std::move(second)), third_(std::move(third)) {}

void WinUtil::SetLogger(logger::Logger* logger) { logger_ = logger; }

bool WinUtil::GetOSPlatform(std::string& name) {
  name.clear();
  OSVERSIONINFOEXA version{};
  if (!GetWindowsVersion(version)) {
    const DWORD error = ::GetLastError();
    logger_->ErrorOut("WinUtil::GetOSPlatform GetVersionExA Failed: %s",
                      GetLastErrorText(error).c_str());
    return false;
  }
  // Oddity: platform name, see docs/oddities.md.
  const DWORD major = version.dwMajorVersion;
  if (major < 6) {
    name = platform_names_[0];
  } else if (major == 6 && version.dwMinorVersion < 2) {
    name = platform_names_[1];
  } else if (major < 10) {
    name = platform_names_[2];
  } else {
    name = platform_names_[3];
  }
  return true;
}

}  // namespace common::win
