// Path helpers and special folders of the shell.
#include <windows.h>

#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <string>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/model/files/files.h"

using simulator::Call;
using simulator::FileSystem;

namespace {

// Makes the folder with all its parents where they are missing.
DWORD MakeFolder(FileSystem& files, const std::string& path) {
  constexpr size_t kBehindRoot = 3;
  for (size_t end = path.find('\\', kBehindRoot); end != std::string::npos;
       end = path.find('\\', end + 1)) {
    files.MakeDirectory(path.substr(0, end));  // what is really wrong shows below
  }
  const DWORD error = files.MakeDirectory(path);
  return error == ERROR_ALREADY_EXISTS ? ERROR_SUCCESS : error;
}

}  // namespace

// Shows no critical-error box: it sets SEM_FAILCRITICALERRORS while it looks.
BOOL WINAPI PathFileExistsA(LPCSTR path) {
  Call call("PathFileExistsA", path);
  if (call.fails()) return FALSE;
  if (path == nullptr) return call.Done(ERROR_INVALID_PARAMETER);
  DWORD attributes = 0;
  return call.Done(
      call.server().file_system().Attributes(simulator::FromAnsi(call, path), &attributes));
}

// A backslash that is the second byte of a pair is none. Leaves the last error alone, as the shell
// does: FALSE only says that there was nothing to remove.
BOOL WINAPI PathRemoveFileSpecA(LPSTR path) {
  Call call("PathRemoveFileSpecA", path);
  if (call.fails() || path == nullptr) return FALSE;

  const UINT code_page = call.server().system().ansi_code_page;
  // A root keeps its backslashes: "\", "\\" and "C:\".
  char* start = path;
  for (int i = 0; i < 2 && *start == '\\'; ++i) ++start;
  char* cut = start;
  for (char* next = start; *next != '\0'; ++next) {
    if (simulator::IsLeadByte(*next, code_page) && next[1] != '\0') {
      ++next;
    } else if (*next == '\\') {
      cut = next;
    } else if (*next == ':') {
      if (next[1] == '\\') ++next;
      cut = next + 1;
    }
  }
  if (*cut == '\0') return FALSE;
  *cut = '\0';
  return TRUE;
}

BOOL WINAPI SHGetSpecialFolderPathA(HWND owner, LPSTR path, int csidl, BOOL create) {
  Call call("SHGetSpecialFolderPathA", owner, csidl, create);
  if (call.fails()) return FALSE;
  if (csidl != CSIDL_COMMON_STARTUP) simulator::Unsupported("this special folder");
  if (path == nullptr) return call.Done(ERROR_INVALID_PARAMETER);
  const std::string& folder = call.server().system().common_startup_directory;
  const std::string ansi_folder = simulator::ToAnsi(call, folder);
  if (ansi_folder.size() >= MAX_PATH) return call.Done(ERROR_FILENAME_EXCED_RANGE);

  FileSystem& files = call.server().file_system();
  DWORD attributes = 0;
  DWORD error = files.Attributes(folder, &attributes);
  if (error != ERROR_SUCCESS && create) error = MakeFolder(files, folder);
  if (error != ERROR_SUCCESS) return call.Done(error);
  std::copy_n(ansi_folder.c_str(), ansi_folder.size() + 1, path);
  return call.Done(ERROR_SUCCESS);
}
