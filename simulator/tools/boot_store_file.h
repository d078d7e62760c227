// A BCD store as a file. On Windows it is a registry hive; here it is JSON.
#ifndef SIMULATOR_TOOLS_BOOT_STORE_FILE_H_
#define SIMULATOR_TOOLS_BOOT_STORE_FILE_H_

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// Returns the contents of the file. Invalid UTF-8 is replaced with U+FFFD.
std::string BootStoreFile(const BootStore& store);

// Returns nothing if the bytes are not such a file, or are an incomplete one.
std::optional<BootStore> ParseBootStoreFile(std::string_view bytes);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BOOT_STORE_FILE_H_
