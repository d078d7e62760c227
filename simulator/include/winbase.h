// Processes, pipes, threads, critical sections, files, errors and system information.
#ifndef SIMULATOR_INCLUDE_WINBASE_H_
#define SIMULATOR_INCLUDE_WINBASE_H_

#include <windef.h>
#include <winnt.h>

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

struct SECURITY_ATTRIBUTES {
  DWORD nLength;
  LPVOID lpSecurityDescriptor;
  BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED*;

struct STARTUPINFOA {
  DWORD cb;
  LPSTR lpReserved;
  LPSTR lpDesktop;
  LPSTR lpTitle;
  DWORD dwX;
  DWORD dwY;
  DWORD dwXSize;
  DWORD dwYSize;
  DWORD dwXCountChars;
  DWORD dwYCountChars;
  DWORD dwFillAttribute;
  DWORD dwFlags;
  WORD wShowWindow;
  WORD cbReserved2;
  LPBYTE lpReserved2;
  HANDLE hStdInput;
  HANDLE hStdOutput;
  HANDLE hStdError;
};
using LPSTARTUPINFOA = STARTUPINFOA*;

struct PROCESS_INFORMATION {
  HANDLE hProcess;
  HANDLE hThread;
  DWORD dwProcessId;
  DWORD dwThreadId;
};
using LPPROCESS_INFORMATION = PROCESS_INFORMATION*;

#define STARTF_USESHOWWINDOW 0x00000001
#define STARTF_USESTDHANDLES 0x00000100
#define CREATE_NO_WINDOW 0x08000000
#define STILL_ACTIVE 259

#define STD_INPUT_HANDLE (static_cast<DWORD>(-10))
#define STD_OUTPUT_HANDLE (static_cast<DWORD>(-11))
#define STD_ERROR_HANDLE (static_cast<DWORD>(-12))

using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID parameter);

// Opaque. The program only passes it to the calls below.
struct CRITICAL_SECTION {
  PVOID DebugInfo;
  LONG LockCount;
  LONG RecursionCount;
  HANDLE OwningThread;
  HANDLE LockSemaphore;
  ULONG_PTR SpinCount;
};
using LPCRITICAL_SECTION = CRITICAL_SECTION*;

struct SYSTEM_INFO {
  WORD wProcessorArchitecture;
  WORD wReserved;
  DWORD dwPageSize;
  LPVOID lpMinimumApplicationAddress;
  LPVOID lpMaximumApplicationAddress;
  DWORD_PTR dwActiveProcessorMask;
  DWORD dwNumberOfProcessors;
  DWORD dwProcessorType;
  DWORD dwAllocationGranularity;
  WORD wProcessorLevel;
  WORD wProcessorRevision;
};
using LPSYSTEM_INFO = SYSTEM_INFO*;

#define SEM_FAILCRITICALERRORS 0x0001
#define SEM_NOOPENFILEERRORBOX 0x8000

#define DRIVE_UNKNOWN 0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_REMOVABLE 2
#define DRIVE_FIXED 3
#define DRIVE_REMOTE 4
#define DRIVE_CDROM 5
#define DRIVE_RAMDISK 6

#define INVALID_FILE_ATTRIBUTES (static_cast<DWORD>(-1))
#define OPEN_EXISTING 3
#define FILE_FLAG_OPEN_REPARSE_POINT 0x00200000
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000

#define LMEM_FIXED 0x0000
#define LMEM_ZEROINIT 0x0040
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000

// The entry point of a program with windows. The program defines it.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR command_line, int show_command);

// Processes, threads and pipes.
BOOL WINAPI CreatePipe(PHANDLE read_pipe, PHANDLE write_pipe, LPSECURITY_ATTRIBUTES attributes,
                       DWORD size);
BOOL WINAPI CreateProcessA(LPCSTR application_name, LPSTR command_line,
                           LPSECURITY_ATTRIBUTES process_attributes,
                           LPSECURITY_ATTRIBUTES thread_attributes, BOOL inherit_handles,
                           DWORD creation_flags, LPVOID environment, LPCSTR current_directory,
                           LPSTARTUPINFOA startup_info, LPPROCESS_INFORMATION process_information);
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD bytes_to_read, LPDWORD bytes_read,
                     LPOVERLAPPED overlapped);
BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes_to_write, LPDWORD bytes_written,
                      LPOVERLAPPED overlapped);
BOOL WINAPI GetExitCodeProcess(HANDLE process, LPDWORD exit_code);
BOOL WINAPI TerminateProcess(HANDLE process, UINT exit_code);
[[noreturn]] void WINAPI ExitProcess(UINT exit_code);
BOOL WINAPI CloseHandle(HANDLE object);
HANDLE WINAPI GetCurrentProcess();
HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stack_size,
                           LPTHREAD_START_ROUTINE start_address, LPVOID parameter,
                           DWORD creation_flags, LPDWORD thread_id);
void WINAPI Sleep(DWORD milliseconds);

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION critical_section);
void WINAPI EnterCriticalSection(LPCRITICAL_SECTION critical_section);
BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION critical_section);
void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION critical_section);
void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION critical_section);

// Errors and local memory.
DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);
DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID source, DWORD message_id, DWORD language_id,
                            LPSTR buffer, DWORD size, void* arguments);
HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size);
HLOCAL WINAPI LocalFree(HLOCAL memory);
void WINAPI OutputDebugStringA(LPCSTR text);
UINT WINAPI SetErrorMode(UINT mode);

// Tokens.
BOOL WINAPI OpenProcessToken(HANDLE process, DWORD desired_access, PHANDLE token);
BOOL WINAPI LookupPrivilegeValueA(LPCSTR system_name, LPCSTR name, PLUID luid);
BOOL WINAPI LookupPrivilegeValueW(LPCWSTR system_name, LPCWSTR name, PLUID luid);
BOOL WINAPI AdjustTokenPrivileges(HANDLE token, BOOL disable_all, PTOKEN_PRIVILEGES new_state,
                                  DWORD buffer_length, PTOKEN_PRIVILEGES previous_state,
                                  PDWORD return_length);

// Security identifiers and descriptors.
BOOL WINAPI LookupAccountNameA(LPCSTR system_name, LPCSTR account_name, PSID sid, LPDWORD sid_size,
                               LPSTR domain_name, LPDWORD domain_name_size, PSID_NAME_USE use);
DWORD WINAPI GetLengthSid(PSID sid);
BOOL WINAPI CopySid(DWORD size, PSID destination, PSID source);
BOOL WINAPI MakeAbsoluteSD(PSECURITY_DESCRIPTOR self_relative, PSECURITY_DESCRIPTOR absolute,
                           LPDWORD absolute_size, PACL dacl, LPDWORD dacl_size, PACL sacl,
                           LPDWORD sacl_size, PSID owner, LPDWORD owner_size, PSID primary_group,
                           LPDWORD primary_group_size);

// Files and drives.
HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD desired_access, DWORD share_mode,
                          LPSECURITY_ATTRIBUTES attributes, DWORD creation_disposition,
                          DWORD flags_and_attributes, HANDLE template_file);
BOOL WINAPI DeviceIoControl(HANDLE device, DWORD code, LPVOID input, DWORD input_size,
                            LPVOID output, DWORD output_size, LPDWORD bytes_returned,
                            LPOVERLAPPED overlapped);
BOOL WINAPI CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES attributes);
BOOL WINAPI RemoveDirectoryA(LPCSTR path);
BOOL WINAPI SetFileAttributesA(LPCSTR path, DWORD attributes);
DWORD WINAPI GetFileAttributesW(LPCWSTR path);
DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* file_part);
BOOL WINAPI DeleteFileA(LPCSTR path);
UINT WINAPI GetDriveTypeA(LPCSTR root_path);
DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer);

// System information.
DWORD WINAPI GetTickCount();
BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA version);
BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version);
UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size);
DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);
HMODULE WINAPI GetModuleHandleW(LPCWSTR module_name);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);

#endif  // SIMULATOR_INCLUDE_WINBASE_H_
