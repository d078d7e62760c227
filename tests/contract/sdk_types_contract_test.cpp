// Types and structures: sizes, signs and layout are the same in the simulator's headers and in the
// SDK's.
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <sddl.h>
#include <shobjidl.h>
#include <time.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace {

// Basic types.

template <typename Type, typename SameSizeAndSign>
constexpr bool kIsLike = std::is_integral_v<Type> && sizeof(Type) == sizeof(SameSizeAndSign) &&
                         std::is_signed_v<Type> == std::is_signed_v<SameSizeAndSign>;

static_assert(kIsLike<BOOL, int32_t>);
static_assert(kIsLike<BYTE, uint8_t>);
static_assert(kIsLike<WORD, uint16_t>);
static_assert(kIsLike<DWORD, uint32_t>);
static_assert(kIsLike<UINT, uint32_t>);
static_assert(kIsLike<LONG, int32_t>);
static_assert(kIsLike<ULONG, uint32_t>);
static_assert(kIsLike<ULONGLONG, uint64_t>);
static_assert(kIsLike<SIZE_T, uint64_t>);
static_assert(kIsLike<SHORT, int16_t>);
static_assert(kIsLike<USHORT, uint16_t>);
static_assert(kIsLike<LANGID, uint16_t>);
static_assert(kIsLike<HRESULT, int32_t>);
static_assert(kIsLike<INT_PTR, int64_t>);
static_assert(kIsLike<UINT_PTR, uint64_t>);
static_assert(kIsLike<LONG_PTR, int64_t>);
static_assert(kIsLike<ULONG_PTR, uint64_t>);
static_assert(kIsLike<DWORD_PTR, uint64_t>);
static_assert(kIsLike<WPARAM, uint64_t>);
static_assert(kIsLike<LPARAM, int64_t>);
static_assert(kIsLike<LRESULT, int64_t>);
static_assert(kIsLike<__time64_t, int64_t>);
static_assert(std::is_same_v<CHAR, char>);
static_assert(std::is_same_v<WCHAR, wchar_t>);
static_assert(std::is_same_v<HRESULT, LONG>);
static_assert(std::is_same_v<LANGID, WORD>);

static_assert(std::is_same_v<PVOID, void*>);
static_assert(std::is_same_v<LPVOID, void*>);
static_assert(std::is_same_v<LPCVOID, const void*>);
static_assert(std::is_same_v<LPBYTE, BYTE*>);
static_assert(std::is_same_v<LPDWORD, DWORD*>);
static_assert(std::is_same_v<PDWORD, DWORD*>);
static_assert(std::is_same_v<LPSTR, char*>);
static_assert(std::is_same_v<LPCSTR, const char*>);
static_assert(std::is_same_v<LPWSTR, wchar_t*>);
static_assert(std::is_same_v<LPCWSTR, const wchar_t*>);
static_assert(std::is_same_v<LPBOOL, BOOL*>);
static_assert(std::is_same_v<HANDLE, void*>);
static_assert(std::is_same_v<PHANDLE, HANDLE*>);
static_assert(std::is_same_v<HLOCAL, HANDLE>);
static_assert(std::is_same_v<FARPROC, INT_PTR(WINAPI*)()>);
static_assert(std::is_same_v<LPTHREAD_START_ROUTINE, DWORD(WINAPI*)(LPVOID)>);

// A window is neither a module nor a handle of the kernel.
static_assert(std::is_pointer_v<HWND> && std::is_pointer_v<HINSTANCE>);
static_assert(!std::is_same_v<HWND, HINSTANCE> && !std::is_same_v<HWND, HANDLE>);
static_assert(!std::is_same_v<HINSTANCE, HANDLE> && std::is_same_v<HMODULE, HINSTANCE>);
static_assert(!std::is_convertible_v<HANDLE, HWND> && std::is_convertible_v<HWND, HANDLE>);

// Structures.

static_assert(sizeof(SECURITY_ATTRIBUTES) == 24);
static_assert(offsetof(SECURITY_ATTRIBUTES, nLength) == 0);
static_assert(offsetof(SECURITY_ATTRIBUTES, lpSecurityDescriptor) == 8);
static_assert(offsetof(SECURITY_ATTRIBUTES, bInheritHandle) == 16);
static_assert(std::is_same_v<LPSECURITY_ATTRIBUTES, SECURITY_ATTRIBUTES*>);
static_assert(std::is_same_v<LPOVERLAPPED, OVERLAPPED*>);

