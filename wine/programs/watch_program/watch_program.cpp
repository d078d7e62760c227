// Starts the program and sits before its dialog as a second program: reads what can be seen through
// Win32, prints it as lines of JSON (see WatchedRun), and answers each box once a line has come in
// from the standard input.
//   watch_program [--link] [--answer later] [--cancel-when-held] [--cancel-at LINE] PROGRAM
//     --link               PROGRAM is a link of the shell's
//     --answer later       refuses the restart; otherwise it is accepted
//     --cancel-when-held   clicks Cancel, and confirms it, once a tool waits to be terminated
//     --cancel-at LINE     likewise, once LINE is the last line of the log box
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <tlhelp32.h>

#include <cstdio>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "common/owner.h"
#include "ui/resource.h"
#include "wine/machine_state.h"
#include "wine/programs/process_dialogs.h"

namespace {

using common::UniqueFileHandle;
using common::UniqueHandle;
using nlohmann::json;

constexpr UINT kPatience =
    2000;  // milliseconds for an answer of a window, before it is asked again

struct Options {
  bool is_link = false;
  bool restarts = true;
  bool cancels = false;
  std::string last_line;  // at which it cancels; empty: when a tool is held
  std::wstring program;
};

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string utf8(text.size() * 3, '\0');
  utf8.resize(
      static_cast<size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                                static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

// Ends a run that hangs, and nothing else: a machine that is busy needs a minute and a half for the
// longest one.
class Deadline {
 public:
  bool HasPassed() const { return ::GetTickCount64() - begin_ > kLongest; }

 private:
  static constexpr ULONGLONG kLongest = 30 * 60 * 1000;  // milliseconds
  const ULONGLONG begin_ = ::GetTickCount64();
};

const Deadline& RunDeadline() {
  static const Deadline deadline;
  return deadline;
}

void Tell(const json& what) {
  std::puts(what.dump(-1, ' ', false, json::error_handler_t::replace).c_str());
  std::fflush(stdout);
}

LRESULT Ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  DWORD_PTR answer = 0;
  while (::IsWindow(window) != FALSE && !RunDeadline().HasPassed()) {
    if (::SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kPatience, &answer) !=
        0) {
      break;
    }
  }
  return static_cast<LRESULT>(answer);
}

std::string TextOf(HWND window) {
  std::wstring text(static_cast<size_t>(Ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT length =
      Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return Utf8(text);
}

std::vector<HWND> ChildrenOf(HWND window, const wchar_t* name) {
  std::vector<HWND> children;
  for (HWND child = nullptr; (child = ::FindWindowExW(window, child, name, nullptr)) != nullptr;) {
    children.push_back(child);
  }
  return children;
}

json StateOf(HWND dialog) {
  const HWND bar = ::GetDlgItem(dialog, IDC_PROGRESS);
  return {{"title", TextOf(dialog)},
          {"position", Ask(bar, PBM_GETPOS)},
          {"maximum", Ask(bar, PBM_GETRANGE, FALSE)},
          {"log", TextOf(::GetDlgItem(dialog, IDC_LOG))},
          {"note", TextOf(::GetDlgItem(dialog, IDC_NOTE))},
          {"cancel", TextOf(::GetDlgItem(dialog, IDCANCEL))}};
}

json ContentOf(HWND box) {
  json content = {{"caption", TextOf(box)}, {"text", ""}, {"buttons", json::array()}};
  for (const HWND text : ChildrenOf(box, L"Static")) {
    if (const std::string shown = TextOf(text); !shown.empty()) content["text"] = shown;
  }
  for (const HWND button : ChildrenOf(box, L"Button")) {
    if (::IsWindowVisible(button)) content["buttons"].push_back(TextOf(button));
  }
  return content;
}

void Click(HWND window, int button) {
  ::PostMessageW(::GetDlgItem(window, button), BM_CLICK, 0, 0);
}

bool IsToolHeld() {
  const UniqueHandle event(::OpenEventA(SYNCHRONIZE, FALSE, simulator::kToolIsHeldEvent));
  return static_cast<bool>(event);
}

class Watch {
 public:
  Watch(const Options& options, DWORD process) : options_(options), process_(process) {}

  void Look() {
    HWND dialog = nullptr;
    std::vector<HWND> boxes;
    for (const HWND window : simulator::DialogsOf(process_)) {
      if (::GetDlgItem(window, IDC_PROGRESS) != nullptr) {
        dialog = window;
      } else if (!ChildrenOf(window, L"Button").empty()) {
        boxes.push_back(window);
      }
    }
    if (dialog != nullptr) LookAtDialog(dialog);
    for (const HWND box : boxes) LookAtBox(box, dialog);
  }

 private:
  void LookAtDialog(HWND dialog) {
    const json state = StateOf(dialog);
    if (state != shown_) Tell({{"dialog", state}});
    shown_ = state;
    if (options_.cancels && !has_cancelled_ && IsTimeToCancel(state.at("log"))) {
      has_cancelled_ = true;
      Click(dialog, IDCANCEL);
    }
  }

  bool IsTimeToCancel(const std::string& log) const {
    if (options_.last_line.empty()) return IsToolHeld();
    return log.ends_with(options_.last_line + "\r\n");
  }

  void LookAtBox(HWND box, HWND dialog) {
    if (box == answered_) return;
    const json content = ContentOf(box);
    // Shown, but not yet filled.
    if (content.at("buttons").empty() || content.at("text") == "") return;
    answered_ = box;
    Tell({{"box", content}, {"dialog", dialog == nullptr ? json() : StateOf(dialog)}});
    std::getchar();
    const bool asks = content.at("buttons").size() > 1;
    // MB_OK alone has its button under IDCANCEL as well as IDOK, by the version of Windows.
    const bool refuses = asks && !options_.cancels && !options_.restarts;
    Click(box, refuses ? IDCANCEL : IDOK);
    if (!asks) Click(box, IDCANCEL);
  }

  const Options& options_;
  const DWORD process_;
  json shown_;
  HWND answered_ = nullptr;
  bool has_cancelled_ = false;
};

struct Process {
  DWORD id = 0;
  std::wstring name;
};

// All that run, but for this one.
std::vector<Process> Processes() {
  std::vector<Process> processes;
  const UniqueFileHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32FirstW(snapshot.get(), &entry); more != FALSE;
       more = ::Process32NextW(snapshot.get(), &entry)) {
    if (entry.th32ProcessID == ::GetCurrentProcessId()) continue;
    processes.push_back({entry.th32ProcessID, entry.szExeFile});
  }
  return processes;
}

json NamesOf(const std::vector<Process>& processes) {
  json names = json::array();
  for (const Process& process : processes) names.push_back(Utf8(process.name));
  return names;
}

// Null when it does not come up.
UniqueHandle WaitForProcess(const std::wstring& name) {
  while (!RunDeadline().HasPassed()) {
    for (const Process& process : Processes()) {
      if (process.name != name) continue;
      return UniqueHandle(::OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION | PROCESS_TERMINATE,
                                        FALSE, process.id));
    }
    ::Sleep(10);
  }
  return UniqueHandle();
}

