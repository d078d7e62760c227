#include "common/times.h"

#include <time.h>

#include <array>
#include <cstdio>

#include "common/strings.h"

namespace common {
namespace {

tm LocalTime() {
  const __time64_t now = ::_time64(nullptr);
  tm local{};
  ::_localtime64_s(&local, &now);
  return local;
}

}  // namespace

std::string GetDateString() {
  const tm local = LocalTime();
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%04d%02d%02d", local.tm_year + 1900,
                local.tm_mon + 1, local.tm_mday);
  return buffer.data();
}

std::string GetTimeStamp() {
  const tm local = LocalTime();
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "[%04d-%02d-%02d %02d:%02d:%02d]",
                local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                local.tm_sec);
  return buffer.data();
}

int64_t GetSeconds() { return ::_time64(nullptr); }

std::string FormatDuration(int32_t seconds) {
  if (seconds < 0) return {};
  auto remaining = static_cast<uint32_t>(seconds);
  std::string text;
  if (remaining >= 3600) {
    text += ToDecimal(remaining / 3600) + "h";
    remaining %= 3600;
  }
  if (remaining >= 60) {
    text += ToDecimal(remaining / 60) + "m";
    remaining %= 60;
  }
  return text + ToDecimal(remaining) + "s";
}

}  // namespace common
