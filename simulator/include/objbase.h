// COM: initialization for a thread, and objects of registered classes.
#ifndef SIMULATOR_INCLUDE_OBJBASE_H_
#define SIMULATOR_INCLUDE_OBJBASE_H_

#include <unknwn.h>
#include <winerror.h>

enum CLSCTX {
  CLSCTX_INPROC_SERVER = 0x1,
};

HRESULT WINAPI CoInitialize(LPVOID reserved);
void WINAPI CoUninitialize();
HRESULT WINAPI CoCreateInstance(REFCLSID class_id, LPUNKNOWN outer, DWORD context,
                                REFIID interface_id, LPVOID* object);

#endif  // SIMULATOR_INCLUDE_OBJBASE_H_
