// Folders.
#include <windows.h>

#include "simulator/api/call.h"
#include "simulator/api/narrow_path.h"
#include "simulator/model/files/files.h"

using simulator::Call;

BOOL WINAPI CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES attributes) {
  if (attributes != nullptr) simulator::UnsupportedCall("CreateDirectoryA: security attributes");
  Call call("CreateDirectoryA", path);
  if (call.fails()) return FALSE;
  const DWORD error = simulator::CheckNarrowPath(path);
  if (error != ERROR_SUCCESS) return call.Done(error);
  return call.Done(call.server().file_system().MakeDirectory(path));
}

BOOL WINAPI RemoveDirectoryA(LPCSTR path) {
  Call call("RemoveDirectoryA", path);
  if (call.fails()) return FALSE;
  const DWORD error = simulator::CheckNarrowPath(path);
  if (error != ERROR_SUCCESS) return call.Done(error);
  return call.Done(call.server().file_system().RemoveDirectory(path));
}
