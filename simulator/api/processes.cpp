// Child processes and handles.
#include "simulator/model/processes/processes.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/model/common/command_line.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/pipe.h"
#include "simulator/model/processes/process_objects.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr size_t kLongestCommandLine = 32766;  // UTF-16 units, without the terminator

void RefuseUnsupported(const STARTUPINFOA& startup) {
  if (startup.cb != sizeof(STARTUPINFOA)) Unsupported("STARTUPINFOA::cb");
  if (startup.lpReserved != nullptr) Unsupported("STARTUPINFOA::lpReserved");
  if (startup.lpDesktop != nullptr) Unsupported("STARTUPINFOA::lpDesktop");
  if (startup.lpTitle != nullptr) Unsupported("STARTUPINFOA::lpTitle");
  if (startup.cbReserved2 != 0) Unsupported("STARTUPINFOA::cbReserved2");
  if (startup.lpReserved2 != nullptr) Unsupported("STARTUPINFOA::lpReserved2");
  constexpr DWORD kHonoured = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
  if ((startup.dwFlags & ~kHonoured) != 0) Unsupported("STARTUPINFOA::dwFlags");
  if ((startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow != SW_HIDE) {
    Unsupported("STARTUPINFOA::wShowWindow");
  }
  if ((startup.dwFlags & STARTF_USESTDHANDLES) != 0 && startup.hStdInput != nullptr) {
    Unsupported("STARTUPINFOA::hStdInput");
  }
}

// A standard handle of the child is of use only when the child inherits it and can write to it.
std::shared_ptr<PipeWriteEnd> StandardHandle(const Handles& handles, const ChildStart& start,
                                             HANDLE handle) {
  const auto end = handles.Find<PipeWriteEnd>(handle);
  const auto& inherited = start.inherited;
  return std::find(inherited.begin(), inherited.end(), end) == inherited.end() ? nullptr : end;
}

// Whether an application name can be a program's: the path of an .exe in a folder that is there.
// The installed programs themselves have names only. A command line's program has no such bounds:
// it is looked for in the search path.
DWORD CheckApplication(const Files& files, const std::string& path) {
  const size_t separator = path.find_last_of("\\/");
  if (separator == std::string::npos || !NameKey(path).ends_with(".exe")) {
    return ERROR_FILE_NOT_FOUND;
  }
  return files.Exists(path.substr(0, separator + 1)) ? ERROR_SUCCESS : ERROR_PATH_NOT_FOUND;
}

std::shared_ptr<ChildProcess> FindChild(const Call& call, HANDLE process) {
  if (process == ::GetCurrentProcess()) Unsupported("the program's own process");
  const auto object = call.server().handles().Find<ProcessObject>(process);
  return object ? object->Child() : nullptr;
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Unsupported;

BOOL WINAPI CreateProcessA(LPCSTR application_name, LPSTR command_line,
                           LPSECURITY_ATTRIBUTES process_attributes,
                           LPSECURITY_ATTRIBUTES thread_attributes, BOOL inherit_handles,
                           DWORD creation_flags, LPVOID environment, LPCSTR current_directory,
                           LPSTARTUPINFOA startup_info, LPPROCESS_INFORMATION process_information) {
  if (application_name == nullptr && command_line == nullptr) {
    Unsupported("CreateProcessA: neither application name nor command line");
  }
  if (process_attributes != nullptr || thread_attributes != nullptr) {
    Unsupported("CreateProcessA: security attributes");
  }
  if (!inherit_handles) Unsupported("CreateProcessA: no handles inherited");
  if (creation_flags != CREATE_NO_WINDOW) Unsupported("CreateProcessA: creation flags");
  if (environment != nullptr) Unsupported("CreateProcessA: environment");
  if (current_directory != nullptr) Unsupported("CreateProcessA: current directory");
  if (startup_info == nullptr) Unsupported("CreateProcessA: no startup info");
  if (process_information == nullptr) Unsupported("CreateProcessA: no process information");
  simulator::RefuseUnsupported(*startup_info);

  const Call call("CreateProcessA", application_name, command_line);
  if (call.fails()) return FALSE;
  simulator::Server& server = call.server();
  simulator::ChildStart start;
  start.command_line =
      simulator::FromAnsi(call, command_line != nullptr ? command_line : application_name);
  if (simulator::Utf16Length(start.command_line) > simulator::kLongestCommandLine) {
    return call.Done(ERROR_FILENAME_EXCED_RANGE);
  }
  if (application_name != nullptr) {
    start.program = simulator::FromAnsi(call, application_name);
    const DWORD error = simulator::CheckApplication(server.files(), start.program);
    if (error != ERROR_SUCCESS) return call.Done(error);
  } else {
    start.program = simulator::ProgramOf(start.command_line);
  }
  start.inherited = server.handles().Inheritable();
  if ((startup_info->dwFlags & STARTF_USESTDHANDLES) != 0) {
    start.output = simulator::StandardHandle(server.handles(), start, startup_info->hStdOutput);
    start.error = simulator::StandardHandle(server.handles(), start, startup_info->hStdError);
  }
  start.flags = startup_info->dwFlags;
  start.show_window = startup_info->wShowWindow;
  const auto child = server.processes().Start(std::move(start));
  if (!child) return call.Done(ERROR_FILE_NOT_FOUND);
  *process_information = {
      server.handles().Insert(std::make_shared<simulator::ProcessObject>(child), false),
      server.handles().Insert(std::make_shared<simulator::ThreadObject>(), false),
      child->ProcessId(),
      child->ProcessId() + 4,
  };
  return call.Succeed(TRUE);
}

BOOL WINAPI GetExitCodeProcess(HANDLE process, LPDWORD exit_code) {
  if (exit_code == nullptr) Unsupported("GetExitCodeProcess: nowhere to put the code");
  const Call call("GetExitCodeProcess", process);
  if (call.fails()) return FALSE;
  const auto child = simulator::FindChild(call, process);
  if (!child) return call.Done(ERROR_INVALID_HANDLE);
  *exit_code = child->ExitCode();
  return call.Succeed(TRUE);
}

BOOL WINAPI TerminateProcess(HANDLE process, UINT exit_code) {
  const Call call("TerminateProcess", process, exit_code);
  if (call.fails()) return FALSE;
  const auto child = simulator::FindChild(call, process);
  return call.Done(child ? child->Terminate(exit_code) : ERROR_INVALID_HANDLE);
}

// Cannot fail, so it is neither numbered nor traced.
void WINAPI ExitProcess(UINT exit_code) {
  const simulator::PlatformScope scope;
  simulator::Server::Current().own_process().Exit(exit_code);
}

BOOL WINAPI CloseHandle(HANDLE object) {
  if (object == ::GetCurrentProcess()) Unsupported("CloseHandle of a pseudo handle");
  const Call call("CloseHandle", object);
  if (call.fails()) return FALSE;
  return call.Done(call.server().handles().Close(object) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}

HANDLE WINAPI GetCurrentProcess() { return INVALID_HANDLE_VALUE; }
