// Objects of the taskbar list class, and COM result codes.
#ifndef SIMULATOR_API_TASKBAR_LIST_H_
#define SIMULATOR_API_TASKBAR_LIST_H_

#include <windows.h>

#include <objbase.h>

namespace simulator {

// Returns the HRESULT for the error code of a fault: a system error code is given FACILITY_WIN32,
// and an HRESULT is returned unchanged.
HRESULT ResultOf(DWORD error);

// Returns E_NOINTERFACE if the class does not have the interface on the server's version of
// Windows.
HRESULT MakeTaskbarList(REFIID interface_id, void** object);

}  // namespace simulator

#endif  // SIMULATOR_API_TASKBAR_LIST_H_
