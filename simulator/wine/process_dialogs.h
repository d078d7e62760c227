// The dialogs of another process, as any program of Windows can find them.
#ifndef SIMULATOR_WINE_PROCESS_DIALOGS_H_
#define SIMULATOR_WINE_PROCESS_DIALOGS_H_

#include <windows.h>

#include <vector>

namespace simulator {

// Those that can be seen, message boxes among them.
std::vector<HWND> DialogsOf(DWORD process);

}  // namespace simulator

#endif  // SIMULATOR_WINE_PROCESS_DIALOGS_H_
