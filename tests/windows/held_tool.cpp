// Stands in for a tool of the system that takes long: it ends when it is terminated, or by itself
// two minutes after the process that started it has ended without doing so. Graphical, since the
// console of one that is ended while it starts would keep its output open.
#include <windows.h>

#include <tlhelp32.h>

namespace {

// The process that started this one; null if it has ended.
HANDLE Parent() {
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  HANDLE parent = nullptr;
  for (BOOL more = ::Process32FirstW(snapshot, &entry); more != FALSE;
       more = ::Process32NextW(snapshot, &entry)) {
    if (entry.th32ProcessID != ::GetCurrentProcessId()) continue;
    parent = ::OpenProcess(SYNCHRONIZE, FALSE, entry.th32ParentProcessID);
  }
  ::CloseHandle(snapshot);
  return parent;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  if (const HANDLE parent = Parent()) ::WaitForSingleObject(parent, INFINITE);
  ::Sleep(120 * 1000);
  return 2;
}
