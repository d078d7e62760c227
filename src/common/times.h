// Dates and durations as text.
#ifndef COMMON_TIMES_H_
#define COMMON_TIMES_H_

#include <cstdint>
#include <string>

namespace common {

// Returns the local date as eight digits: 20240305.
std::string GetDateString();

// Returns the time stamp of a log line in local time: "[2024-03-05 08:07:06]".
std::string GetTimeStamp();

// Returns the seconds since 1970-01-01 UTC.
int64_t GetSeconds();

// Returns "1h2m5s" for 3725. Hours and minutes that are 0 are omitted ("1h0s"), seconds never are.
// Empty for a negative duration.
std::string FormatDuration(int32_t seconds);

}  // namespace common

#endif  // COMMON_TIMES_H_
