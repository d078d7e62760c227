// The dialogs of another process, as any program of Windows can find them.
#ifndef WINE_PROGRAMS_PROCESS_DIALOGS_H_
#define WINE_PROGRAMS_PROCESS_DIALOGS_H_

#include <windows.h>

#include <vector>

namespace simulator {

// Those that can be seen, message boxes among them.
std::vector<HWND> DialogsOf(DWORD process);

}  // namespace simulator

#endif  // WINE_PROGRAMS_PROCESS_DIALOGS_H_
