// Where the program leaves memory allocated on purpose, a leak checker looks away.
#ifndef TESTS_SUPPORT_DELIBERATE_LEAK_H_
#define TESTS_SUPPORT_DELIBERATE_LEAK_H_

#ifdef VANTORO_CHECKS_ADDRESSES
#include <sanitizer/lsan_interface.h>
#endif

namespace tests {

// What the calling thread allocates while this lives is not reported as leaked.
class DeliberateLeak {
 public:
#ifdef VANTORO_CHECKS_ADDRESSES
  DeliberateLeak() { __lsan_disable(); }
  ~DeliberateLeak() { __lsan_enable(); }
#else
  DeliberateLeak() {}
  ~DeliberateLeak() {}
#endif
  DeliberateLeak(const DeliberateLeak&) = delete;
  DeliberateLeak& operator=(const DeliberateLeak&) = delete;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_DELIBERATE_LEAK_H_
