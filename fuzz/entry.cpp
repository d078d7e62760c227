// The entry point that libFuzzer calls, for the target that FUZZ_TARGET names.
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // An empty input comes without memory.
  const char* const text = size == 0 ? "" : reinterpret_cast<const char*>(data);
  fuzz::FUZZ_TARGET({text, size});
  return 0;
}
