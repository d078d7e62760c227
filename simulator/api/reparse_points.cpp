// Handles to files and folders, and the junctions that are made through them.
#include <windows.h>

#include <memory>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/api/medium.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/processes/handles.h"

using simulator::Call;
using simulator::Unsupported;

HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD desired_access, DWORD share_mode,
                          LPSECURITY_ATTRIBUTES attributes, DWORD creation_disposition,
                          DWORD flags_and_attributes, HANDLE template_file) {
  constexpr DWORD kFlags =
      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS | FILE_ATTRIBUTE_NORMAL;
  constexpr DWORD kAccess =
      GENERIC_ALL | GENERIC_READ | GENERIC_WRITE | GENERIC_EXECUTE | FILE_ALL_ACCESS;
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if ((desired_access & ~kAccess) != 0) Unsupported("CreateFileW: such access");
  if ((share_mode & ~kShare) != 0) Unsupported("CreateFileW: such sharing");
  if (attributes != nullptr) Unsupported("CreateFileW: security attributes");
  if (creation_disposition != OPEN_EXISTING) Unsupported("CreateFileW: making a file");
  if ((flags_and_attributes & ~kFlags) != 0) Unsupported("CreateFileW: flags and attributes");
  if (template_file != nullptr) Unsupported("CreateFileW: a template");

  Call call("CreateFileW", path, desired_access, share_mode, flags_and_attributes);
  if (call.fails()) return INVALID_HANDLE_VALUE;
  if (path == nullptr) return call.Fail(INVALID_HANDLE_VALUE, ERROR_PATH_NOT_FOUND);
  simulator::HandleMode mode;
  mode.access = desired_access;
  mode.share = share_mode;
  mode.backup_semantics = (flags_and_attributes & FILE_FLAG_BACKUP_SEMANTICS) != 0;
  mode.open_reparse_point = (flags_and_attributes & FILE_FLAG_OPEN_REPARSE_POINT) != 0;
  std::shared_ptr<simulator::OpenNode> node;
  const std::string narrow = simulator::Utf8FromWide(path);
  const DWORD error = simulator::AccessMedium(call.server(), narrow, [&] {
    return call.server().file_system().OpenHandle(narrow, mode, &node);
  });
  if (error != ERROR_SUCCESS) return call.Fail(INVALID_HANDLE_VALUE, error);
  return call.Succeed(call.server().handles().Insert(std::move(node), false));
}

BOOL WINAPI DeviceIoControl(HANDLE device, DWORD code, LPVOID input, DWORD input_size,
                            LPVOID /*output*/, DWORD output_size, LPDWORD bytes_returned,
                            LPOVERLAPPED overlapped) {
  if (code != FSCTL_SET_REPARSE_POINT) Unsupported("DeviceIoControl: such a code");
  if (output_size != 0) Unsupported("DeviceIoControl: output of a call that has none");
  if (bytes_returned == nullptr) Unsupported("DeviceIoControl: nowhere to put the count");
  if (overlapped != nullptr) Unsupported("DeviceIoControl: overlapped");
  if (input == nullptr && input_size != 0) Unsupported("DeviceIoControl: no input");

  Call call("DeviceIoControl", device, code, input_size);
  *bytes_returned = 0;
  if (call.fails()) return FALSE;
  const auto node = call.server().handles().Find<simulator::OpenNode>(device);
  if (!node) return call.Done(ERROR_INVALID_HANDLE);
  const std::string_view buffer(static_cast<const char*>(input), input_size);
  return call.Done(call.server().file_system().SetReparsePoint(*node, buffer));
}
