// The end of a run that uses a feature that the simulator does not support.
#ifndef SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_
#define SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_

#include <string_view>

namespace simulator {

// Aborts the process with a line that names the unsupported feature: a flag, a class, a member. No
// simulated call reports success without doing what was requested.
[[noreturn]] void Unsupported(std::string_view what);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_
