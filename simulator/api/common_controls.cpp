// The start-up of the common controls.
#include <windows.h>

#include <commctrl.h>

#include "simulator/api/call.h"

using simulator::Call;
using simulator::UnsupportedCall;

// The classes are there for every program that is linked with the library of the controls; what
// this adds is the trace.
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
  constexpr DWORD kKnown = 0xFFFF;
  if (controls == nullptr) UnsupportedCall("InitCommonControlsEx: of nothing");
  if (controls->dwSize != sizeof(INITCOMMONCONTROLSEX))
    UnsupportedCall("INITCOMMONCONTROLSEX::dwSize");
  if ((controls->dwICC & ~kKnown) != 0) UnsupportedCall("INITCOMMONCONTROLSEX::dwICC");
  const Call call("InitCommonControlsEx", controls->dwICC);
  if (call.fails()) return FALSE;
  return call.Succeed(TRUE);
}
