// Objects of the task bar's class, and results of COM.
#ifndef SIMULATOR_API_TASKBAR_LIST_H_
#define SIMULATOR_API_TASKBAR_LIST_H_

#include <windows.h>

#include <objbase.h>

namespace simulator {

// What COM makes of a code that a call is to fail with: a system error code gets the facility of
// those, a code of COM stays what it is.
HRESULT ResultOf(DWORD error);

// E_NOINTERFACE when the server's Windows has no such interface of the class.
HRESULT MakeTaskbarList(REFIID interface_id, void** object);

}  // namespace simulator

#endif  // SIMULATOR_API_TASKBAR_LIST_H_
