// Dates and durations as text.
#ifndef COMMON_TIMES_H_
#define COMMON_TIMES_H_

#include <cstdint>
#include <string>

namespace common {

// The local date as eight digits: 20240305.
std::string GetDateString();

// The local time as a log line begins: "[2024-03-05 08:07:06]".
std::string GetTimeStamp();

// Whole seconds since 1970-01-01.
int64_t GetSeconds();

// 3725 gives "1h2m5s". Minutes are left out when they are 0, even between hours and seconds
// ("1h0s"); the seconds always stand. Empty for a negative duration.
std::string FormatDuration(int32_t seconds);

}  // namespace common

#endif  // COMMON_TIMES_H_
