// The restart of the system.
#ifndef UI_RESTART_H_
#define UI_RESTART_H_

#include <windows.h>

namespace ui {

// Requests a restart of the local computer in 30 seconds, without forcing applications to close,
// and shows `message` to users who are logged on. Returns true if the restart has been scheduled;
// otherwise returns false without logging.
// https://learn.microsoft.com/windows/win32/api/winreg/nf-winreg-initiatesystemshutdownw
[[nodiscard]] bool Restart(const wchar_t* message);

// Asks in a message box owned by `owner` whether to restart, and requests the restart if the user
// clicks OK.
void OfferRestart(HWND owner);

}  // namespace ui

#endif  // UI_RESTART_H_
