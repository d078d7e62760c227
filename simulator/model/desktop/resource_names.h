// The numbers of the SDK's names that a resource script uses.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_NAMES_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_NAMES_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// Styles, the ids of the usual buttons, languages; nothing for other names.
std::optional<uint32_t> SdkResourceNumber(std::string_view name);

// The lines "#define NAME number" of a header.
std::map<std::string, uint32_t> ReadResourceNames(std::string_view header);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_NAMES_H_