static_assert(sizeof(STARTUPINFOA) == 104);
static_assert(offsetof(STARTUPINFOA, cb) == 0);
static_assert(offsetof(STARTUPINFOA, lpReserved) == 8);
static_assert(offsetof(STARTUPINFOA, lpDesktop) == 16);
static_assert(offsetof(STARTUPINFOA, lpTitle) == 24);
static_assert(offsetof(STARTUPINFOA, dwX) == 32);
static_assert(offsetof(STARTUPINFOA, dwY) == 36);
static_assert(offsetof(STARTUPINFOA, dwXSize) == 40);
static_assert(offsetof(STARTUPINFOA, dwYSize) == 44);
static_assert(offsetof(STARTUPINFOA, dwXCountChars) == 48);
static_assert(offsetof(STARTUPINFOA, dwYCountChars) == 52);
static_assert(offsetof(STARTUPINFOA, dwFillAttribute) == 56);
static_assert(offsetof(STARTUPINFOA, dwFlags) == 60);
static_assert(offsetof(STARTUPINFOA, wShowWindow) == 64);
static_assert(offsetof(STARTUPINFOA, cbReserved2) == 66);
static_assert(offsetof(STARTUPINFOA, lpReserved2) == 72);
static_assert(offsetof(STARTUPINFOA, hStdInput) == 80);
static_assert(offsetof(STARTUPINFOA, hStdOutput) == 88);
static_assert(offsetof(STARTUPINFOA, hStdError) == 96);
static_assert(std::is_same_v<LPSTARTUPINFOA, STARTUPINFOA*>);

static_assert(sizeof(PROCESS_INFORMATION) == 24);
static_assert(offsetof(PROCESS_INFORMATION, hProcess) == 0);
static_assert(offsetof(PROCESS_INFORMATION, hThread) == 8);
static_assert(offsetof(PROCESS_INFORMATION, dwProcessId) == 16);
static_assert(offsetof(PROCESS_INFORMATION, dwThreadId) == 20);
static_assert(std::is_same_v<LPPROCESS_INFORMATION, PROCESS_INFORMATION*>);

static_assert(sizeof(CRITICAL_SECTION) == 40);
static_assert(offsetof(CRITICAL_SECTION, DebugInfo) == 0);
static_assert(offsetof(CRITICAL_SECTION, LockCount) == 8);
static_assert(offsetof(CRITICAL_SECTION, RecursionCount) == 12);
static_assert(offsetof(CRITICAL_SECTION, OwningThread) == 16);
static_assert(offsetof(CRITICAL_SECTION, LockSemaphore) == 24);
static_assert(offsetof(CRITICAL_SECTION, SpinCount) == 32);
static_assert(std::is_same_v<LPCRITICAL_SECTION, CRITICAL_SECTION*>);

static_assert(sizeof(SYSTEM_INFO) == 48);
static_assert(offsetof(SYSTEM_INFO, wProcessorArchitecture) == 0);
static_assert(offsetof(SYSTEM_INFO, wReserved) == 2);
static_assert(offsetof(SYSTEM_INFO, dwPageSize) == 4);
static_assert(offsetof(SYSTEM_INFO, lpMinimumApplicationAddress) == 8);
static_assert(offsetof(SYSTEM_INFO, lpMaximumApplicationAddress) == 16);
static_assert(offsetof(SYSTEM_INFO, dwActiveProcessorMask) == 24);
static_assert(offsetof(SYSTEM_INFO, dwNumberOfProcessors) == 32);
static_assert(offsetof(SYSTEM_INFO, dwProcessorType) == 36);
static_assert(offsetof(SYSTEM_INFO, dwAllocationGranularity) == 40);
static_assert(offsetof(SYSTEM_INFO, wProcessorLevel) == 44);
static_assert(offsetof(SYSTEM_INFO, wProcessorRevision) == 46);
static_assert(std::is_same_v<LPSYSTEM_INFO, SYSTEM_INFO*>);

static_assert(sizeof(LUID) == 8);
static_assert(offsetof(LUID, LowPart) == 0);
static_assert(offsetof(LUID, HighPart) == 4);
static_assert(std::is_same_v<decltype(LUID::LowPart), DWORD>);
static_assert(std::is_same_v<decltype(LUID::HighPart), LONG>);
static_assert(std::is_same_v<PLUID, LUID*>);
static_assert(sizeof(LUID_AND_ATTRIBUTES) == 12);
static_assert(offsetof(LUID_AND_ATTRIBUTES, Luid) == 0);
static_assert(offsetof(LUID_AND_ATTRIBUTES, Attributes) == 8);
static_assert(sizeof(TOKEN_PRIVILEGES) == 16);
static_assert(offsetof(TOKEN_PRIVILEGES, PrivilegeCount) == 0);
static_assert(offsetof(TOKEN_PRIVILEGES, Privileges) == 4);
static_assert(std::is_same_v<PTOKEN_PRIVILEGES, TOKEN_PRIVILEGES*>);

