// Child programs of the simulated server, started in the same way as by the program under test.
#ifndef TESTS_SUPPORT_SIMULATED_CHILD_H_
#define TESTS_SUPPORT_SIMULATED_CHILD_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "simulator/tools/tools.h"

namespace tests {

// Runs a command line, waits for its end and returns the result.
inline simulator::ToolResult RunChild(std::string command_line) {
  SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, TRUE};
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  EXPECT_TRUE(::CreatePipe(&read_end, &write_end, &attributes, 0));
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = write_end;
  startup.hStdError = write_end;
  PROCESS_INFORMATION process{};
  const BOOL started = ::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                        CREATE_NO_WINDOW, nullptr, nullptr, &startup, &process);
  EXPECT_TRUE(started) << command_line;
  ::CloseHandle(write_end);
  simulator::ToolResult result{};
  char buffer[1024];
  DWORD count = 0;
  while (started && ::ReadFile(read_end, buffer, sizeof buffer, &count, nullptr)) {
    result.output.append(buffer, count);
  }
  ::CloseHandle(read_end);
  if (started) {
    EXPECT_TRUE(::GetExitCodeProcess(process.hProcess, &result.exit_code));
    ::CloseHandle(process.hProcess);
    ::CloseHandle(process.hThread);
  }
  return result;
}

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_CHILD_H_
