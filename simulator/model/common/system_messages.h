// The system's texts for its error codes.
#ifndef SIMULATOR_MODEL_COMMON_SYSTEM_MESSAGES_H_
#define SIMULATOR_MODEL_COMMON_SYSTEM_MESSAGES_H_

#include <windows.h>

#include <optional>
#include <string_view>

namespace simulator {

// Returns the English text, whatever the server's language, without the line end. Returns nothing
// for an unknown code.
std::optional<std::string_view> SystemMessage(DWORD error);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_SYSTEM_MESSAGES_H_
