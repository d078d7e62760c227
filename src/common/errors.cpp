#include "common/errors.h"

#include <string.h>

#include <array>
#include <cerrno>
#include <cstdio>

#include "common/console.h"
#include "common/owner.h"

namespace common {

// Oddity: line ends in messages, see docs/oddities.md.
std::string GetSystemMessage(DWORD error) {
  constexpr DWORD kFlags =
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
  constexpr DWORD kUserDefaultLanguage = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
  UniqueLocal<char> message;
  // With FORMAT_MESSAGE_ALLOCATE_BUFFER the buffer argument is the address of a pointer.
  const DWORD length = ::FormatMessageA(kFlags, nullptr, error, kUserDefaultLanguage,
                                        reinterpret_cast<LPSTR>(message.put()), 0, nullptr);
  return length != 0 && message ? std::string(message.get(), length) : std::string();
}

// Oddity: negative codes, see docs/oddities.md.
std::string GetLastErrorText(DWORD error) {
  std::array<char, 1024> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "Last Error: [%d] %s", static_cast<int>(error),
                GetSystemMessage(error).c_str());
  return buffer.data();
}

std::string GetLastErrorText() {
  const DWORD error = ::GetLastError();
  return GetLastErrorText(error);
}

std::string GetErrnoText() {
  std::array<char, 1024> buffer{};
  ::strerror_s(buffer.data(), buffer.size(), errno);
  return buffer.data();
}

void ReportLastError(const char* function, const std::string& argument, DWORD error) {
  PrintFormatted("common::%s [%s], LastError: [%d] %s\r\n", function, argument.c_str(),
                 static_cast<int>(error), GetSystemMessage(error).c_str());
}

void ReportErrno(const char* function, const std::string& argument) {
  PrintFormatted("common::%s [%s], Error: %s\r\n", function, argument.c_str(),
                 GetErrnoText().c_str());
}

}  // namespace common
