// The restart of the system.
#ifndef UI_RESTART_H_
#define UI_RESTART_H_

#include <windows.h>

namespace ui {

// Asks the system to restart this machine in 30 seconds, forcing no application to close, and shows
// `message` to who is logged on. True when the restart is scheduled. Silent on failure; the token
// it opens stays open on every path.
// https://learn.microsoft.com/windows/win32/api/winreg/nf-winreg-initiatesystemshutdownw
[[nodiscard]] bool Restart(const wchar_t* message);

// Asks the user, in a box owned by `owner`, whether to restart, and does it on consent.
void OfferRestart(HWND owner);

}  // namespace ui

#endif  // UI_RESTART_H_
