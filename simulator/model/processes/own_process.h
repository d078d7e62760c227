// The simulated process that the program itself runs in.
#ifndef SIMULATOR_MODEL_PROCESSES_OWN_PROCESS_H_
#define SIMULATOR_MODEL_PROCESSES_OWN_PROCESS_H_

#include <windows.h>

#include <atomic>
#include <functional>
#include <stop_token>
#include <thread>

namespace simulator {

class Server;

// The module handle of the program, which its entry point receives as the instance.
inline HINSTANCE ProgramModule() { return reinterpret_cast<HINSTANCE>(UINT_PTR{0x1'4000'0000}); }

// The process exists from the start, so that tests may call functions without a run. Once it has
// ended, every numbered call fails with ERROR_PROCESS_ABORTED, or EIO in the C runtime; it changes
// nothing and is not recorded. Output of the program is discarded, and every waiting call returns.
// This way the threads of the program come to their ends, and the server remains unchanged. Handles
// stay open for inspection.
class OwnProcess {
 public:
  explicit OwnProcess(Server& server) : server_(server) {}

  // Runs the program's entry point on the calling thread until it returns or calls ExitProcess,
  // then ends the process and returns the exit code. By then all threads have ended and the
  // children have been terminated, although Windows would leave children running. A further run is
  // that of a new process: no handle is open, no thread has a language set, and privileges are as
  // at first.
  int Run(const std::function<int()>& entry);

  // For ExitProcess, only on the thread of the entry point. Leaves by throwing an internal
  // exception: destructors run that do not run on Windows, and the calls that they make fail.
  [[noreturn]] void Exit(UINT exit_code);

  // SetErrorMode's flags. A new process has none.
  UINT error_mode() const { return error_mode_; }
  UINT SetErrorMode(UINT mode) { return error_mode_.exchange(mode); }  // returns the previous ones

  // Ends the process at its current point, as termination by another process or a power failure
  // does. Called on any thread of the program; returns to the caller. Run returns once all threads
  // have ended. GetMessage on the thread of the entry point, which the program would otherwise call
  // endlessly, leaves the entry point.
  void BreakOff();
  // Returns to Run if the process was broken off and the calling thread is that of the entry point.
  void LeaveWhenBrokenOff();

  bool HasEnded() const { return end_.stop_requested(); }
  // The token that is requested at the end of the process, for calls that wait.
  std::stop_token Ending() const { return end_.get_token(); }

 private:
  void End();
  void Renew();

  Server& server_;
  std::stop_source end_;
  std::atomic<bool> broken_off_ = false;
  std::atomic<UINT> error_mode_ = 0;
  std::thread::id runner_;  // the thread of the entry point while it runs
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_OWN_PROCESS_H_
