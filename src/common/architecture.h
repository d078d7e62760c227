// The processor architecture of the machine.
#ifndef COMMON_ARCHITECTURE_H_
#define COMMON_ARCHITECTURE_H_

namespace common {

// Sets `is_x64` to true if the computer, not the process, is 64-bit, otherwise to false. Returns
// false and leaves `is_x64` unchanged on a Windows version without GetNativeSystemInfo.
[[nodiscard]] bool IsNativeX64(bool& is_x64);

}  // namespace common

#endif  // COMMON_ARCHITECTURE_H_
