// Security descriptors as text.
#ifndef SIMULATOR_INCLUDE_SDDL_H_
#define SIMULATOR_INCLUDE_SDDL_H_

#include <windows.h>

#define SDDL_REVISION_1 1

using PULONG = ULONG*;

// Both functions allocate memory that the caller frees with LocalFree. The returned size or length
// is that of the allocated data and includes the terminating null character of a text.
BOOL WINAPI ConvertStringSecurityDescriptorToSecurityDescriptorA(LPCSTR text, DWORD revision,
                                                                 PSECURITY_DESCRIPTOR* descriptor,
                                                                 PULONG size);
BOOL WINAPI ConvertSecurityDescriptorToStringSecurityDescriptorA(PSECURITY_DESCRIPTOR descriptor,
                                                                 DWORD revision,
                                                                 SECURITY_INFORMATION information,
                                                                 LPSTR* text, PULONG length);

#endif  // SIMULATOR_INCLUDE_SDDL_H_
