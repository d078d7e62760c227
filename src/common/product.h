// Names of the product.
#ifndef COMMON_PRODUCT_H_
#define COMMON_PRODUCT_H_

namespace common {

inline constexpr char kToolTitle[] = "Vantoro Restore Tool";
inline constexpr char kToolVersion[] = "1.1.0.1";
inline constexpr char kLogName[] = "vantoro_restore";
inline constexpr char kLinkName[] = "vantoro_restore.exe.lnk";

}  // namespace common

#endif  // COMMON_PRODUCT_H_