static_assert(std::is_same_v<PSID, PVOID>);
static_assert(std::is_same_v<PSECURITY_DESCRIPTOR, PVOID>);
static_assert(std::is_same_v<ACCESS_MASK, DWORD>);
static_assert(std::is_same_v<SECURITY_INFORMATION, DWORD>);
static_assert(std::is_same_v<SECURITY_DESCRIPTOR_CONTROL, WORD>);
static_assert(std::is_same_v<PULONG, ULONG*>);
static_assert(std::is_same_v<PACL, ACL*>);
static_assert(sizeof(SID) == 12);
static_assert(offsetof(SID, Revision) == 0);
static_assert(offsetof(SID, SubAuthorityCount) == 1);
static_assert(offsetof(SID, IdentifierAuthority) == 2);
static_assert(offsetof(SID, SubAuthority) == 8);
static_assert(sizeof(SID_IDENTIFIER_AUTHORITY) == 6);
static_assert(offsetof(SID_IDENTIFIER_AUTHORITY, Value) == 0);
static_assert(sizeof(ACL) == 8);
static_assert(offsetof(ACL, AclRevision) == 0);
static_assert(offsetof(ACL, Sbz1) == 1);
static_assert(offsetof(ACL, AclSize) == 2);
static_assert(offsetof(ACL, AceCount) == 4);
static_assert(offsetof(ACL, Sbz2) == 6);
static_assert(sizeof(ACE_HEADER) == 4);
static_assert(offsetof(ACE_HEADER, AceType) == 0);
static_assert(offsetof(ACE_HEADER, AceFlags) == 1);
static_assert(offsetof(ACE_HEADER, AceSize) == 2);
static_assert(sizeof(SECURITY_DESCRIPTOR_RELATIVE) == 20);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Revision) == 0);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Sbz1) == 1);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Control) == 2);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Owner) == 4);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Group) == 8);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Sacl) == 12);
static_assert(offsetof(SECURITY_DESCRIPTOR_RELATIVE, Dacl) == 16);
static_assert(sizeof(SECURITY_DESCRIPTOR) == 40);
static_assert(offsetof(SECURITY_DESCRIPTOR, Revision) == 0);
static_assert(offsetof(SECURITY_DESCRIPTOR, Sbz1) == 1);
static_assert(offsetof(SECURITY_DESCRIPTOR, Control) == 2);
static_assert(offsetof(SECURITY_DESCRIPTOR, Owner) == 8);
static_assert(offsetof(SECURITY_DESCRIPTOR, Group) == 16);
static_assert(offsetof(SECURITY_DESCRIPTOR, Sacl) == 24);
static_assert(offsetof(SECURITY_DESCRIPTOR, Dacl) == 32);

static_assert(sizeof(OSVERSIONINFOA) == 148);
static_assert(offsetof(OSVERSIONINFOA, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOA, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOA, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOA, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOA, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOA, szCSDVersion) == 20);
static_assert(std::is_same_v<LPOSVERSIONINFOA, OSVERSIONINFOA*>);

static_assert(sizeof(OSVERSIONINFOEXA) == 156);
static_assert(offsetof(OSVERSIONINFOEXA, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOEXA, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOEXA, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOEXA, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOEXA, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOEXA, szCSDVersion) == 20);
static_assert(offsetof(OSVERSIONINFOEXA, wServicePackMajor) == 148);
static_assert(offsetof(OSVERSIONINFOEXA, wServicePackMinor) == 150);
static_assert(offsetof(OSVERSIONINFOEXA, wSuiteMask) == 152);
static_assert(offsetof(OSVERSIONINFOEXA, wProductType) == 154);
static_assert(offsetof(OSVERSIONINFOEXA, wReserved) == 155);

// A WCHAR has two bytes on Windows: 276 and 284.
static_assert(sizeof(OSVERSIONINFOW) == 20 + 128 * sizeof(WCHAR));
static_assert(offsetof(OSVERSIONINFOW, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOW, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOW, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOW, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOW, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOW, szCSDVersion) == 20);
static_assert(std::is_same_v<LPOSVERSIONINFOW, OSVERSIONINFOW*>);

