// The functions of the Windows SDK that the program calls, under the SDK's names. Each is declared
// in the SDK's header of the same name. Code that calls any other function does not compile.
#ifndef SIMULATOR_INCLUDE_WINDOWS_H_
#define SIMULATOR_INCLUDE_WINDOWS_H_

#include <winbase.h>
#include <wincon.h>
#include <windef.h>
#include <winerror.h>
#include <wingdi.h>
#include <winioctl.h>
#include <winnls.h>
#include <winnt.h>
#include <winreg.h>
#include <winuser.h>

#endif  // SIMULATOR_INCLUDE_WINDOWS_H_
