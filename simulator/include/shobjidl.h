// The taskbar list.
#ifndef SIMULATOR_INCLUDE_SHOBJIDL_H_
#define SIMULATOR_INCLUDE_SHOBJIDL_H_

#include <unknwn.h>
#include <windef.h>

extern const CLSID CLSID_TaskbarList;
extern const IID IID_ITaskbarList3;

enum TBPFLAG {
  TBPF_NOPROGRESS = 0,
  TBPF_NORMAL = 0x2,
  TBPF_ERROR = 0x4,
  TBPF_PAUSED = 0x8,
};

struct ITaskbarList3 : IUnknown {
  virtual HRESULT WINAPI SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) = 0;
  virtual HRESULT WINAPI SetProgressState(HWND window, TBPFLAG state) = 0;
};

#endif  // SIMULATOR_INCLUDE_SHOBJIDL_H_
