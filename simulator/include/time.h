// The host's time.h with the additions of the Windows C runtime, which read the simulated clock.
#pragma GCC system_header
#include_next <time.h>

#ifndef SIMULATOR_INCLUDE_TIME_H_
#define SIMULATOR_INCLUDE_TIME_H_
#ifdef __cplusplus

#include <stdint.h>

using __time64_t = int64_t;

__time64_t _time64(__time64_t* time);
int _localtime64_s(struct tm* local, const __time64_t* time);

#endif  // __cplusplus
#endif  // SIMULATOR_INCLUDE_TIME_H_
