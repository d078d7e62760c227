// Security descriptors of named objects.
#ifndef SIMULATOR_INCLUDE_ACLAPI_H_
#define SIMULATOR_INCLUDE_ACLAPI_H_

#include <windows.h>

#include <accctrl.h>

// Returns a system error code and leaves the last error undefined.
DWORD WINAPI SetNamedSecurityInfoA(LPSTR object_name, SE_OBJECT_TYPE object_type,
                                   SECURITY_INFORMATION information, PSID owner, PSID group,
                                   PACL dacl, PACL sacl);

#endif  // SIMULATOR_INCLUDE_ACLAPI_H_
