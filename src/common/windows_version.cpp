#include "common/windows_version.h"

namespace common {

bool GetWindowsVersion(OSVERSIONINFOEXA& version) {
  version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  return ::GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version)) != FALSE;
}

}  // namespace common
