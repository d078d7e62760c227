// The host's string.h with what the Windows C runtime adds.
#pragma GCC system_header
#include_next <string.h>

#ifndef SIMULATOR_INCLUDE_STRING_H_
#define SIMULATOR_INCLUDE_STRING_H_
#ifdef __cplusplus

// The runtime's text for an error number, cut to the buffer and terminated. 0 on success.
int strerror_s(char* buffer, size_t size, int error);

#endif  // __cplusplus
#endif  // SIMULATOR_INCLUDE_STRING_H_
