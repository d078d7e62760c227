// Facts about the system and the program's modules.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

const HMODULE kKernel32 = reinterpret_cast<HMODULE>(UINT_PTR{0x77000000});

// "Service Pack 2" -> 2.
WORD ServicePackNumber(const std::string& service_pack) {
  const bool ends_in_digit =
      !service_pack.empty() && service_pack.back() >= '0' && service_pack.back() <= '9';
  return ends_in_digit ? static_cast<WORD>(service_pack.back() - '0') : WORD{0};
}

// In the narrow or the wide structure; `service_pack` is the system's in the same units.
template <typename Version, typename Text>
Version VersionOf(const System& system, const Text& service_pack) {
  constexpr WORD kSuites = 0x0110;  // remote administration by terminal services
  Version version = {};
  version.dwMajorVersion = system.major_version;
  version.dwMinorVersion = system.minor_version;
  version.dwBuildNumber = system.build;
  version.dwPlatformId = VER_PLATFORM_WIN32_NT;
  const size_t longest = std::size(version.szCSDVersion) - 1;
  std::copy_n(service_pack.data(), std::min(service_pack.size(), longest), version.szCSDVersion);
  version.wServicePackMajor = ServicePackNumber(system.service_pack);
  version.wSuiteMask = kSuites;
  version.wProductType = VER_NT_SERVER;
  return version;
}

// What GetProcAddress gives out. It cannot fail, so it is neither numbered nor traced.
void WINAPI NativeSystemInfo(LPSYSTEM_INFO info) {
  constexpr UINT_PTR kLowestAddress = 0x10000;
  constexpr UINT_PTR kHighestAddress = 0x7FFFFFFEFFFF;
  *info = {};
  info->wProcessorArchitecture = Server::Current().system().architecture;
  info->dwPageSize = 4096;
  info->lpMinimumApplicationAddress = reinterpret_cast<LPVOID>(kLowestAddress);
  info->lpMaximumApplicationAddress = reinterpret_cast<LPVOID>(kHighestAddress);
  info->dwActiveProcessorMask = 3;
  info->dwNumberOfProcessors = 2;
  info->dwProcessorType = 8664;
  info->dwAllocationGranularity = 65536;
  info->wProcessorLevel = 6;
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::UnsupportedCall;

// Cannot fail, so it is neither numbered nor traced. Starts anew every 49.7 days.
DWORD WINAPI GetTickCount() {
  return static_cast<DWORD>(simulator::Server::Current().clock().ReadTicks());
}

BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA version) {
  if (version == nullptr) UnsupportedCall("GetVersionExA: nowhere to put it");
  const DWORD size = version->dwOSVersionInfoSize;
  const Call call("GetVersionExA", size);
  if (call.fails()) return FALSE;
  if (size != sizeof(OSVERSIONINFOA) && size != sizeof(OSVERSIONINFOEXA)) {
    return call.Done(ERROR_INSUFFICIENT_BUFFER);
  }
  const simulator::System& system = call.server().system();
  auto filled = simulator::VersionOf<OSVERSIONINFOEXA>(system, system.service_pack);
  filled.dwOSVersionInfoSize = size;
  std::memcpy(static_cast<void*>(version), &filled, size);
  return call.Succeed(TRUE);
}

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version) {
  if (version == nullptr) UnsupportedCall("GetVersionExW: nowhere to put it");
  const DWORD size = version->dwOSVersionInfoSize;
  const Call call("GetVersionExW", size);
  if (call.fails()) return FALSE;
  if (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW)) {
    return call.Done(ERROR_INSUFFICIENT_BUFFER);
  }
  const simulator::System& system = call.server().system();
  auto filled =
      simulator::VersionOf<OSVERSIONINFOEXW>(system, simulator::WideFromUtf8(system.service_pack));
  filled.dwOSVersionInfoSize = size;
  std::memcpy(static_cast<void*>(version), &filled, size);
  return call.Succeed(TRUE);
}

UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size) {
  if (buffer == nullptr && size != 0) UnsupportedCall("GetSystemDirectoryA: no buffer");
  const Call call("GetSystemDirectoryA", size);
  if (call.fails()) return 0;
  const std::string& directory = call.server().system().system_directory;
  const UINT length = static_cast<UINT>(directory.size());
  if (size <= length) return call.Succeed(length + 1);
  std::copy_n(directory.c_str(), directory.size() + 1, buffer);
  return call.Succeed(length);
}

DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size) {
  if (module != nullptr) UnsupportedCall("GetModuleFileNameA: a module");
  if (buffer == nullptr && size != 0) UnsupportedCall("GetModuleFileNameA: no buffer");
  const Call call("GetModuleFileNameA", size);
  if (call.fails()) return 0;
  const std::string& path = call.server().system().program_path;
  if (size == 0) return call.Fail(size, ERROR_INSUFFICIENT_BUFFER);
  const size_t length = std::min(path.size(), static_cast<size_t>(size) - 1);
  std::copy_n(path.data(), length, buffer);
  buffer[length] = '\0';
  if (length < path.size()) return call.Fail(size, ERROR_INSUFFICIENT_BUFFER);
  return call.Succeed(static_cast<DWORD>(length));
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR module_name) {
  const Call call("GetModuleHandleW", module_name);
  if (call.fails()) return nullptr;
  if (module_name == nullptr) return call.Succeed(simulator::ProgramModule());
  const std::string name = simulator::NameKey(simulator::Utf8FromWide(module_name));
  if (name == "kernel32" || name == "kernel32.dll") return call.Succeed(simulator::kKernel32);
  return call.Fail(HMODULE{nullptr}, ERROR_MOD_NOT_FOUND);
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) {
  constexpr uintptr_t kFirstName = 0x10000;  // a smaller value is an ordinal
  if (reinterpret_cast<uintptr_t>(name) < kFirstName) UnsupportedCall("GetProcAddress by ordinal");
  const Call call("GetProcAddress", static_cast<const void*>(module), name);
  if (call.fails()) return nullptr;
  if (module == nullptr || module == simulator::ProgramModule()) {
    UnsupportedCall("GetProcAddress: of the program itself");
  }
  if (module != simulator::kKernel32) return call.Fail(FARPROC{nullptr}, ERROR_MOD_NOT_FOUND);
  const bool exported = call.server().system().has_native_system_info;
  if (!exported || std::string_view(name) != "GetNativeSystemInfo") {
    return call.Fail(FARPROC{nullptr}, ERROR_PROC_NOT_FOUND);
  }
  // By way of the one type that every function pointer may be turned into without a warning.
  const auto any = reinterpret_cast<void (*)()>(&simulator::NativeSystemInfo);
  return call.Succeed(reinterpret_cast<FARPROC>(any));
}
