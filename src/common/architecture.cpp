#include "common/architecture.h"

#include <windows.h>

namespace common {

bool IsNativeX64(bool& is_x64) {
  using GetNativeSystemInfoFunction = void(WINAPI*)(LPSYSTEM_INFO);
  const HMODULE kernel = ::GetModuleHandleW(L"kernel32");
  if (kernel == nullptr) return false;
  // Cast through void(*)(), which any function pointer can be converted to and from.
  const auto address =
      reinterpret_cast<void (*)()>(::GetProcAddress(kernel, "GetNativeSystemInfo"));
  if (address == nullptr) return false;

  SYSTEM_INFO info{};
  reinterpret_cast<GetNativeSystemInfoFunction>(address)(&info);
  is_x64 = info.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_AMD64 ||
           info.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_IA64;
  return true;
}

}  // namespace common
