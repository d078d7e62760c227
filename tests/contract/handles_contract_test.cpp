// Handles that are none, closed, or of another kind than a call takes.
#include <windows.h>

#include <functional>
#include <string>

#include "common/owner.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

HANDLE HandleOf(UINT_PTR value) { return reinterpret_cast<HANDLE>(value); }

struct HandleCall {
  const char* name;
  std::function<BOOL(HANDLE)> call;
};

BOOL Read(HANDLE handle) {
  char byte = 0;
  DWORD count = 77;
  const BOOL answer = ::ReadFile(handle, &byte, 1, &count, nullptr);
  EXPECT_EQ(count, answer ? 1u : 0u);
  return answer;
}

BOOL Write(HANDLE handle) {
  DWORD count = 77;
  const BOOL answer = ::WriteFile(handle, "a", 1, &count, nullptr);
  EXPECT_EQ(count, answer ? 1u : 0u);
  return answer;
}

BOOL ExitCode(HANDLE handle) {
  DWORD code = 0;
  return ::GetExitCodeProcess(handle, &code);
}

BOOL OpenToken(HANDLE handle) {
  HANDLE token = nullptr;
  return ::OpenProcessToken(handle, TOKEN_QUERY, &token);
}

BOOL AdjustToken(HANDLE handle) {
  TOKEN_PRIVILEGES privileges{1, {{{17, 0}, SE_PRIVILEGE_ENABLED}}};
  return ::AdjustTokenPrivileges(handle, FALSE, &privileges, 0, nullptr, nullptr);
}

BOOL ConsoleInfo(HANDLE handle) {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  return ::GetConsoleScreenBufferInfo(handle, &info);
}

const HandleCall kClose{"CloseHandle", [](HANDLE handle) { return ::CloseHandle(handle); }};
const HandleCall kRead{"ReadFile", Read};
const HandleCall kWrite{"WriteFile", Write};
const HandleCall kExitCode{"GetExitCodeProcess", ExitCode};
const HandleCall kTerminate{"TerminateProcess",
                            [](HANDLE handle) { return ::TerminateProcess(handle, 1); }};
const HandleCall kOpenToken{"OpenProcessToken", OpenToken};
const HandleCall kAdjustToken{"AdjustTokenPrivileges", AdjustToken};
const HandleCall kConsoleInfo{"GetConsoleScreenBufferInfo", ConsoleInfo};
const HandleCall kConsoleAttribute{
    "SetConsoleTextAttribute", [](HANDLE handle) { return ::SetConsoleTextAttribute(handle, 7); }};

class HandleContract : public HostTest {
 protected:
  HandleContract() {
    EXPECT_TRUE(::CreatePipe(read_end_.put(), write_end_.put(), nullptr, 0));
    EXPECT_TRUE(::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, token_.put()));
  }

  static void ExpectInvalid(const HandleCall& call, HANDLE handle) {
    EXPECT_EQ(ErrorOf([&] { return call.call(handle); }), ERROR_INVALID_HANDLE) << call.name;
  }

  common::UniqueHandle read_end_;
  common::UniqueHandle write_end_;
  common::UniqueHandle token_;
};

TEST_F(HandleContract, EveryCallRefusesWhatIsNoHandle) {
  for (const HandleCall& call : {kClose, kRead, kWrite, kExitCode, kTerminate, kOpenToken,
                                 kAdjustToken, kConsoleInfo, kConsoleAttribute}) {
    for (const UINT_PTR value : {UINT_PTR{0}, UINT_PTR{0x7FFF'FFF0}, UINT_PTR{0x12'3454}}) {
      ExpectInvalid(call, HandleOf(value));
    }
  }
}

TEST_F(HandleContract, EveryCallRefusesAClosedHandle) {
  const HANDLE closed = read_end_.get();
  read_end_.reset();
  for (const HandleCall& call : {kClose, kRead, kWrite, kExitCode, kTerminate, kOpenToken,
                                 kAdjustToken, kConsoleInfo, kConsoleAttribute}) {
    ExpectInvalid(call, closed);
  }
}

TEST_F(HandleContract, APipeIsNeitherAProcessNorATokenNorAConsole) {
  for (const HandleCall& call :
       {kExitCode, kTerminate, kOpenToken, kAdjustToken, kConsoleInfo, kConsoleAttribute}) {
    ExpectInvalid(call, read_end_.get());
    ExpectInvalid(call, write_end_.get());
  }
}

TEST_F(HandleContract, ATokenIsNeitherAFileNorAProcessNorAConsole) {
  for (const HandleCall& call :
       {kRead, kWrite, kExitCode, kTerminate, kOpenToken, kConsoleInfo, kConsoleAttribute}) {
    ExpectInvalid(call, token_.get());
  }
}

TEST_F(HandleContract, CloseHandleClosesOnce) {
  EXPECT_TRUE(::CloseHandle(token_.get()));
  EXPECT_EQ(ErrorOf([this] { return ::CloseHandle(token_.get()); }), ERROR_INVALID_HANDLE);
  token_.release();
}

TEST_F(HandleContract, TheCurrentProcessIsAPseudoHandle) {
  EXPECT_EQ(::GetCurrentProcess(), HandleOf(~UINT_PTR{0}));
}

}  // namespace
}  // namespace tests
