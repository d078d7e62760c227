// The error codes of failed calls.
#ifndef TESTS_SUPPORT_ANSWERS_H_
#define TESTS_SUPPORT_ANSWERS_H_

#include <windows.h>

#include <cerrno>

namespace tests {

// The last error before a tested call. It is not an error code of Windows.
inline constexpr DWORD kNobodysError = 0x2BADF00D;

// Calls a Win32 function. Returns the last error if the result is zero or null; otherwise returns
// ERROR_SUCCESS.
template <typename Call>
DWORD ErrorOf(Call call) {
  ::SetLastError(kNobodysError);
  return call() ? ERROR_SUCCESS : ::GetLastError();
}

// Calls a function of the C runtime. Returns errno if the result is -1; otherwise returns 0.
template <typename Call>
int ErrnoOf(Call call) {
  errno = 0;
  return call() == -1 ? errno : 0;
}

}  // namespace tests

#endif  // TESTS_SUPPORT_ANSWERS_H_
