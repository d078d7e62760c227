// The host's string.h with the additions of the Windows C runtime.
#pragma GCC system_header
#include_next <string.h>

#ifndef SIMULATOR_INCLUDE_STRING_H_
#define SIMULATOR_INCLUDE_STRING_H_
#ifdef __cplusplus

// Copies the runtime's text for an error number, truncated to the buffer and terminated. Returns 0
// on success.
int strerror_s(char* buffer, size_t size, int error);

#endif  // __cplusplus
#endif  // SIMULATOR_INCLUDE_STRING_H_
