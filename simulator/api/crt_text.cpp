// Texts of the C runtime's error numbers.
#include <string.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace {

struct ErrorText {
  int error;
  std::string_view text;
};

constexpr ErrorText kErrorTexts[] = {
    {0, "No error"},
    {EPERM, "Operation not permitted"},
    {ENOENT, "No such file or directory"},
    {ESRCH, "No such process"},
    {EINTR, "Interrupted function call"},
    {EIO, "Input/output error"},
    {ENXIO, "No such device or address"},
    {E2BIG, "Arg list too long"},
    {ENOEXEC, "Exec format error"},
    {EBADF, "Bad file descriptor"},
    {ECHILD, "No child processes"},
    {EAGAIN, "Resource temporarily unavailable"},
    {ENOMEM, "Not enough space"},
    {EACCES, "Permission denied"},
    {EFAULT, "Bad address"},
    {EBUSY, "Resource device"},
    {EEXIST, "File exists"},
    {EXDEV, "Improper link"},
    {ENODEV, "No such device"},
    {ENOTDIR, "Not a directory"},
    {EISDIR, "Is a directory"},
    {EINVAL, "Invalid argument"},
    {ENFILE, "Too many open files in system"},
    {EMFILE, "Too many open files"},
    {ENOTTY, "Inappropriate I/O control operation"},
    {EFBIG, "File too large"},
    {ENOSPC, "No space left on device"},
    {ESPIPE, "Invalid seek"},
    {EROFS, "Read-only file system"},
    {EMLINK, "Too many links"},
    {EPIPE, "Broken pipe"},
    {EDOM, "Domain error"},
    {ERANGE, "Result too large"},
    {EDEADLK, "Resource deadlock avoided"},
    {ENAMETOOLONG, "Filename too long"},
    {ENOLCK, "No locks available"},
    {ENOSYS, "Function not implemented"},
    {ENOTEMPTY, "Directory not empty"},
    {EILSEQ, "Illegal byte sequence"},
};

std::string_view TextOf(int error) {
  for (const ErrorText& entry : kErrorTexts) {
    if (entry.error == error) return entry.text;
  }
  return "Unknown error";
}

}  // namespace

int strerror_s(char* buffer, size_t size, int error) {
  if (buffer == nullptr || size == 0) {
    errno = EINVAL;
    return EINVAL;
  }
  const std::string_view text = TextOf(error);
  const size_t copied = std::min(text.size(), size - 1);
  std::copy_n(text.begin(), copied, buffer);
  buffer[copied] = '\0';
  return 0;
}
