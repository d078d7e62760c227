#include "common/times.h"

#include <time.h>

#include <algorithm>

#include "common/strings.h"

namespace common {
namespace {

tm LocalTime() {
  const __time64_t now = ::_time64(nullptr);
  tm local{};
  ::_localtime64_s(&local, &now);
  return local;
}

// Appends a number with leading zeros. Every log line needs six of them, and printf would take as
// long for these as the rest of the line takes. If the runtime cannot convert the time, its fields
// are -1, which are appended as zeros.
void AppendPadded(std::string& text, int number, size_t width) {
  const std::string digits = ToDecimal(static_cast<uint32_t>(std::max(number, 0)));
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

}  // namespace

std::string GetDateString() {
  const tm local = LocalTime();
  std::string text;
  AppendPadded(text, local.tm_year + 1900, 4);
  AppendPadded(text, local.tm_mon + 1, 2);
  AppendPadded(text, local.tm_mday, 2);
  return text;
}

std::string GetTimeStamp() {
  const tm local = LocalTime();
  std::string text = "[";
  AppendPadded(text, local.tm_year + 1900, 4);
  text += '-';
  AppendPadded(text, local.tm_mon + 1, 2);
  text += '-';
  AppendPadded(text, local.tm_mday, 2);
  text += ' ';
  AppendPadded(text, local.tm_hour, 2);
  text += ':';
  AppendPadded(text, local.tm_min, 2);
  text += ':';
  AppendPadded(text, local.tm_sec, 2);
  text += ']';
  return text;
}

int64_t GetSeconds() { return ::_time64(nullptr); }

std::string FormatDuration(int32_t seconds) {
  // Oddity: duration without minutes, see docs/oddities.md.
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
