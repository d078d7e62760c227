// Signatures: the same in the simulator's headers and in the SDK's.
#include <windows.h>

#include <aclapi.h>
#include <commctrl.h>
#include <direct.h>
#include <io.h>
#include <objbase.h>
#include <sddl.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <shobjidl.h>
#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <time.h>

#include <cstddef>
#include <iostream>
#include <string>
#include <type_traits>
#include <utility>

#include "common/file_stream.h"

namespace {

// For calls whose declarations carry attributes, which a template argument would lose. Only a
// function of exactly that signature converts.
template <typename Signature>
constexpr bool Has(Signature*) {
  return true;
}

static_assert(std::is_same_v<decltype(&::CreatePipe),
                             BOOL(WINAPI*)(PHANDLE, PHANDLE, LPSECURITY_ATTRIBUTES, DWORD)>);
static_assert(
    std::is_same_v<decltype(&::CreateProcessA),
                   BOOL(WINAPI*)(LPCSTR, LPSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL,
                                 DWORD, LPVOID, LPCSTR, LPSTARTUPINFOA, LPPROCESS_INFORMATION)>);
static_assert(std::is_same_v<decltype(&::ReadFile),
                             BOOL(WINAPI*)(HANDLE, LPVOID, DWORD, LPDWORD, LPOVERLAPPED)>);
static_assert(std::is_same_v<decltype(&::WriteFile),
                             BOOL(WINAPI*)(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED)>);
static_assert(std::is_same_v<decltype(&::GetExitCodeProcess), BOOL(WINAPI*)(HANDLE, LPDWORD)>);
static_assert(std::is_same_v<decltype(&::TerminateProcess), BOOL(WINAPI*)(HANDLE, UINT)>);
static_assert(Has<void WINAPI(UINT)>(&::ExitProcess));
static_assert(std::is_same_v<decltype(::wWinMain), int WINAPI(HINSTANCE, HINSTANCE, LPWSTR, int)>);
static_assert(std::is_same_v<decltype(&::InitiateSystemShutdownW),
                             BOOL(WINAPI*)(LPWSTR, LPWSTR, DWORD, BOOL, BOOL)>);
static_assert(std::is_same_v<decltype(&::CloseHandle), BOOL(WINAPI*)(HANDLE)>);
static_assert(std::is_same_v<decltype(&::GetCurrentProcess), HANDLE(WINAPI*)()>);
static_assert(std::is_same_v<decltype(&::CreateThread),
                             HANDLE(WINAPI*)(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE,
                                             LPVOID, DWORD, LPDWORD)>);
static_assert(std::is_same_v<decltype(&::Sleep), void(WINAPI*)(DWORD)>);
static_assert(
    std::is_same_v<decltype(&::InitializeCriticalSection), void(WINAPI*)(LPCRITICAL_SECTION)>);
static_assert(std::is_same_v<decltype(&::EnterCriticalSection), void(WINAPI*)(LPCRITICAL_SECTION)>);
static_assert(
    std::is_same_v<decltype(&::TryEnterCriticalSection), BOOL(WINAPI*)(LPCRITICAL_SECTION)>);
static_assert(std::is_same_v<decltype(&::LeaveCriticalSection), void(WINAPI*)(LPCRITICAL_SECTION)>);
static_assert(
    std::is_same_v<decltype(&::DeleteCriticalSection), void(WINAPI*)(LPCRITICAL_SECTION)>);

static_assert(std::is_same_v<decltype(&::GetLastError), DWORD(WINAPI*)()>);
static_assert(std::is_same_v<decltype(&::SetLastError), void(WINAPI*)(DWORD)>);
// The SDK's last parameter is a va_list*, the program's argument always null.
static_assert(std::is_same_v<decltype(::FormatMessageA(DWORD{}, LPCVOID{}, DWORD{}, DWORD{},
                                                       LPSTR{}, DWORD{}, nullptr)),
                             DWORD>);
static_assert(std::is_same_v<decltype(&::LocalAlloc), HLOCAL(WINAPI*)(UINT, SIZE_T)>);
static_assert(std::is_same_v<decltype(&::LocalFree), HLOCAL(WINAPI*)(HLOCAL)>);
static_assert(std::is_same_v<decltype(&::OutputDebugStringA), void(WINAPI*)(LPCSTR)>);
static_assert(std::is_same_v<decltype(&::SetErrorMode), UINT(WINAPI*)(UINT)>);

static_assert(std::is_same_v<decltype(&::OpenProcessToken), BOOL(WINAPI*)(HANDLE, DWORD, PHANDLE)>);
static_assert(
    std::is_same_v<decltype(&::LookupPrivilegeValueA), BOOL(WINAPI*)(LPCSTR, LPCSTR, PLUID)>);
static_assert(
    std::is_same_v<decltype(&::LookupPrivilegeValueW), BOOL(WINAPI*)(LPCWSTR, LPCWSTR, PLUID)>);
static_assert(std::is_same_v<decltype(&::AdjustTokenPrivileges),
                             BOOL(WINAPI*)(HANDLE, BOOL, PTOKEN_PRIVILEGES, DWORD,
                                           PTOKEN_PRIVILEGES, PDWORD)>);

static_assert(
    std::is_same_v<decltype(&::LookupAccountNameA),
                   BOOL(WINAPI*)(LPCSTR, LPCSTR, PSID, LPDWORD, LPSTR, LPDWORD, PSID_NAME_USE)>);
static_assert(std::is_same_v<decltype(&::GetLengthSid), DWORD(WINAPI*)(PSID)>);
static_assert(std::is_same_v<decltype(&::CopySid), BOOL(WINAPI*)(DWORD, PSID, PSID)>);
static_assert(
    std::is_same_v<decltype(&::MakeAbsoluteSD),
                   BOOL(WINAPI*)(PSECURITY_DESCRIPTOR, PSECURITY_DESCRIPTOR, LPDWORD, PACL, LPDWORD,
                                 PACL, LPDWORD, PSID, LPDWORD, PSID, LPDWORD)>);

static_assert(std::is_same_v<decltype(&::ConvertStringSecurityDescriptorToSecurityDescriptorA),
                             BOOL(WINAPI*)(LPCSTR, DWORD, PSECURITY_DESCRIPTOR*, PULONG)>);
static_assert(std::is_same_v<decltype(&::ConvertSecurityDescriptorToStringSecurityDescriptorA),
                             BOOL(WINAPI*)(PSECURITY_DESCRIPTOR, DWORD, SECURITY_INFORMATION,
                                           LPSTR*, PULONG)>);

static_assert(std::is_same_v<decltype(&::CreateFileW),
                             HANDLE(WINAPI*)(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD,
                                             DWORD, HANDLE)>);
static_assert(
    std::is_same_v<decltype(&::DeviceIoControl), BOOL(WINAPI*)(HANDLE, DWORD, LPVOID, DWORD, LPVOID,
                                                               DWORD, LPDWORD, LPOVERLAPPED)>);
static_assert(
    std::is_same_v<decltype(&::CreateDirectoryA), BOOL(WINAPI*)(LPCSTR, LPSECURITY_ATTRIBUTES)>);
static_assert(std::is_same_v<decltype(&::RemoveDirectoryA), BOOL(WINAPI*)(LPCSTR)>);
static_assert(std::is_same_v<decltype(&::SetFileAttributesA), BOOL(WINAPI*)(LPCSTR, DWORD)>);
static_assert(std::is_same_v<decltype(&::GetFileAttributesW), DWORD(WINAPI*)(LPCWSTR)>);
static_assert(
    std::is_same_v<decltype(&::GetFullPathNameW), DWORD(WINAPI*)(LPCWSTR, DWORD, LPWSTR, LPWSTR*)>);
static_assert(std::is_same_v<decltype(&::SetNamedSecurityInfoA),
                             DWORD(WINAPI*)(LPSTR, SE_OBJECT_TYPE, SECURITY_INFORMATION, PSID, PSID,
                                            PACL, PACL)>);
static_assert(std::is_same_v<decltype(&::DeleteFileA), BOOL(WINAPI*)(LPCSTR)>);
static_assert(std::is_same_v<decltype(&::GetDriveTypeA), UINT(WINAPI*)(LPCSTR)>);
static_assert(std::is_same_v<decltype(&::GetTempPathA), DWORD(WINAPI*)(DWORD, LPSTR)>);

static_assert(std::is_same_v<decltype(&::GetTickCount), DWORD(WINAPI*)()>);
static_assert(std::is_same_v<decltype(&::GetVersionExA), BOOL(WINAPI*)(LPOSVERSIONINFOA)>);
static_assert(std::is_same_v<decltype(&::GetVersionExW), BOOL(WINAPI*)(LPOSVERSIONINFOW)>);
static_assert(std::is_same_v<decltype(&::GetSystemDirectoryA), UINT(WINAPI*)(LPSTR, UINT)>);
static_assert(
    std::is_same_v<decltype(&::GetModuleFileNameA), DWORD(WINAPI*)(HMODULE, LPSTR, DWORD)>);
static_assert(std::is_same_v<decltype(&::GetModuleHandleW), HMODULE(WINAPI*)(LPCWSTR)>);
static_assert(std::is_same_v<decltype(&::GetProcAddress), FARPROC(WINAPI*)(HMODULE, LPCSTR)>);

static_assert(std::is_same_v<decltype(&::GetStdHandle), HANDLE(WINAPI*)(DWORD)>);
static_assert(std::is_same_v<decltype(&::GetConsoleScreenBufferInfo),
                             BOOL(WINAPI*)(HANDLE, CONSOLE_SCREEN_BUFFER_INFO*)>);
static_assert(std::is_same_v<decltype(&::SetConsoleTextAttribute), BOOL(WINAPI*)(HANDLE, WORD)>);

static_assert(std::is_same_v<decltype(&::MultiByteToWideChar),
                             int(WINAPI*)(UINT, DWORD, LPCSTR, int, LPWSTR, int)>);
static_assert(std::is_same_v<decltype(&::WideCharToMultiByte),
                             int(WINAPI*)(UINT, DWORD, LPCWSTR, int, LPSTR, int, LPCSTR, LPBOOL)>);

static_assert(std::is_same_v<decltype(&::GetSystemDefaultLangID), LANGID(WINAPI*)()>);
static_assert(std::is_same_v<decltype(&::SetThreadUILanguage), LANGID(WINAPI*)(LANGID)>);
static_assert(std::is_same_v<decltype(&::SetThreadLocale), BOOL(WINAPI*)(LCID)>);

static_assert(std::is_same_v<decltype(&::CoInitialize), HRESULT(WINAPI*)(LPVOID)>);
static_assert(std::is_same_v<decltype(&::CoUninitialize), void(WINAPI*)()>);
static_assert(std::is_same_v<decltype(&::CoCreateInstance),
                             HRESULT(WINAPI*)(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID*)>);
static_assert(std::is_same_v<decltype(&ITaskbarList3::SetProgressValue),
                             HRESULT (WINAPI ITaskbarList3::*)(HWND, ULONGLONG, ULONGLONG)>);
static_assert(std::is_same_v<decltype(&ITaskbarList3::SetProgressState),
                             HRESULT (WINAPI ITaskbarList3::*)(HWND, TBPFLAG)>);

static_assert(std::is_same_v<decltype(&::PostMessageA), BOOL(WINAPI*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(std::is_same_v<decltype(&::PostMessageW), BOOL(WINAPI*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(std::is_same_v<decltype(&::MessageBoxA), int(WINAPI*)(HWND, LPCSTR, LPCSTR, UINT)>);
static_assert(std::is_same_v<decltype(&::LoadStringA), int(WINAPI*)(HINSTANCE, UINT, LPSTR, int)>);
static_assert(std::is_same_v<decltype(&::LoadStringW), int(WINAPI*)(HINSTANCE, UINT, LPWSTR, int)>);
static_assert(std::is_same_v<decltype(&::LoadIconW), HICON(WINAPI*)(HINSTANCE, LPCWSTR)>);
static_assert(std::is_same_v<decltype(&::GetMessageW), BOOL(WINAPI*)(LPMSG, HWND, UINT, UINT)>);
static_assert(std::is_same_v<decltype(&::TranslateMessage), BOOL(WINAPI*)(const MSG*)>);
static_assert(std::is_same_v<decltype(&::DispatchMessageW), LRESULT(WINAPI*)(const MSG*)>);
static_assert(std::is_same_v<decltype(&::IsDialogMessageW), BOOL(WINAPI*)(HWND, LPMSG)>);
static_assert(std::is_same_v<decltype(&::PostQuitMessage), void(WINAPI*)(int)>);
static_assert(
    std::is_same_v<decltype(&::SendMessageW), LRESULT(WINAPI*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(
    std::is_same_v<decltype(&::DefWindowProcW), LRESULT(WINAPI*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(
    std::is_same_v<decltype(&::SetTimer), UINT_PTR(WINAPI*)(HWND, UINT_PTR, UINT, TIMERPROC)>);
static_assert(std::is_same_v<decltype(&::KillTimer), BOOL(WINAPI*)(HWND, UINT_PTR)>);
static_assert(std::is_same_v<decltype(&::CreateDialogParamW),
                             HWND(WINAPI*)(HINSTANCE, LPCWSTR, HWND, DLGPROC, LPARAM)>);
static_assert(std::is_same_v<decltype(&::DestroyWindow), BOOL(WINAPI*)(HWND)>);
static_assert(std::is_same_v<decltype(&::GetDlgItem), HWND(WINAPI*)(HWND, int)>);
static_assert(std::is_same_v<decltype(&::GetDlgCtrlID), int(WINAPI*)(HWND)>);
static_assert(std::is_same_v<decltype(&::GetParent), HWND(WINAPI*)(HWND)>);
static_assert(std::is_same_v<decltype(&::GetWindowLongPtrW), LONG_PTR(WINAPI*)(HWND, int)>);
static_assert(
    std::is_same_v<decltype(&::SetWindowLongPtrW), LONG_PTR(WINAPI*)(HWND, int, LONG_PTR)>);
static_assert(std::is_same_v<decltype(&::ShowWindow), BOOL(WINAPI*)(HWND, int)>);
static_assert(std::is_same_v<decltype(&::GetWindowRect), BOOL(WINAPI*)(HWND, LPRECT)>);
static_assert(
    std::is_same_v<decltype(&::SetWindowPos), BOOL(WINAPI*)(HWND, HWND, int, int, int, int, UINT)>);
static_assert(std::is_same_v<decltype(&::SetWindowTextA), BOOL(WINAPI*)(HWND, LPCSTR)>);
static_assert(std::is_same_v<decltype(&::GetWindowTextLengthW), int(WINAPI*)(HWND)>);
static_assert(
    std::is_same_v<decltype(&::SystemParametersInfoW), BOOL(WINAPI*)(UINT, UINT, PVOID, UINT)>);

static_assert(std::is_same_v<decltype(&::SetTextColor), COLORREF(WINAPI*)(HDC, COLORREF)>);
static_assert(std::is_same_v<decltype(&::SetBkColor), COLORREF(WINAPI*)(HDC, COLORREF)>);
static_assert(std::is_same_v<decltype(&::SetBkMode), int(WINAPI*)(HDC, int)>);
static_assert(std::is_same_v<decltype(&::GetStockObject), HGDIOBJ(WINAPI*)(int)>);

static_assert(
    std::is_same_v<decltype(&::InitCommonControlsEx), BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*)>);

static_assert(
    std::is_same_v<decltype(&::SHGetSpecialFolderPathA), BOOL(WINAPI*)(HWND, LPSTR, int, BOOL)>);
static_assert(std::is_same_v<decltype(&::PathFileExistsA), BOOL(WINAPI*)(LPCSTR)>);
static_assert(std::is_same_v<decltype(&::PathRemoveFileSpecA), BOOL(WINAPI*)(LPSTR)>);

// The C runtime's.

static_assert(std::is_same_v<decltype(&::_access), int (*)(const char*, int)>);
static_assert(std::is_same_v<decltype(&::_mkdir), int (*)(const char*)>);
static_assert(std::is_same_v<decltype(&::_fsopen), FILE* (*)(const char*, const char*, int)>);
static_assert(
    std::is_same_v<decltype(&::_wfsopen), FILE* (*)(const wchar_t*, const wchar_t*, int)>);
static_assert(Has<int(wchar_t*, size_t, const wchar_t*, va_list)>(&::_vsnwprintf));
static_assert(std::is_same_v<decltype(&::_time64), __time64_t (*)(__time64_t*)>);
static_assert(std::is_same_v<decltype(&::_localtime64_s), int (*)(struct tm*, const __time64_t*)>);
// Secure headers may overload it for arrays.
static_assert(std::is_same_v<decltype(::strerror_s(std::declval<char*>(), size_t{}, int{})), int>);
static_assert(std::is_same_v<decltype(stdout), FILE*>);

// Streams over files: the part of std::fstream that callers use.
static_assert(std::is_base_of_v<std::iostream, common::FileStream>);
static_assert(std::is_default_constructible_v<common::FileStream>);
static_assert(!std::is_copy_constructible_v<common::FileStream>);
static_assert(!std::is_copy_assignable_v<common::FileStream>);
static_assert(std::is_same_v<void, decltype(std::declval<common::FileStream&>().open(
                                       std::declval<const std::string&>(), std::ios_base::in))>);
static_assert(std::is_same_v<bool, decltype(std::declval<const common::FileStream&>().is_open())>);
static_assert(std::is_same_v<void, decltype(std::declval<common::FileStream&>().close())>);

}  // namespace
