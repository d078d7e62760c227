// Facts about the system: version, directories, modules and their exports.
#include <windows.h>

#include <cstring>
#include <string>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class SystemContract : public HostTest {
 protected:
  static std::string ModulePath() {
    char path[MAX_PATH + 1] = {};
    const DWORD length = ::GetModuleFileNameA(nullptr, path, sizeof path);
    return {path, length};
  }
};

BOOL GetVersion(DWORD size, OSVERSIONINFOEXA* version) {
  std::memset(version, 0, sizeof *version);
  version->dwOSVersionInfoSize = size;
  return ::GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(version));
}

TEST_F(SystemContract, TheVersionIsThatOfAnNtSystem) {
  OSVERSIONINFOEXA version;
  ASSERT_TRUE(GetVersion(sizeof(OSVERSIONINFOA), &version));
  EXPECT_EQ(version.dwOSVersionInfoSize, sizeof(OSVERSIONINFOA));
  EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
  EXPECT_GE(version.dwMajorVersion, 5u);
  EXPECT_GT(version.dwBuildNumber, 0u);
  EXPECT_EQ(version.wProductType, 0);
}

TEST_F(SystemContract, TheLongVersionSaysMore) {
  OSVERSIONINFOEXA version;
  ASSERT_TRUE(GetVersion(sizeof(OSVERSIONINFOEXA), &version));
  EXPECT_EQ(version.dwOSVersionInfoSize, sizeof(OSVERSIONINFOEXA));
  EXPECT_GE(version.wProductType, 1);
  EXPECT_LE(version.wProductType, VER_NT_SERVER);
}

TEST_F(SystemContract, AVersionOfAnotherSizeIsRefused) {
  for (const DWORD size : {0u, 4u, 147u, 149u, 155u, 157u, 276u, 0xFFFF'FFFFu}) {
    OSVERSIONINFOEXA version;
    EXPECT_EQ(ErrorOf([&] { return GetVersion(size, &version); }), ERROR_INSUFFICIENT_BUFFER)
        << size;
    EXPECT_EQ(version.dwMajorVersion, 0u);
  }
}

TEST_F(SystemContract, TheWideVersionIsTheSame) {
  OSVERSIONINFOEXA narrow;
  ASSERT_TRUE(GetVersion(sizeof(OSVERSIONINFOEXA), &narrow));
  for (const size_t size : {sizeof(OSVERSIONINFOW), sizeof(OSVERSIONINFOEXW)}) {
    OSVERSIONINFOEXW wide = {};
    wide.dwOSVersionInfoSize = static_cast<DWORD>(size);
    ASSERT_TRUE(::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&wide)));
    EXPECT_EQ(wide.dwOSVersionInfoSize, size);
    EXPECT_EQ(wide.dwMajorVersion, narrow.dwMajorVersion);
    EXPECT_EQ(wide.dwMinorVersion, narrow.dwMinorVersion);
    EXPECT_EQ(wide.dwBuildNumber, narrow.dwBuildNumber);
    EXPECT_EQ(wide.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
    const bool is_long = size == sizeof(OSVERSIONINFOEXW);
    EXPECT_EQ(wide.wProductType, is_long ? narrow.wProductType : 0);
  }
}

TEST_F(SystemContract, AWideVersionOfAnotherSizeIsRefused) {
  for (const DWORD size : {0u, 148u, 156u, 275u, 0xFFFF'FFFFu}) {
    OSVERSIONINFOEXW version = {};
    version.dwOSVersionInfoSize = size;
    EXPECT_FALSE(::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version))) << size;
    EXPECT_EQ(version.dwMajorVersion, 0u);
  }
}

TEST_F(SystemContract, ARefusedWideVersionHasACode) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kWideVersion;
  OSVERSIONINFOEXW version = {};
  EXPECT_EQ(ErrorOf([&] { return ::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version)); }),
            ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(SystemContract, TheSystemDirectoryHasNoFinalBackslash) {
  char path[MAX_PATH + 1] = {};
  const UINT length = ::GetSystemDirectoryA(path, sizeof path);
  ASSERT_GT(length, 3u);
  EXPECT_EQ(std::string(path).size(), length);
  EXPECT_EQ(path[1], ':');
  EXPECT_EQ(path[2], '\\');
  EXPECT_NE(path[length - 1], '\\');
}

TEST_F(SystemContract, TheSystemDirectoryTellsTheRoomItNeeds) {
  char path[MAX_PATH + 1] = {};
  const UINT length = ::GetSystemDirectoryA(path, sizeof path);
  EXPECT_EQ(::GetSystemDirectoryA(nullptr, 0), length + 1);
  EXPECT_EQ(::GetSystemDirectoryA(path, length), length + 1);
  EXPECT_EQ(::GetSystemDirectoryA(path, length + 1), length);
}

