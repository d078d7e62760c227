// The version that Windows reports to this process.
#ifndef COMMON_WINDOWS_VERSION_H_
#define COMMON_WINDOWS_VERSION_H_

#include <windows.h>

namespace common {

// Returns false if the version cannot be read; the reason is then the thread's last error.
// https://learn.microsoft.com/windows/win32/api/sysinfoapi/nf-sysinfoapi-getversionexa
[[nodiscard]] bool GetWindowsVersion(OSVERSIONINFOEXA& version);

}  // namespace common

#endif  // COMMON_WINDOWS_VERSION_H_
