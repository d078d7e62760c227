// Suppresses leak reports where the program intentionally does not free memory.
#ifndef TESTS_SUPPORT_DELIBERATE_LEAK_H_
#define TESTS_SUPPORT_DELIBERATE_LEAK_H_

#ifdef VANTORO_CHECKS_ADDRESSES
#include <sanitizer/lsan_interface.h>
#endif

namespace tests {

// Memory that the calling thread allocates while this object exists is not reported as leaked.
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
