// The platform name cached by the operations on the BCD store.
#ifndef COMMON_WIN_PLATFORM_CACHE_H_
#define COMMON_WIN_PLATFORM_CACHE_H_

#include <string>

namespace common::win {

enum class BootOperation { kInspect, kExport, kImport, kDelete, kRemake };

// The value until the platform is known.
inline constexpr char kPlatformUnknown[] = "-1";

// Returns the platform name of one operation: kPlatformUnknown at first, then kept until the
// process ends. Used on the restore worker's thread. Only tests reset it.
std::string& CachedPlatform(BootOperation operation);

}  // namespace common::win

#endif  // COMMON_WIN_PLATFORM_CACHE_H_
