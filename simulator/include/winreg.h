// System shutdown.
#ifndef SIMULATOR_INCLUDE_WINREG_H_
#define SIMULATOR_INCLUDE_WINREG_H_

#include <windef.h>

BOOL WINAPI InitiateSystemShutdownW(LPWSTR machine_name, LPWSTR message, DWORD timeout,
                                    BOOL force_apps_closed, BOOL reboot_after_shutdown);

#endif  // SIMULATOR_INCLUDE_WINREG_H_