// Null when the program cannot be started.
UniqueHandle Start(const Options& options) {
  if (options.is_link) {
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    start.fMask = SEE_MASK_FLAG_NO_UI;
    start.lpFile = options.program.c_str();
    start.nShow = SW_SHOWNORMAL;
    // Of what a link starts, Wine gives no handle.
    return ::ShellExecuteExW(&start) == FALSE ? UniqueHandle()
                                              : WaitForProcess(L"vantoro_restore.exe");
  }
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (::CreateProcessW(options.program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &start, &process) == FALSE) {
    return UniqueHandle();
  }
  ::CloseHandle(process.hThread);
  return UniqueHandle(process.hProcess);
}

Options Read(int argc, wchar_t** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::wstring argument = argv[i];
    if (argument == L"--link") {
      options.is_link = true;
    } else if (argument == L"--answer") {
      options.restarts = argv[++i] != std::wstring(L"later");
    } else if (argument == L"--cancel-when-held") {
      options.cancels = true;
    } else if (argument == L"--cancel-at") {
      options.cancels = true;
      options.last_line = Utf8(argv[++i]);
    } else {
      options.program = argument;
    }
  }
  return options;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const Options options = Read(argc, argv);
  RunDeadline();
  Tell({{"watching", Utf8(options.program)}});
  // What the program prints is not for those who read what this one does. The C runtime has its
  // handles already.
  for (const DWORD standard : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    ::SetStdHandle(standard, nullptr);
  }
  const UniqueHandle program = Start(options);
  if (!program) {
    Tell({{"start_error", ::GetLastError()}});
    return 1;
  }
  Watch watch(options, ::GetProcessId(program.get()));
  while (::WaitForSingleObject(program.get(), 10) == WAIT_TIMEOUT) {
    if (RunDeadline().HasPassed()) {
      ::TerminateProcess(program.get(), 1);
      std::fprintf(stderr, "the program did not end\n");
      return 1;
    }
    watch.Look();
  }
  // What the system says, whatever a program's manifest makes of it.
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  const auto get_version = reinterpret_cast<LONG(WINAPI*)(OSVERSIONINFOW*)>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll"), "RtlGetVersion")));
  if (get_version != nullptr) get_version(&version);
  DWORD exit_code = 0;
  ::GetExitCodeProcess(program.get(), &exit_code);
  Tell({{"exit_code", exit_code},
        {"major_version", version.dwMajorVersion},
        {"minor_version", version.dwMinorVersion},
        {"processes", NamesOf(Processes())}});
  return 0;
}
