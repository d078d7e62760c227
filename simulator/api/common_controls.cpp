// The start-up of the common controls.
#include <windows.h>

#include <commctrl.h>

#include "simulator/api/call.h"

using simulator::Call;
using simulator::Unsupported;

// The classes are there for every program that is linked with the library of the controls; what
// this adds is the trace.
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
  constexpr DWORD kKnown = 0xFFFF;
  if (controls == nullptr) Unsupported("InitCommonControlsEx: of nothing");
  if (controls->dwSize != sizeof(INITCOMMONCONTROLSEX)) Unsupported("INITCOMMONCONTROLSEX::dwSize");
  if ((controls->dwICC & ~kKnown) != 0) Unsupported("INITCOMMONCONTROLSEX::dwICC");
  const Call call("InitCommonControlsEx", controls->dwICC);
  if (call.fails()) return FALSE;
  return call.Succeed(TRUE);
}
