// Tokens, privileges, versions, processor architectures and languages.
#ifndef SIMULATOR_INCLUDE_WINNT_H_
#define SIMULATOR_INCLUDE_WINNT_H_

#include <windef.h>

#define TOKEN_QUERY 0x0008
#define TOKEN_ADJUST_PRIVILEGES 0x0020

#define SE_PRIVILEGE_ENABLED 0x00000002

struct LUID {
  DWORD LowPart;
  LONG HighPart;
};
using PLUID = LUID*;

struct LUID_AND_ATTRIBUTES {
  LUID Luid;
  DWORD Attributes;
};

#define ANYSIZE_ARRAY 1

struct TOKEN_PRIVILEGES {
  DWORD PrivilegeCount;
  LUID_AND_ATTRIBUTES Privileges[ANYSIZE_ARRAY];
};
using PTOKEN_PRIVILEGES = TOKEN_PRIVILEGES*;

#define SE_BACKUP_NAME "SeBackupPrivilege"
#define SE_RESTORE_NAME "SeRestorePrivilege"

struct OSVERSIONINFOA {
  DWORD dwOSVersionInfoSize;
  DWORD dwMajorVersion;
  DWORD dwMinorVersion;
  DWORD dwBuildNumber;
  DWORD dwPlatformId;
  CHAR szCSDVersion[128];
};
using LPOSVERSIONINFOA = OSVERSIONINFOA*;

struct OSVERSIONINFOEXA {
  DWORD dwOSVersionInfoSize;
  DWORD dwMajorVersion;
  DWORD dwMinorVersion;
  DWORD dwBuildNumber;
  DWORD dwPlatformId;
  CHAR szCSDVersion[128];
  WORD wServicePackMajor;
  WORD wServicePackMinor;
  WORD wSuiteMask;
  BYTE wProductType;
  BYTE wReserved;
};

#define VER_PLATFORM_WIN32_NT 2
#define VER_NT_SERVER 3

#define PROCESSOR_ARCHITECTURE_INTEL 0
#define PROCESSOR_ARCHITECTURE_IA64 6
#define PROCESSOR_ARCHITECTURE_AMD64 9

#define LANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01

#endif  // SIMULATOR_INCLUDE_WINNT_H_
