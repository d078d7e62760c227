#include "simulator/api/crt_call.h"

#include <cerrno>
#include <utility>

#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr DWORD kLastSharingError = 36;

}  // namespace

int ErrnoOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return ENOENT;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_ACCESS_DENIED:
      return EACCES;
    case ERROR_INVALID_HANDLE:
      return EBADF;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_NOT_ENOUGH_QUOTA:
      return ENOMEM;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_BROKEN_PIPE:
      return EPIPE;
    case ERROR_DISK_FULL:
      return ENOSPC;
    case ERROR_DIR_NOT_EMPTY:
      return ENOTEMPTY;
    case ERROR_BAD_EXE_FORMAT:
      return ENOEXEC;
    case ERROR_NO_UNICODE_TRANSLATION:
      return EILSEQ;
    default:
      // From write protection to the last of the sharing errors the runtime sees one range. What
      // its table lacks, an invalid name for one, is an invalid argument.
      return error >= ERROR_WRITE_PROTECT && error <= kLastSharingError ? EACCES : EINVAL;
  }
}

CrtCall::CrtCall(Entry entry)
    : server_(Server::Current()),
      fault_(EnterCall(server_, entry.name, std::move(entry.arguments), EIO)) {
  if (fault_) SetErrno(static_cast<int>(*fault_));
}

bool CrtCall::Done(DWORD error) const {
  if (error != ERROR_SUCCESS) errno = ErrnoOf(error);
  ::SetLastError(error == ERROR_SUCCESS ? kSpoiltLastError : error);
  return error == ERROR_SUCCESS;
}

void CrtCall::SetErrno(int error_number) {
  errno = error_number;
  ::SetLastError(kSpoiltLastError);
}

}  // namespace simulator
