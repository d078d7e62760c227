// The common time limit of tests that wait for another process or for a window.
#ifndef TESTS_SUPPORT_HANG_H_
#define TESTS_SUPPORT_HANG_H_

#include <windows.h>

namespace tests {

// The limit only ends a test that hangs. The awaited event occurs within seconds even on a busy
// machine.
inline constexpr DWORD kHangMilliseconds = 10 * 60 * 1000;

}  // namespace tests

#endif  // TESTS_SUPPORT_HANG_H_
