// Properties that hold whatever comes in.
#ifndef FUZZ_EXPECT_H_
#define FUZZ_EXPECT_H_

#include <cstdio>
#include <cstdlib>

namespace fuzz {

// Ends the process with the property's name unless it holds.
inline void Expect(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

}  // namespace fuzz

#endif  // FUZZ_EXPECT_H_
