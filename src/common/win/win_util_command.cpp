// Command execution: the exit code and the output of a tool.
#include <utility>

#include "common/errors.h"
#include "common/owner.h"
#include "common/win/child_process_list.h"
#include "common/win/win_util.h"

namespace common::win {
namespace {

// Oddity: code 0xFFFFFFFF, see docs/oddities.md.
DWORD NonZero(DWORD error) { return error != 0 ? error : static_cast<DWORD>(-1); }

// Reads the pipe to its end.
std::string ReadAll(HANDLE pipe) {
  std::array<char, 1024> buffer{};
  constexpr DWORD kRequest = 1023;
  std::string text;
  DWORD count = 0;
  // A read of 0 bytes is an empty write by the tool, not the end of the output.
  while (::ReadFile(pipe, buffer.data(), kRequest, &count, nullptr)) {
    buffer.at(count) = '\0';
    // Oddity: output after a zero byte, see docs/oddities.md.
    text.append(buffer.data());
  }
  return text;
}

}  // namespace

bool WinUtil::CreateProgressNoWait(logger::Logger& logger, const std::string& application,
                                   const std::string& command_line, HANDLE output, HANDLE error,
                                   HANDLE& process, HANDLE& thread) {
  logger.Debug("WinUtil::CreateProgressNoWait: %s", command_line.c_str());

  // Oddity: start of a tool, see docs/oddities.md.
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_HIDE;
  if (output != nullptr || error != nullptr) {
    startup.hStdOutput = output;
    startup.hStdError = error;
    startup.dwFlags = STARTF_USESTDHANDLES;
  }

  // CreateProcessA may write into its command line.
  std::array<char, 2048> buffer{};
  command_line.copy(buffer.data(), buffer.size() - 1);

  PROCESS_INFORMATION information{};
  if (!::CreateProcessA(application.empty() ? nullptr : application.c_str(), buffer.data(), nullptr,
                        nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &information)) {
    const DWORD failure = ::GetLastError();
    logger.Error("WinUtil::CreateProgressNoWait Failed: %s", GetLastErrorText(failure).c_str());
    ::SetLastError(failure);
    return false;
  }
  process = information.hProcess;
  thread = information.hThread;
  return true;
}

DWORD WinUtil::ExecCommandWithResults(const std::string& application,
                                      const std::string& command_line, std::string& output) {
  SECURITY_ATTRIBUTES inheritable{};
  inheritable.nLength = sizeof(inheritable);
  inheritable.bInheritHandle = TRUE;
  UniqueHandle read_end;
  UniqueHandle write_end;
  if (!::CreatePipe(read_end.put(), write_end.put(), &inheritable, 0)) {
    const DWORD error = ::GetLastError();
    logger_->Error("WinUtil::ExecCommandWithResults Create Pipe Failed: %s",
                   GetLastErrorText(error).c_str());
    return NonZero(error);
  }

  HANDLE process_handle = nullptr;
  HANDLE thread_handle = nullptr;
  if (!CreateProgressNoWait(*logger_, application, command_line, write_end.get(), write_end.get(),
                            process_handle, thread_handle)) {
    const DWORD error = ::GetLastError();
    logger_->Error("WinUtil::ExecCommandWithResults Create Progress Failed: %s",
                   GetLastErrorText(error).c_str());
    // Oddity: pipe ends left open, see docs/oddities.md.
    read_end.release();
    write_end.release();
    return NonZero(error);
  }
  const UniqueHandle thread(thread_handle);
  const UniqueHandle process(process_handle);
  // Oddity: closed child handles, see docs/oddities.md.
  ChildProcessList::Instance().Append(process.get());

  // The read end reports the end of the output when no other write end is open.
  write_end.reset();
  // Oddity: end of output, see docs/oddities.md.
  std::string captured = ReadAll(read_end.get());
  read_end.reset();

  DWORD exit_code = 0;
  if (::GetExitCodeProcess(process.get(), &exit_code)) {
    // Oddity: wording of messages, see docs/oddities.md.
    // Oddity: negative codes, see docs/oddities.md.
    logger_->Debug("WinUtil::ExecCommandWithResult Get Exit Code Successed: code=%d",
                   static_cast<int>(exit_code));
    output = std::move(captured);
  } else {
    const DWORD error = ::GetLastError();
    logger_->Error("WinUtil::ExecCommandWithResult Get Exit Code Failed: %s",
                   GetLastErrorText(error).c_str());
    // Oddity: unknown exit code, see docs/oddities.md.
    exit_code = 0;
  }
  return exit_code;
}

}  // namespace common::win
