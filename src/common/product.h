// Names of the product.
#ifndef COMMON_PRODUCT_H_
#define COMMON_PRODUCT_H_

#include "common/version.h"

namespace common {

inline constexpr char kToolTitle[] = "Vantoro Restore Tool";
inline constexpr char kToolVersion[] = VANTORO_VERSION;
inline constexpr char kLogName[] = "vantoro_restore";
inline constexpr char kPrepareFolder[] = "vantoro_prepare";
inline constexpr char kLinkName[] = "vantoro_restore.exe.lnk";

}  // namespace common

#endif  // COMMON_PRODUCT_H_
