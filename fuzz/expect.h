// Checks of properties that must hold for every input.
#ifndef FUZZ_EXPECT_H_
#define FUZZ_EXPECT_H_

#include <cstdio>
#include <cstdlib>

namespace fuzz {

// Prints the property's name and aborts the process if `holds` is false.
inline void Expect(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

}  // namespace fuzz

#endif  // FUZZ_EXPECT_H_
