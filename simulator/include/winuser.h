// Messages, message boxes and string resources.
#ifndef SIMULATOR_INCLUDE_WINUSER_H_
#define SIMULATOR_INCLUDE_WINUSER_H_

#include <windef.h>

#define WM_USER 0x0400

#define SW_HIDE 0

#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_ICONERROR 0x00000010
#define MB_ICONQUESTION 0x00000020
#define MB_ICONWARNING 0x00000030

#define IDOK 1
#define IDCANCEL 2

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int buffer_size);
int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int buffer_size);

#endif  // SIMULATOR_INCLUDE_WINUSER_H_
