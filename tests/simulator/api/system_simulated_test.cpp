#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "simulator/model/common/clock.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;

TEST(GetTickCount, CountsTheMillisecondsOfTheClockIn32Bits) {
  Server server;
  server.clock().Set(0x1'FFFF'FFFE);
  EXPECT_EQ(::GetTickCount(), 0xFFFF'FFFEu);
  server.clock().Advance(5);
  EXPECT_EQ(::GetTickCount(), 3u);
}

TEST(GetVersionEx, FillsTheExtendedRecord) {
  Server server;
  server.system().service_pack = "Service Pack 2";
  OSVERSIONINFOEXA version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  ASSERT_TRUE(::GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version)));
  EXPECT_EQ(version.dwOSVersionInfoSize, sizeof(version));
  EXPECT_EQ(version.dwMajorVersion, 10u);
  EXPECT_EQ(version.dwMinorVersion, 0u);
  EXPECT_EQ(version.dwBuildNumber, 14393u);
  EXPECT_EQ(version.dwPlatformId, DWORD{VER_PLATFORM_WIN32_NT});
  EXPECT_STREQ(version.szCSDVersion, "Service Pack 2");
  EXPECT_EQ(version.wServicePackMajor, 2);
  EXPECT_EQ(version.wProductType, VER_NT_SERVER);
}

TEST(GetVersionEx, FillsNoMoreThanTheSizeCovers) {
  Server server;
  OSVERSIONINFOEXA version = {};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOA);
  version.wProductType = 77;
  ASSERT_TRUE(::GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version)));
  EXPECT_EQ(version.dwBuildNumber, 14393u);
  EXPECT_EQ(version.wProductType, 77);
}

TEST(GetVersionEx, CutsALongServicePackAndTerminatesIt) {
  Server server;
  server.system().service_pack = std::string(300, 'x');
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  ASSERT_TRUE(::GetVersionExA(&version));
  EXPECT_EQ(std::string(version.szCSDVersion), std::string(127, 'x'));
}

TEST(GetVersionEx, RefusesAnotherSize) {
  Server server;
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = 155;
  EXPECT_FALSE(::GetVersionExA(&version));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
}

TEST(GetVersionEx, SaysTheSameInWideText) {
  Server server;
  server.system().service_pack = "Service Pack 2";
  OSVERSIONINFOEXW version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  ASSERT_TRUE(::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version)));
  EXPECT_EQ(version.dwMajorVersion, 10u);
  EXPECT_EQ(version.dwBuildNumber, 14393u);
  EXPECT_STREQ(version.szCSDVersion, L"Service Pack 2");
  EXPECT_EQ(version.wServicePackMajor, 2);
  EXPECT_EQ(version.wProductType, VER_NT_SERVER);
}

TEST(GetVersionEx, FillsNoMoreOfTheWideRecordThanTheSizeCovers) {
  Server server;
  OSVERSIONINFOEXW version = {};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);
  ASSERT_TRUE(::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version)));
  EXPECT_EQ(version.dwMajorVersion, 10u);
  EXPECT_EQ(version.wProductType, 0);
}

TEST(GetVersionEx, FailsWhenAFaultIsDue) {
  Server server;
  server.calls().FailNext("GetVersionExA", ERROR_GEN_FAILURE);
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof(version);
  EXPECT_FALSE(::GetVersionExA(&version));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_GEN_FAILURE});
}

TEST(GetSystemDirectory, GivesThePathAndItsLength) {
  Server server;
  char path[MAX_PATH];
  EXPECT_EQ(::GetSystemDirectoryA(path, MAX_PATH), 19u);
  EXPECT_STREQ(path, "C:\\Windows\\system32");
}

TEST(GetSystemDirectory, GivesTheSizeItNeedsWhenTheBufferIsTooSmall) {
  Server server;
  char path[20];
  EXPECT_EQ(::GetSystemDirectoryA(path, 19), 20u);
  EXPECT_EQ(::GetSystemDirectoryA(nullptr, 0), 20u);
  EXPECT_EQ(::GetSystemDirectoryA(path, 20), 19u);
}

TEST(GetModuleFileName, GivesThePathOfTheProgram) {
  Server server;
  char path[MAX_PATH];
  const std::string program = server.system().program_path;
  EXPECT_EQ(::GetModuleFileNameA(nullptr, path, MAX_PATH), program.size());
  EXPECT_EQ(path, program);
}

TEST(GetModuleFileName, CutsThePathToTheBufferAndTerminatesIt) {
  Server server;
  server.system().program_path = "C:\\abc.exe";
  char path[5];
  EXPECT_EQ(::GetModuleFileNameA(nullptr, path, 5), 5u);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
  EXPECT_STREQ(path, "C:\\a");
}

TEST(GetModuleFileName, NeedsRoomForTheTerminator) {
  Server server;
  server.system().program_path = "C:\\a";
  char path[5];
  EXPECT_EQ(::GetModuleFileNameA(nullptr, path, 4), 4u);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
  EXPECT_EQ(::GetModuleFileNameA(nullptr, path, 5), 4u);
  EXPECT_EQ(::GetModuleFileNameA(nullptr, nullptr, 0), 0u);
}

TEST(GetModuleHandle, FindsKernel32HoweverItIsWritten) {
  Server server;
  const HMODULE kernel = ::GetModuleHandleW(L"kernel32");
  EXPECT_NE(kernel, nullptr);
  EXPECT_EQ(::GetModuleHandleW(L"KERNEL32.dll"), kernel);
}

TEST(GetModuleHandle, FindsNoOtherModule) {
  Server server;
  EXPECT_EQ(::GetModuleHandleW(L"kernel33"), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
}

TEST(GetProcAddress, GivesAFunctionThatTellsTheArchitecture) {
  Server server;
  const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"kernel32"), "GetNativeSystemInfo");
  ASSERT_NE(found, nullptr);
  using Function = void(WINAPI*)(LPSYSTEM_INFO);
  const auto function = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
  SYSTEM_INFO info = {};
  function(&info);
  EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_AMD64);
  server.system().architecture = PROCESSOR_ARCHITECTURE_IA64;
  function(&info);
  EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_IA64);
}

TEST(GetProcAddress, FindsNothingThatIsNotExported) {
  Server server;
  const HMODULE kernel = ::GetModuleHandleW(L"kernel32");
  EXPECT_EQ(::GetProcAddress(kernel, "getnativesysteminfo"), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
  server.system().has_native_system_info = false;
  EXPECT_EQ(::GetProcAddress(kernel, "GetNativeSystemInfo"), nullptr);
}

TEST(GetProcAddress, RefusesWhatIsNoModule) {
  Server server;
  EXPECT_EQ(::GetProcAddress(reinterpret_cast<HMODULE>(UINT_PTR{0x1234}), "GetNativeSystemInfo"),
            nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
}

TEST(GetProcAddress, AbortsForAnOrdinal) {
  Server server;
  const auto ordinal = reinterpret_cast<LPCSTR>(uintptr_t{12});
  EXPECT_DEATH(::GetProcAddress(::GetModuleHandleW(L"kernel32"), ordinal), "by ordinal");
}

}  // namespace
