// Common controls: initialization and the progress bar.
#ifndef SIMULATOR_INCLUDE_COMMCTRL_H_
#define SIMULATOR_INCLUDE_COMMCTRL_H_

#include <windef.h>
#include <winuser.h>

struct INITCOMMONCONTROLSEX {
  DWORD dwSize;
  DWORD dwICC;
};

#define ICC_BAR_CLASSES 0x00000004
#define ICC_COOL_CLASSES 0x00000400

#define PBM_SETRANGE (WM_USER + 1)
#define PBM_SETPOS (WM_USER + 2)
#define PBM_SETSTATE (WM_USER + 16)

#define PBST_NORMAL 0x0001
#define PBST_ERROR 0x0002
#define PBST_PAUSED 0x0003

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);

#endif  // SIMULATOR_INCLUDE_COMMCTRL_H_
