// Path helpers of the shell.
#ifndef SIMULATOR_INCLUDE_SHLWAPI_H_
#define SIMULATOR_INCLUDE_SHLWAPI_H_

#include <windef.h>

BOOL WINAPI PathFileExistsA(LPCSTR path);
BOOL WINAPI PathRemoveFileSpecA(LPSTR path);

#endif  // SIMULATOR_INCLUDE_SHLWAPI_H_
