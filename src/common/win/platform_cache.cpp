#include "common/win/platform_cache.h"

#include <array>

namespace common::win {

std::string& CachedPlatform(BootOperation operation) {
  static std::array<std::string, 5> platforms = {
      kPlatformUnknown, kPlatformUnknown, kPlatformUnknown, kPlatformUnknown, kPlatformUnknown};
  return platforms.at(static_cast<size_t>(operation));
}

}  // namespace common::win
