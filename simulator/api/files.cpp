// Files and drives.
#include <windows.h>

#include <algorithm>
#include <string>

#include "simulator/api/call.h"

using simulator::Call;

BOOL WINAPI DeleteFileA(LPCSTR path) {
  Call call("DeleteFileA", path);
  if (call.fails()) return FALSE;
  if (path == nullptr) return call.Done(ERROR_PATH_NOT_FOUND);
  return call.Done(call.server().files().Delete(path));
}

UINT WINAPI GetDriveTypeA(LPCSTR root_path) {
  Call call("GetDriveTypeA", root_path);
  if (call.fails()) return DRIVE_UNKNOWN;
  if (root_path == nullptr) simulator::Unsupported("the drive type of the current directory");
  return call.Succeed(call.server().files().DriveType(root_path));
}

DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer) {
  Call call("GetTempPathA", size);
  if (call.fails()) return 0;
  const simulator::System& system = call.server().system();
  std::string path = system.temp_directory;
  if (path.empty()) {
    // Who has no folder of his own shares that of the system.
    path = system.system_directory.substr(0, system.system_directory.rfind('\\'));
  }
  if (path.empty() || path.back() != '\\') path += '\\';
  if (size <= path.size()) return call.Succeed(static_cast<DWORD>(path.size() + 1));
  if (buffer == nullptr) return call.Fail(0u, ERROR_INVALID_PARAMETER);
  std::copy_n(path.c_str(), path.size() + 1, buffer);
  return call.Succeed(static_cast<DWORD>(path.size()));
}
