#include "common/locations.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>

#include "common/errors.h"
#include "common/strings.h"

namespace common {

std::string GetCurrentDir() {
  constexpr DWORD kSize = 256;
  // PathRemoveFileSpecA requires MAX_PATH characters, and Windows versions before Vista do not
  // terminate a truncated path.
  // Oddity: long program path, see docs/oddities.md.
  std::array<char, MAX_PATH + 1> path{};
  ::GetModuleFileNameA(nullptr, path.data(), kSize);
  if (!::PathRemoveFileSpecA(path.data())) {
    const DWORD error = ::GetLastError();
    ReportLastError("GetCurrentDir", "", error);
    return {};
  }
  return path.data();
}

std::string GetTempDir() {
  std::array<char, MAX_PATH> path{};
  const DWORD length = ::GetTempPathA(static_cast<DWORD>(path.size()), path.data());
  if (length == 0) {
    const DWORD error = ::GetLastError();
    ReportLastError("GetTempDir", "", error);
    return {};
  }
  // A length greater than the buffer is the required size; the buffer is then empty.
  // Oddity: long temporary folder, see docs/oddities.md.
  return length < path.size() ? path.data() : std::string();
}

int GetSystemDriveLetter() {
  std::array<char, 32> path{};
  const UINT length = ::GetSystemDirectoryA(path.data(), static_cast<UINT>(path.size()));
  if (length >= path.size()) return 0;
  return static_cast<unsigned char>(ToLowerAscii(path.data())[0]);
}

}  // namespace common
