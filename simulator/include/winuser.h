// Windows, dialogs, messages, message boxes and resources.
#ifndef SIMULATOR_INCLUDE_WINUSER_H_
#define SIMULATOR_INCLUDE_WINUSER_H_

#include <windef.h>

using DLGPROC = INT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);
using TIMERPROC = void(CALLBACK*)(HWND window, UINT message, UINT_PTR id, DWORD time);

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};
using LPMSG = MSG*;

#define WM_DESTROY 0x0002
#define WM_PAINT 0x000F
#define WM_QUIT 0x0012
#define WM_SETFONT 0x0030
#define WM_SETICON 0x0080
#define WM_NCDESTROY 0x0082
#define WM_KEYDOWN 0x0100
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_TIMER 0x0113
#define WM_CTLCOLOREDIT 0x0133
#define WM_CTLCOLORBTN 0x0135
#define WM_CTLCOLORSTATIC 0x0138
#define WM_USER 0x0400

#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKEINTRESOURCEW(id) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(LOWORD(id))))

#define ICON_SMALL 0
#define ICON_BIG 1

#define VK_RETURN 0x0D
#define VK_ESCAPE 0x1B

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5
#define SW_SHOWDEFAULT 10

#define SWP_NOSIZE 0x0001
#define SWP_NOZORDER 0x0004
#define SWP_NOACTIVATE 0x0010

#define SPI_GETWORKAREA 0x0030

#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC (DWLP_MSGRESULT + static_cast<int>(sizeof(LRESULT)))
#define DWLP_USER (DWLP_DLGPROC + static_cast<int>(sizeof(DLGPROC)))

#define WS_TABSTOP 0x00010000
#define WS_GROUP 0x00020000
#define WS_VSCROLL 0x00200000
#define WS_BORDER 0x00800000
#define WS_CAPTION 0x00C00000
#define WS_VISIBLE 0x10000000
#define WS_CHILD 0x40000000
#define WS_POPUP 0x80000000
#define WS_EX_TOPMOST 0x00000008

#define DS_FIXEDSYS 0x0008
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080

#define BS_PUSHBUTTON 0x0000
#define BS_DEFPUSHBUTTON 0x0001
#define BN_CLICKED 0

#define ES_LEFT 0x0000
#define ES_MULTILINE 0x0004
#define ES_AUTOVSCROLL 0x0040
#define ES_READONLY 0x0800
#define EM_SETSEL 0x00B1
#define EM_SCROLLCARET 0x00B7
#define EM_REPLACESEL 0x00C2
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400
#define EN_MAXTEXT 0x0501

#define SS_LEFT 0x0000

#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_CANCELTRYCONTINUE 0x00000006
#define MB_ICONERROR 0x00000010
#define MB_ICONQUESTION 0x00000020
#define MB_ICONWARNING 0x00000030

#define IDOK 1
#define IDCANCEL 2
#define IDTRYAGAIN 10
#define IDCONTINUE 11

// Messages.
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
void WINAPI PostQuitMessage(int exit_code);
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Windows and dialogs.
HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR template_name, HWND parent,
                               DLGPROC procedure, LPARAM parameter);
BOOL WINAPI DestroyWindow(HWND window);
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND control);
HWND WINAPI GetParent(HWND window);
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI GetWindowRect(HWND window, LPRECT rectangle);
BOOL WINAPI SetWindowPos(HWND window, HWND insert_after, int x, int y, int width, int height,
                         UINT flags);
BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
int WINAPI GetWindowTextLengthW(HWND window);
BOOL WINAPI SystemParametersInfoW(UINT action, UINT parameter, PVOID value, UINT update);

// Message boxes and resources.
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name);
int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int buffer_size);
int WINAPI LoadStringW(HINSTANCE instance, UINT id, LPWSTR buffer, int buffer_size);

#endif  // SIMULATOR_INCLUDE_WINUSER_H_
