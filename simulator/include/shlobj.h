// Special folders of the shell.
#ifndef SIMULATOR_INCLUDE_SHLOBJ_H_
#define SIMULATOR_INCLUDE_SHLOBJ_H_

#include <windef.h>

#define CSIDL_COMMON_STARTUP 0x0018

BOOL WINAPI SHGetSpecialFolderPathA(HWND owner, LPSTR path, int csidl, BOOL create);

#endif  // SIMULATOR_INCLUDE_SHLOBJ_H_
