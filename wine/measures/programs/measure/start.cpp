// From the start of a program to its first painted dialog.
#include <windows.h>

#include <tlhelp32.h>

#include <stdexcept>

#include "wine/measures/programs/measure/measure.h"
#include "wine/programs/process_dialogs.h"

namespace benchmarks {
namespace {

constexpr int64_t kLongest = 20'000'000;  // microseconds
constexpr DWORD kPatience = 5000;         // milliseconds

bool IsPainted(HWND window) {
  if (::GetUpdateRect(window, nullptr, FALSE)) return false;
  for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (::IsWindowVisible(child) && ::GetUpdateRect(child, nullptr, FALSE)) return false;
  }
  return true;
}

int64_t TimeToPaint(HANDLE program, int64_t begin) {
  const DWORD process = ::GetProcessId(program);
  while (Microseconds() - begin < kLongest) {
    for (const HWND dialog : simulator::DialogsOf(process)) {
      if (IsPainted(dialog)) return Microseconds() - begin;
    }
    ::Sleep(1);
  }
  ::TerminateProcess(program, 1);
  throw std::runtime_error("no dialog has come");
}

// The tool that the program waits for would wait on.
void EndChildrenOf(DWORD parent) {
  const common::UniqueFileHandle all(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32First(all.get(), &entry); more != FALSE;
       more = ::Process32Next(all.get(), &entry)) {
    if (entry.th32ParentProcessID != parent) continue;
    const common::UniqueHandle child(
        ::OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, entry.th32ProcessID));
    if (!child) continue;
    ::TerminateProcess(child.get(), 1);
    ::WaitForSingleObject(child.get(), kPatience);
  }
}

int64_t TimeOf(const std::string& path) {
  const int64_t begin = Microseconds();
  const common::UniqueHandle program = StartProgram(path);
  const int64_t time = TimeToPaint(program.get(), begin);
  const DWORD process = ::GetProcessId(program.get());
  ::TerminateProcess(program.get(), 1);
  ::WaitForSingleObject(program.get(), kPatience);
  EndChildrenOf(process);
  return time;
}

}  // namespace

int MeasureStart(const Arguments& arguments) {
  const int rounds = std::stoi(arguments.at(0));
  // The first of each finds nothing in the machine's memory.
  for (int round = -1; round < rounds; ++round) {
    const int64_t program = TimeOf(arguments.at(1));
    const int64_t reference = TimeOf(arguments.at(2));
    if (round < 0) continue;
    Tell("program", program);
    Tell("reference", reference);
  }
  return 0;
}

}  // namespace benchmarks
