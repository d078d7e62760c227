// The processor architecture of the machine.
#ifndef COMMON_ARCHITECTURE_H_
#define COMMON_ARCHITECTURE_H_

namespace common {

// Sets `is_x64` to whether the machine, not the process, is a 64-bit one. False, with `is_x64`
// untouched, on a Windows without GetNativeSystemInfo.
[[nodiscard]] bool IsNativeX64(bool& is_x64);

}  // namespace common

#endif  // COMMON_ARCHITECTURE_H_
