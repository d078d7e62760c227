// The platform's name as the operations on the boot configuration store remember it.
#ifndef COMMON_WIN_PLATFORM_CACHE_H_
#define COMMON_WIN_PLATFORM_CACHE_H_

#include <string>

namespace common::win {

enum class BootOperation { kInspect, kExport, kImport, kDelete, kRemake };

// Before the platform is known.
inline constexpr char kPlatformUnknown[] = "-1";

// Each operation has a name of its own, kPlatformUnknown at first, for the life of the process. The
// restore worker's thread; nobody but tests makes one unknown again.
std::string& CachedPlatform(BootOperation operation);

}  // namespace common::win

#endif  // COMMON_WIN_PLATFORM_CACHE_H_
