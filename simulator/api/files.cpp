// Files, folders and drives.
#include "simulator/model/files/files.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/api/medium.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/server.h"

using simulator::AccessMedium;
using simulator::Call;
using simulator::Unsupported;

namespace {

// Those ANSI calls that convert the path to UTF-16 in a per-thread buffer fail before the path is
// looked up if it does not fit: even a verbatim path must.
DWORD ReadNarrowPath(const Call& call, LPCSTR ansi, std::string* path) {
  if (ansi == nullptr) return ERROR_PATH_NOT_FOUND;
  *path = simulator::FromAnsi(call, ansi);
  return simulator::Utf16Length(*path) > MAX_PATH ? ERROR_FILENAME_EXCED_RANGE : ERROR_SUCCESS;
}

}  // namespace

BOOL WINAPI DeleteFileA(LPCSTR path) {
  Call call("DeleteFileA", path);
  if (call.fails()) return FALSE;
  if (path == nullptr) return call.Done(ERROR_PATH_NOT_FOUND);
  const std::string utf8 = simulator::FromAnsi(call, path);
  return call.Done(
      AccessMedium(call.server(), utf8, [&] { return call.server().file_system().Delete(utf8); }));
}

BOOL WINAPI CreateDirectoryA(LPCSTR ansi_path, LPSECURITY_ATTRIBUTES attributes) {
  if (attributes != nullptr) Unsupported("CreateDirectoryA: security attributes");
  Call call("CreateDirectoryA", ansi_path);
  if (call.fails()) return FALSE;
  std::string path;
  const DWORD error = ReadNarrowPath(call, ansi_path, &path);
  if (error != ERROR_SUCCESS) return call.Done(error);
  return call.Done(AccessMedium(call.server(), path,
                                [&] { return call.server().file_system().MakeDirectory(path); }));
}

BOOL WINAPI RemoveDirectoryA(LPCSTR ansi_path) {
  Call call("RemoveDirectoryA", ansi_path);
  if (call.fails()) return FALSE;
  std::string path;
  const DWORD error = ReadNarrowPath(call, ansi_path, &path);
  if (error != ERROR_SUCCESS) return call.Done(error);
  return call.Done(AccessMedium(call.server(), path,
                                [&] { return call.server().file_system().RemoveDirectory(path); }));
}

DWORD WINAPI GetFileAttributesW(LPCWSTR path) {
  Call call("GetFileAttributesW", path);
  if (call.fails()) return INVALID_FILE_ATTRIBUTES;
  if (path == nullptr) return call.Fail(INVALID_FILE_ATTRIBUTES, ERROR_PATH_NOT_FOUND);
  DWORD attributes = 0;
  const std::string narrow = simulator::Utf8FromWide(path);
  const DWORD error = AccessMedium(call.server(), narrow, [&] {
    return call.server().file_system().Attributes(narrow, &attributes);
  });
  if (error != ERROR_SUCCESS) return call.Fail(INVALID_FILE_ATTRIBUTES, error);
  return call.Succeed(attributes);
}

BOOL WINAPI SetFileAttributesA(LPCSTR ansi_path, DWORD attributes) {
  Call call("SetFileAttributesA", ansi_path, attributes);
  if (call.fails()) return FALSE;
  std::string path;
  const DWORD error = ReadNarrowPath(call, ansi_path, &path);
  if (error != ERROR_SUCCESS) return call.Done(error);
  return call.Done(AccessMedium(call.server(), path, [&] {
    return call.server().file_system().ChangeAttributes(path, attributes);
  }));
}

DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* file_part) {
  if (file_part != nullptr) Unsupported("GetFullPathNameW: the file part");
  Call call("GetFullPathNameW", path, size);
  if (call.fails()) return 0;
  if (path == nullptr) return call.Fail(0u, ERROR_INVALID_NAME);
  const std::wstring full =
      simulator::WideFromUtf8(call.server().file_system().FullPath(simulator::Utf8FromWide(path)));
  if (full.empty()) return call.Fail(0u, ERROR_INVALID_NAME);
  if (size <= full.size()) return call.Succeed(static_cast<DWORD>(full.size() + 1));
  if (buffer == nullptr) return call.Fail(0u, ERROR_INVALID_PARAMETER);
  std::copy_n(full.c_str(), full.size() + 1, buffer);
  return call.Succeed(static_cast<DWORD>(full.size()));
}

UINT WINAPI GetDriveTypeA(LPCSTR root_path) {
  Call call("GetDriveTypeA", root_path);
  if (call.fails()) return DRIVE_UNKNOWN;
  if (root_path == nullptr) Unsupported("the drive type of the current directory");
  return call.Succeed(call.server().file_system().DriveType(simulator::FromAnsi(call, root_path)));
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
  path = simulator::ToAnsi(call, path);
  if (size <= path.size()) return call.Succeed(static_cast<DWORD>(path.size() + 1));
  if (buffer == nullptr) return call.Fail(0u, ERROR_INVALID_PARAMETER);
  std::copy_n(path.c_str(), path.size() + 1, buffer);
  return call.Succeed(static_cast<DWORD>(path.size()));
}
