// The one deadline of tests that wait for another process or for a window.
#ifndef TESTS_SUPPORT_HANG_H_
#define TESTS_SUPPORT_HANG_H_

#include <windows.h>

namespace tests {

// Ends a test that hangs, and decides nothing else: what is waited for takes a busy machine
// seconds.
inline constexpr DWORD kHangMilliseconds = 10 * 60 * 1000;

}  // namespace tests

#endif  // TESTS_SUPPORT_HANG_H_
