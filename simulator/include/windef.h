// Basic types of the Windows SDK for a 64-bit native build. Sizes are those of Win64, except that
// WCHAR is the native wchar_t.
#ifndef SIMULATOR_INCLUDE_WINDEF_H_
#define SIMULATOR_INCLUDE_WINDEF_H_

#include <stddef.h>
#include <stdint.h>

#define WINAPI
#define CALLBACK

using BOOL = int;
using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using ULONG = uint32_t;
using ULONGLONG = uint64_t;
using SIZE_T = size_t;
using SHORT = int16_t;
using USHORT = uint16_t;
using CHAR = char;
using WCHAR = wchar_t;

using INT_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using LONG_PTR = intptr_t;
using ULONG_PTR = uintptr_t;
using DWORD_PTR = ULONG_PTR;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using LPSTR = CHAR*;
using LPCSTR = const CHAR*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPBOOL = BOOL*;

using HANDLE = void*;
using PHANDLE = HANDLE*;
using HLOCAL = HANDLE;
using HRESULT = LONG;
using LANGID = WORD;

// Each kind of handle has its own type, as with STRICT.
#define DECLARE_HANDLE(name) \
  struct name##__;           \
  using name = name##__* /* NOLINT(bugprone-macro-parentheses): a type */

DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HICON);
using HMODULE = HINSTANCE;
using HGDIOBJ = void*;

using COLORREF = DWORD;  // 0x00BBGGRR

struct POINT {
  LONG x;
  LONG y;
};

struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using LPRECT = RECT*;

using FARPROC = INT_PTR(WINAPI*)();

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

#define MAX_PATH 260

#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xFFFF))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xFFFF))
#define MAKELONG(low, high) \
  (static_cast<LONG>(static_cast<DWORD>(LOWORD(low)) | static_cast<DWORD>(LOWORD(high)) << 16))

#define MAKELANGID(primary, sub) ((static_cast<WORD>(sub) << 10) | static_cast<WORD>(primary))

#endif  // SIMULATOR_INCLUDE_WINDEF_H_
