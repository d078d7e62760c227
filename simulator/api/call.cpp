#include "simulator/api/call.h"

#include <charconv>
#include <utility>

#include "simulator/model/common/utf8.h"
#include "simulator/model/processes/own_process.h"

namespace {

constexpr DWORD kLastSharingError = 36;

thread_local DWORD last_error = ERROR_SUCCESS;

}  // namespace

DWORD WINAPI GetLastError() { return last_error; }

void WINAPI SetLastError(DWORD error) { last_error = error; }

namespace simulator {

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

std::string TraceText(std::nullptr_t) { return "null"; }

std::string TraceText(const char* text) {
  return text == nullptr ? TraceText(nullptr) : TraceText(std::string(text));
}

std::string TraceText(const std::string& text) { return '"' + text + '"'; }

std::string TraceText(const wchar_t* text) {
  return text == nullptr ? TraceText(nullptr) : TraceText(std::wstring(text));
}

std::string TraceText(const std::wstring& text) { return TraceText(Utf8FromWide(text)); }

std::string TraceText(const void* pointer) {
  if (pointer == nullptr) return TraceText(nullptr);
  char digits[2 * sizeof(pointer)];
  const std::to_chars_result end =
      std::to_chars(digits, digits + sizeof(digits), reinterpret_cast<uintptr_t>(pointer), 16);
  return "0x" + std::string(digits, end.ptr);
}

EnteredCall::EnteredCall(const char* name, std::string arguments, uint32_t ended_code)
    : server_(Server::Current()) {
  const OwnProcess& process = server_.own_process();
  if (!process.HasEnded()) server_.calls().TellWatcher(name, arguments);
  fault_ = process.HasEnded() ? ended_code : server_.calls().Enter(name, std::move(arguments));
}

BOOL Call::Done(DWORD error) const {
  ::SetLastError(error == ERROR_SUCCESS ? kSpoiltLastError : error);
  return error == ERROR_SUCCESS ? TRUE : FALSE;
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
