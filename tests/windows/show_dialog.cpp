// Shows the program's dialog in a state of its run and keeps it there, for somebody to look at.
//   show_dialog STATE    running, cancelling, failed or finished
// Prints "shown" once the state can be seen, and ends when its standard input does. The run itself
// does not get on: its first tool, bcdedit, is one from the search path that lasts.
#include <windows.h>

#include <cstdio>
#include <string>

#include "common/win/child_process_list.h"
#include "restore/messages.h"
#include "ui/application.h"

namespace {

constexpr UINT_PTR kClockTimer = 1001;
constexpr int kSeconds = 65;

void PostEnd(HWND dialog, LPARAM result) {
  ::PostMessageW(dialog, restore::WM_RESTORE_STATE,
                 static_cast<WPARAM>(restore::RestoreState::kEnded), result);
}

// Until the dialog's box can be seen.
HWND WaitForBox(HWND dialog) {
  for (;;) {
    const HWND box = ::GetLastActivePopup(dialog);
    if (box != dialog && ::IsWindowVisible(box)) return box;
    ::Sleep(10);
  }
}

// Posts what the run would have posted by then. Gives the window that is in front at the end.
HWND BringAbout(HWND dialog, const std::wstring& state) {
  ::SetForegroundWindow(dialog);
  for (const char* line :
       {"Restore [c:\\]...", "junction restore done!", "acl restore done!", "Restore [d:\\]..."}) {
    restore::PostLogLine("%s\r\n", line);
  }
  restore::ReportProgress(37.5);
  for (int second = 0; second < kSeconds; ++second) {
    ::SendMessageW(dialog, WM_TIMER, kClockTimer, 0);
  }
  if (state == L"cancelling") {
    ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  } else if (state == L"failed") {
    PostEnd(dialog, 1);
  } else if (state == L"finished") {
    PostEnd(dialog, 0);
  } else {
    return dialog;
  }
  return WaitForBox(dialog);
}

DWORD WINAPI Show(LPVOID state) {
  while (restore::GetDialog() == nullptr || !::IsWindowVisible(restore::GetDialog())) ::Sleep(10);
  const HWND front = BringAbout(restore::GetDialog(), static_cast<const wchar_t*>(state));
  ::RedrawWindow(front, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  std::puts("shown");
  std::fflush(stdout);

  while (std::getchar() != EOF) {
  }
  common::win::ChildProcessList::Instance().ForEach(
      [](HANDLE child) { ::TerminateProcess(child, 1); });
  ::ExitProcess(0);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR command_line, int show_command) {
  if (::CreateThread(nullptr, 0, &Show, command_line, 0, nullptr) == nullptr) return 2;
  return ui::RunApplication(instance, show_command);
}
