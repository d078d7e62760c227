// The names of the calls that a simulated server numbers and records, and that can be made to fail.
#ifndef SIMULATOR_MODEL_CALL_NAMES_H_
#define SIMULATOR_MODEL_CALL_NAMES_H_

#include <span>
#include <string_view>

namespace simulator {

// Returns the names as Calls records them, "CreatePipe" or "_open", in order.
std::span<const std::string_view> CallNames();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_CALL_NAMES_H_