static_assert(sizeof(OSVERSIONINFOEXW) == sizeof(OSVERSIONINFOW) + 8);
static_assert(offsetof(OSVERSIONINFOEXW, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOEXW, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOEXW, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOEXW, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOEXW, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOEXW, szCSDVersion) == 20);
static_assert(offsetof(OSVERSIONINFOEXW, wServicePackMajor) == sizeof(OSVERSIONINFOW));
static_assert(offsetof(OSVERSIONINFOEXW, wServicePackMinor) == sizeof(OSVERSIONINFOW) + 2);
static_assert(offsetof(OSVERSIONINFOEXW, wSuiteMask) == sizeof(OSVERSIONINFOW) + 4);
static_assert(offsetof(OSVERSIONINFOEXW, wProductType) == sizeof(OSVERSIONINFOW) + 6);
static_assert(offsetof(OSVERSIONINFOEXW, wReserved) == sizeof(OSVERSIONINFOW) + 7);

static_assert(kIsLike<LCID, uint32_t>);

static_assert(sizeof(GUID) == 16);
static_assert(offsetof(GUID, Data1) == 0);
static_assert(offsetof(GUID, Data2) == 4);
static_assert(offsetof(GUID, Data3) == 6);
static_assert(offsetof(GUID, Data4) == 8);
static_assert(std::is_same_v<IID, GUID> && std::is_same_v<CLSID, GUID>);
static_assert(std::is_same_v<REFIID, const IID&> && std::is_same_v<REFCLSID, const CLSID&>);
static_assert(std::is_base_of_v<IUnknown, ITaskbarList3>);
static_assert(std::is_same_v<LPUNKNOWN, IUnknown*>);
static_assert(sizeof(TBPFLAG) == 4);

static_assert(sizeof(COORD) == 4);
static_assert(offsetof(COORD, X) == 0);
static_assert(offsetof(COORD, Y) == 2);
static_assert(sizeof(SMALL_RECT) == 8);
static_assert(offsetof(SMALL_RECT, Left) == 0);
static_assert(offsetof(SMALL_RECT, Top) == 2);
static_assert(offsetof(SMALL_RECT, Right) == 4);
static_assert(offsetof(SMALL_RECT, Bottom) == 6);
static_assert(sizeof(CONSOLE_SCREEN_BUFFER_INFO) == 22);
static_assert(offsetof(CONSOLE_SCREEN_BUFFER_INFO, dwSize) == 0);
static_assert(offsetof(CONSOLE_SCREEN_BUFFER_INFO, dwCursorPosition) == 4);
static_assert(offsetof(CONSOLE_SCREEN_BUFFER_INFO, wAttributes) == 8);
static_assert(offsetof(CONSOLE_SCREEN_BUFFER_INFO, srWindow) == 10);
static_assert(offsetof(CONSOLE_SCREEN_BUFFER_INFO, dwMaximumWindowSize) == 18);

// winuser.h, wingdi.h and commctrl.h

static_assert(kIsLike<COLORREF, uint32_t>);
static_assert(std::is_same_v<HGDIOBJ, void*>);
static_assert(std::is_pointer_v<HDC> && std::is_pointer_v<HBRUSH> && std::is_pointer_v<HICON>);
static_assert(!std::is_same_v<HDC, HBRUSH> && !std::is_same_v<HICON, HBRUSH>);
static_assert(std::is_same_v<DLGPROC, INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(std::is_same_v<TIMERPROC, void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD)>);

static_assert(sizeof(POINT) == 8 && offsetof(POINT, y) == 4);
static_assert(sizeof(RECT) == 16);
static_assert(offsetof(RECT, left) == 0 && offsetof(RECT, top) == 4);
static_assert(offsetof(RECT, right) == 8 && offsetof(RECT, bottom) == 12);
static_assert(std::is_same_v<LPRECT, RECT*>);

static_assert(sizeof(MSG) == 48);
static_assert(offsetof(MSG, hwnd) == 0);
static_assert(offsetof(MSG, message) == 8);
static_assert(offsetof(MSG, wParam) == 16);
static_assert(offsetof(MSG, lParam) == 24);
static_assert(offsetof(MSG, time) == 32);
static_assert(offsetof(MSG, pt) == 36);
static_assert(std::is_same_v<LPMSG, MSG*>);

static_assert(sizeof(INITCOMMONCONTROLSEX) == 8);
static_assert(offsetof(INITCOMMONCONTROLSEX, dwICC) == 4);

}  // namespace
