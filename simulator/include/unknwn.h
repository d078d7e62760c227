// The interface that every COM object implements.
#ifndef SIMULATOR_INCLUDE_UNKNWN_H_
#define SIMULATOR_INCLUDE_UNKNWN_H_

#include <guiddef.h>

extern const IID IID_IUnknown;

struct IUnknown {
  virtual HRESULT WINAPI QueryInterface(REFIID interface_id, void** object) = 0;
  virtual ULONG WINAPI AddRef() = 0;
  virtual ULONG WINAPI Release() = 0;
};
using LPUNKNOWN = IUnknown*;

#endif  // SIMULATOR_INCLUDE_UNKNWN_H_
