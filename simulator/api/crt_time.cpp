// Time of the C runtime, from the steered clock.
#include <time.h>

#include <cerrno>

#include "simulator/model/common/clock.h"
#include "simulator/model/server.h"

__time64_t _time64(__time64_t* time) {
  const int64_t milliseconds = simulator::Server::Current().clock().Milliseconds();
  const __time64_t seconds = milliseconds / 1000 - (milliseconds % 1000 < 0 ? 1 : 0);
  if (time != nullptr) *time = seconds;
  return seconds;
}

int _localtime64_s(struct tm* local, const __time64_t* time) {
  constexpr __time64_t kLast = 32535215999;  // 23:59:59 on 31 December 3000
  if (local == nullptr) {
    errno = EINVAL;
    return EINVAL;
  }
  const time_t seconds = time == nullptr ? -1 : *time;
  if (seconds < 0 || seconds > kLast || gmtime_r(&seconds, local) == nullptr) {
    *local = {};
    local->tm_sec = local->tm_min = local->tm_hour = local->tm_mday = local->tm_mon = -1;
    local->tm_year = local->tm_wday = local->tm_yday = local->tm_isdst = -1;
    errno = EINVAL;
    return EINVAL;
  }
  return 0;
}
