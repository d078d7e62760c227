#include "fault_sweep/fault_codes.h"

#include <windows.h>

#include <cerrno>
#include <map>
#include <string>

namespace fault_sweep {
namespace {

using Codes = std::vector<uint32_t>;

const std::map<std::string, Codes, std::less<>>& Table() {
  static const std::map<std::string, Codes, std::less<>> table = {
      {"_access", {EACCES, ENOENT}},
      {"_close", {EBADF}},
      {"_mkdir", {EACCES, ENOSPC}},
      {"_open", {EACCES, EMFILE}},
      {"_read", {EACCES}},
      {"_write", {ENOSPC, EBADF}},
      {"AdjustTokenPrivileges", {ERROR_ACCESS_DENIED}},
      {"CloseHandle", {ERROR_INVALID_HANDLE}},
      {"CoCreateInstance", {static_cast<uint32_t>(E_OUTOFMEMORY)}},
      {"CoInitialize", {static_cast<uint32_t>(E_OUTOFMEMORY)}},
      {"ConvertStringSecurityDescriptorToSecurityDescriptorA",
       {ERROR_NOT_ENOUGH_MEMORY, ERROR_INVALID_PARAMETER}},
      {"CopySid", {ERROR_INSUFFICIENT_BUFFER}},
      {"CreateDirectoryA", {ERROR_ACCESS_DENIED, ERROR_PATH_NOT_FOUND, ERROR_ALREADY_EXISTS}},
      {"CreateFileW", {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}},
      {"CreatePipe", {ERROR_NOT_ENOUGH_MEMORY, ERROR_TOO_MANY_OPEN_FILES}},
      {"CreateProcessA",
       {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_BAD_EXE_FORMAT}},
      {"CreateThread", {ERROR_NOT_ENOUGH_MEMORY}},
      {"DeleteFileA", {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}},
      {"DeviceIoControl", {ERROR_ACCESS_DENIED, ERROR_DISK_FULL}},
      {"GetExitCodeProcess", {ERROR_INVALID_HANDLE}},
      {"GetFileAttributesW", {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND}},
      {"GetMessageW", {ERROR_INVALID_PARAMETER}},
      {"GetProcAddress", {ERROR_PROC_NOT_FOUND}},
      {"GetStdHandle", {ERROR_INVALID_HANDLE}},
      {"GetConsoleScreenBufferInfo", {ERROR_INVALID_HANDLE}},
      {"GetVersionExA", {ERROR_INSUFFICIENT_BUFFER}},
      {"GetVersionExW", {ERROR_INSUFFICIENT_BUFFER}},
      {"InitiateSystemShutdownW", {ERROR_ACCESS_DENIED, ERROR_SHUTDOWN_IN_PROGRESS}},
      {"ITaskbarList3::SetProgressState", {static_cast<uint32_t>(E_OUTOFMEMORY)}},
      {"ITaskbarList3::SetProgressValue", {static_cast<uint32_t>(E_OUTOFMEMORY)}},
      {"LocalFree", {ERROR_INVALID_HANDLE}},
      {"LookupAccountNameA", {ERROR_NONE_MAPPED, ERROR_INSUFFICIENT_BUFFER}},
      {"LookupPrivilegeValueA", {ERROR_NO_SUCH_PRIVILEGE}},
      {"LookupPrivilegeValueW", {ERROR_NO_SUCH_PRIVILEGE}},
      {"MakeAbsoluteSD", {ERROR_INVALID_SECURITY_DESCR, ERROR_NOT_ENOUGH_MEMORY}},
      {"OpenProcessToken", {ERROR_ACCESS_DENIED}},
      {"PathFileExistsA", {ERROR_ACCESS_DENIED, ERROR_NOT_READY}},
      {"PostMessageA", {ERROR_NOT_ENOUGH_QUOTA}},
      {"PostMessageW", {ERROR_NOT_ENOUGH_QUOTA, ERROR_INVALID_WINDOW_HANDLE}},
      {"ReadFile", {ERROR_BROKEN_PIPE, ERROR_NOT_ENOUGH_MEMORY}},
      {"RemoveDirectoryA", {ERROR_ACCESS_DENIED, ERROR_DIR_NOT_EMPTY}},
      {"SetFileAttributesA", {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND}},
      {"SetNamedSecurityInfoA",
       {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_INVALID_OWNER, ERROR_NOT_ENOUGH_MEMORY}},
      {"SHGetSpecialFolderPathA", {ERROR_PATH_NOT_FOUND}},
      {"TerminateProcess", {ERROR_ACCESS_DENIED}},
  };
  return table;
}

}  // namespace

std::vector<uint32_t> CodesOf(std::string_view call) {
  const auto found = Table().find(call);
  return found != Table().end() ? found->second : Codes{ERROR_NOT_ENOUGH_MEMORY};
}

}  // namespace fault_sweep
