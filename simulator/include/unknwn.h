// Identifiers of classes and interfaces, and the interface that every COM object implements.
#ifndef SIMULATOR_INCLUDE_UNKNWN_H_
#define SIMULATOR_INCLUDE_UNKNWN_H_

#include <windef.h>

struct GUID {
  DWORD Data1;
  WORD Data2;
  WORD Data3;
  BYTE Data4[8];

  bool operator==(const GUID&) const = default;
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

struct IUnknown {
  virtual ULONG WINAPI Release() = 0;
};
using LPUNKNOWN = IUnknown*;

#endif  // SIMULATOR_INCLUDE_UNKNWN_H_
