// Identifiers of classes and interfaces.
#ifndef SIMULATOR_INCLUDE_GUIDDEF_H_
#define SIMULATOR_INCLUDE_GUIDDEF_H_

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

#endif  // SIMULATOR_INCLUDE_GUIDDEF_H_
