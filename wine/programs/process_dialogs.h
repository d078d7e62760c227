// The dialogs of another process, as any Windows program can find them.
#ifndef WINE_PROGRAMS_PROCESS_DIALOGS_H_
#define WINE_PROGRAMS_PROCESS_DIALOGS_H_

#include <windows.h>

#include <vector>

namespace simulator {

// Returns the visible dialogs, including message boxes.
std::vector<HWND> DialogsOf(DWORD process);

}  // namespace simulator

#endif  // WINE_PROGRAMS_PROCESS_DIALOGS_H_