TEST_F(SystemContract, TheProgramHasAFullPath) {
  const std::string path = ModulePath();
  ASSERT_GT(path.size(), 7u);
  EXPECT_EQ(path.substr(1, 2), ":\\");
  EXPECT_EQ(path.substr(path.size() - 4), ".exe");
  EXPECT_TRUE(Exists(path));
}

TEST_F(SystemContract, APathWithoutRoomForItsTerminatorIsCut) {
  const std::string path = ModulePath();
  const DWORD length = static_cast<DWORD>(path.size());
  char buffer[MAX_PATH + 1] = {};
  EXPECT_EQ(::GetModuleFileNameA(nullptr, buffer, length + 1), length);
  EXPECT_EQ(buffer, path);
  for (const DWORD size : {length, DWORD{4}, DWORD{1}}) {
    std::memset(buffer, '#', sizeof buffer);
    ::SetLastError(kNobodysError);
    EXPECT_EQ(::GetModuleFileNameA(nullptr, buffer, size), size);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(std::string(buffer, size - 1), path.substr(0, size - 1));
    EXPECT_EQ(buffer[size], '#');
  }
}

TEST_F(SystemContract, APathThatIsCutIsTerminated) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kCutModuleFileName;
  char buffer[8] = "#######";
  EXPECT_EQ(::GetModuleFileNameA(nullptr, buffer, 4), 4u);
  EXPECT_EQ(buffer, ModulePath().substr(0, 3));
}

TEST_F(SystemContract, APathNeedsABuffer) {
  EXPECT_EQ(ErrorOf([] { return ::GetModuleFileNameA(nullptr, nullptr, 0); }),
            ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(SystemContract, ModulesAreFoundWhateverTheirCaseAndEnding) {
  const HMODULE kernel32 = ::GetModuleHandleW(L"kernel32.dll");
  EXPECT_NE(kernel32, nullptr);
  EXPECT_EQ(::GetModuleHandleW(L"KERNEL32.DLL"), kernel32);
  EXPECT_EQ(::GetModuleHandleW(L"kernel32"), kernel32);
}

TEST_F(SystemContract, TheProgramIsAModuleWithoutAName) {
  const HMODULE program = ::GetModuleHandleW(nullptr);
  EXPECT_NE(program, nullptr);
  EXPECT_NE(program, ::GetModuleHandleW(L"kernel32.dll"));
  EXPECT_EQ(::GetModuleHandleW(nullptr), program);
}

TEST_F(SystemContract, OtherModulesAreNotFound) {
  for (const wchar_t* name : {L"no such module.dll", L"", L"kernel32."}) {
    EXPECT_EQ(ErrorOf([&] { return ::GetModuleHandleW(name) != nullptr; }), ERROR_MOD_NOT_FOUND)
        << std::wstring(name).size();
  }
}

TEST_F(SystemContract, ExportsAreFoundByTheirExactName) {
  const HMODULE kernel32 = ::GetModuleHandleW(L"kernel32.dll");
  EXPECT_NE(::GetProcAddress(kernel32, "GetNativeSystemInfo"), nullptr);
  for (const char* name : {"NoSuchCall", "getnativesysteminfo", "GetNativeSystemInfo ", ""}) {
    EXPECT_EQ(ErrorOf([&] { return ::GetProcAddress(kernel32, name) != nullptr; }),
              ERROR_PROC_NOT_FOUND)
        << name;
  }
}

TEST_F(SystemContract, NoModuleHasNoExports) {
  const HMODULE none = reinterpret_cast<HMODULE>(UINT_PTR{0x123'0000});
  EXPECT_EQ(ErrorOf([&] { return ::GetProcAddress(none, "GetNativeSystemInfo") != nullptr; }),
            ERROR_MOD_NOT_FOUND);
}

TEST_F(SystemContract, TheNativeSystemIsOfAKnownKind) {
  const FARPROC address =
      ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "GetNativeSystemInfo");
  ASSERT_NE(address, nullptr);
  const auto any = reinterpret_cast<void (*)()>(address);
  const auto get_native_system_info = reinterpret_cast<void(WINAPI*)(LPSYSTEM_INFO)>(any);
  SYSTEM_INFO info;
  std::memset(&info, 0xFF, sizeof info);
  get_native_system_info(&info);
  EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_AMD64);
  EXPECT_EQ(info.wReserved, 0);
  EXPECT_EQ(info.dwPageSize, 4096u);
  EXPECT_EQ(info.dwAllocationGranularity, 65536u);
  EXPECT_EQ(info.dwProcessorType, 8664u);
  EXPECT_GE(info.dwNumberOfProcessors, 1u);
}

}  // namespace
}  // namespace tests
