// The end of a run that asks for more than the simulator does.
#ifndef SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_
#define SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_

#include <string_view>

namespace simulator {

// Ends the process with a line that names what the simulator does not honour: a flag, a class, a
// member. Nothing is ever answered TRUE and left undone.
[[noreturn]] void Unsupported(std::string_view what);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_UNSUPPORTED_H_
