// A whole run of the program, with somebody who answers at once.
#include <stdexcept>

#include "ui/resource.h"
#include "wine/measures/programs/measure/measure.h"
#include "wine/programs/process_dialogs.h"

namespace benchmarks {
namespace {

// Windows are looked for this often.
constexpr DWORD kMilliseconds = 20;
constexpr int64_t kLongest = 120'000'000;  // microseconds

bool IsBox(HWND dialog) { return ::GetDlgItem(dialog, IDC_PROGRESS) == nullptr; }

}  // namespace

int MeasureWholeRun(const Arguments& arguments) {
  const int64_t begin = Microseconds();
  const common::UniqueHandle program = StartProgram(arguments.at(0));
  const DWORD process = ::GetProcessId(program.get());
  while (::WaitForSingleObject(program.get(), kMilliseconds) == WAIT_TIMEOUT) {
    for (const HWND dialog : simulator::DialogsOf(process)) {
      if (IsBox(dialog)) ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    }
    if (Microseconds() - begin > kLongest) {
      ::TerminateProcess(program.get(), 1);
      throw std::runtime_error("the program has not ended");
    }
  }
  Tell("program", Microseconds() - begin);
  return 0;
}

}  // namespace benchmarks
