// The program's own file, run, looked at and cancelled as a person would.
#include <windows.h>

#include <gtest/gtest.h>
#include <tlhelp32.h>

#include <array>
#include <functional>

#include "common/owner.h"
#include "support/dialog_windows.h"
#include "support/hang.h"
#include "ui/resource.h"

namespace ui {
namespace {

// Returns false if it hangs.
bool WaitUntil(const std::function<bool()>& holds) {
  const ULONGLONG begin = ::GetTickCount64();
  while (!holds()) {
    if (::GetTickCount64() - begin > tests::kHangMilliseconds) return false;
    ::Sleep(10);
  }
  return true;
}

DWORD ExitCodeOf(HANDLE process) {
  EXPECT_EQ(::WaitForSingleObject(process, tests::kHangMilliseconds), DWORD{WAIT_OBJECT_0});
  DWORD code = 0;
  EXPECT_TRUE(::GetExitCodeProcess(process, &code));
  return code;
}

// The process of that name that `parent` has started; 0 when there is none.
DWORD ChildOf(DWORD parent, const wchar_t* name) {
  const common::UniqueHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  for (BOOL more = ::Process32FirstW(snapshot.get(), &entry); more;
       more = ::Process32NextW(snapshot.get(), &entry)) {
    if (entry.th32ParentProcessID == parent && ::lstrcmpiW(entry.szExeFile, name) == 0) {
      return entry.th32ProcessID;
    }
  }
  return 0;
}

// The dialog of a process, once it shows one.
HWND DialogOf(DWORD process) {
  struct Search {
    DWORD process;
    HWND found;
  } search{process, nullptr};
  ::EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner != wanted.process || !::IsWindowVisible(window)) return TRUE;
        if (::GetDlgItem(window, IDC_LOG) == nullptr) return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

TEST(Program, IsCancelledWithItsTool) {
  const tests::HeldTools tools;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION information{};
  std::array<wchar_t, MAX_PATH> file{};
  ::GetFullPathNameW(PROGRAM_FILE, static_cast<DWORD>(file.size()), file.data(), nullptr);
  ASSERT_TRUE(::CreateProcessW(file.data(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &information));
  const common::UniqueHandle process(information.hProcess);
  const common::UniqueHandle thread(information.hThread);

  HWND dialog = nullptr;
  EXPECT_TRUE(WaitUntil([&] {
    dialog = DialogOf(information.dwProcessId);
    return dialog != nullptr;
  }));
  EXPECT_TRUE(tests::TextOf(dialog).starts_with(
      L"Vantoro Restore Tool 1.1.0.1 - RestoreDisks 0.00%  Time: "));
  DWORD tool_id = 0;
  EXPECT_TRUE(WaitUntil([&] {
    tool_id = ChildOf(information.dwProcessId, L"bcdedit.exe");
    return tool_id != 0;
  }));
  const common::UniqueHandle tool(
      ::OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, tool_id));
  EXPECT_NE(tool.get(), nullptr);

  ::PostMessageW(::GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0);
  HWND box = nullptr;
  EXPECT_TRUE(WaitUntil([&] {
    box = tests::BoxOf(dialog);
    return box != nullptr;
  }));
  EXPECT_EQ(tests::Look(box).text, L"Vantoro Restore Is Running, Are You Sure To Cancel?");
  ::PostMessageW(box, WM_COMMAND, IDOK, 0);
  EXPECT_EQ(ExitCodeOf(process.get()), 0U);
  EXPECT_EQ(ExitCodeOf(tool.get()), 1U);
  ::TerminateProcess(process.get(), 3);
}

}  // namespace
}  // namespace ui
