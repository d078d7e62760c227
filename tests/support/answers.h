// What a call tells when it fails.
#ifndef TESTS_SUPPORT_ANSWERS_H_
#define TESTS_SUPPORT_ANSWERS_H_

#include <windows.h>

#include <cerrno>

namespace tests {

// The last error before a call that is looked at: no code of Windows.
inline constexpr DWORD kNobodysError = 0x2BADF00D;

// Runs a Win32 call: the last error when its answer is zero or null, else ERROR_SUCCESS.
template <typename Call>
DWORD ErrorOf(Call call) {
  ::SetLastError(kNobodysError);
  return call() ? ERROR_SUCCESS : ::GetLastError();
}

// Runs a call of the C runtime: errno when its answer is -1, else 0.
template <typename Call>
int ErrnoOf(Call call) {
  errno = 0;
  return call() == -1 ? errno : 0;
}

}  // namespace tests

#endif  // TESTS_SUPPORT_ANSWERS_H_
