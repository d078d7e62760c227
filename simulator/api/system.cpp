// Facts about the system and the program's modules.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "simulator/api/ansi.h"
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

// GetVersionExA and GetVersionExW. `convert` turns the system's texts into those of the structure.
template <typename Char, typename Convert>
BOOL GetVersion(const char* name, OsVersionInfo<Char>* version, Convert convert) {
  constexpr WORD kSuites = 0x0110;  // remote administration by terminal services
  if (version == nullptr) Unsupported(std::string(name) + ": nowhere to put it");
  const DWORD size = version->dwOSVersionInfoSize;
  const Call call(name, size);
  if (call.fails()) return FALSE;
  OsVersionInfoEx<Char> filled = {};
  if (size != sizeof(*version) && size != sizeof(filled)) {
    return call.Done(ERROR_INSUFFICIENT_BUFFER);
  }
  const System& system = call.server().system();
  const auto service_pack = convert(system.service_pack);
  filled.dwOSVersionInfoSize = size;
  filled.dwMajorVersion = system.major_version;
  filled.dwMinorVersion = system.minor_version;
  filled.dwBuildNumber = system.build;
  filled.dwPlatformId = VER_PLATFORM_WIN32_NT;
  service_pack.copy(filled.szCSDVersion, std::size(filled.szCSDVersion) - 1);
  filled.wServicePackMajor = ServicePackNumber(system.service_pack);
  filled.wSuiteMask = kSuites;
  filled.wProductType = VER_NT_SERVER;
  std::memcpy(static_cast<void*>(version), &filled, size);
  return call.Succeed(TRUE);
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
using simulator::Unsupported;

// Cannot fail, so it is neither numbered nor traced. Starts anew every 49.7 days.
DWORD WINAPI GetTickCount() {
  return static_cast<DWORD>(simulator::Server::Current().clock().ReadTicks());
}

BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA version) {
  return simulator::GetVersion("GetVersionExA", version,
                               [](const std::string& text) { return text; });
}

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version) {
  return simulator::GetVersion("GetVersionExW", version, simulator::WideFromUtf8);
}

UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size) {
  if (buffer == nullptr && size != 0) Unsupported("GetSystemDirectoryA: no buffer");
  const Call call("GetSystemDirectoryA", size);
  if (call.fails()) return 0;
  const std::string directory = simulator::ToAnsi(call, call.server().system().system_directory);
  const UINT length = static_cast<UINT>(directory.size());
  if (size <= length) return call.Succeed(length + 1);
  std::copy_n(directory.c_str(), directory.size() + 1, buffer);
  return call.Succeed(length);
}

DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size) {
  if (module != nullptr) Unsupported("GetModuleFileNameA: a module");
  if (buffer == nullptr && size != 0) Unsupported("GetModuleFileNameA: no buffer");
  const Call call("GetModuleFileNameA", size);
  if (call.fails()) return 0;
  const std::string path = simulator::ToAnsi(call, call.server().system().program_path);
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
  if (reinterpret_cast<uintptr_t>(name) < kFirstName) Unsupported("GetProcAddress by ordinal");
  const Call call("GetProcAddress", module, name);
  if (call.fails()) return nullptr;
  if (module == nullptr || module == simulator::ProgramModule()) {
    Unsupported("GetProcAddress: of the program itself");
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
