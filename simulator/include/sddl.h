// Security descriptors as text.
#ifndef SIMULATOR_INCLUDE_SDDL_H_
#define SIMULATOR_INCLUDE_SDDL_H_

#include <windows.h>

#define SDDL_REVISION_1 1

using PULONG = ULONG*;

// Both hand out memory that LocalFree gives back. Sizes and lengths count what is handed out, a
// terminator included.
BOOL WINAPI ConvertStringSecurityDescriptorToSecurityDescriptorA(LPCSTR text, DWORD revision,
                                                                 PSECURITY_DESCRIPTOR* descriptor,
                                                                 PULONG size);
BOOL WINAPI ConvertSecurityDescriptorToStringSecurityDescriptorA(PSECURITY_DESCRIPTOR descriptor,
                                                                 DWORD revision,
                                                                 SECURITY_INFORMATION information,
                                                                 LPSTR* text, PULONG length);

#endif  // SIMULATOR_INCLUDE_SDDL_H_
