// The host's stdio.h with the additions of the Windows C runtime. Standard output is the simulated
// console.
#pragma GCC system_header
#include_next <stdio.h>

#ifndef SIMULATOR_INCLUDE_STDIO_H_
#define SIMULATOR_INCLUDE_STDIO_H_
#ifdef __cplusplus

#include <stdarg.h>
#include <stddef.h>

// Streams over the simulated disk, in text mode unless `mode` contains a "b".
FILE* _fsopen(const char* path, const char* mode, int share);
FILE* _wfsopen(const wchar_t* path, const wchar_t* mode, int share);

// Writes at most `count` units. The text is not terminated if it fills the buffer. Returns a
// negative number if the text was truncated. "%s" takes wide text, as in every wide format string
// of the Windows C runtime.
int _vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments);

// Index 1 is standard output.
FILE* __acrt_iob_func(unsigned index);
#undef stdout
#define stdout (__acrt_iob_func(1))

#endif  // __cplusplus
#endif  // SIMULATOR_INCLUDE_STDIO_H_
