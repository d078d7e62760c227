// A boot store as a file. The real one is a registry hive; this one is JSON.
#ifndef SIMULATOR_TOOLS_BOOT_STORE_FILE_H_
#define SIMULATOR_TOOLS_BOOT_STORE_FILE_H_

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

// What is not UTF-8 becomes U+FFFD.
std::string BootStoreFile(const BootStore& store);

// Nothing for bytes that are no such file, or only its beginning.
std::optional<BootStore> ParseBootStoreFile(std::string_view bytes);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_BOOT_STORE_FILE_H_
