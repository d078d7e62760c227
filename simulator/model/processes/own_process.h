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

// The program's own file in memory: the instance that its entry point gets.
inline HINSTANCE ProgramModule() { return reinterpret_cast<HINSTANCE>(UINT_PTR{0x1'4000'0000}); }

// Stands from the start, so that tests may call without a run. Once it has ended, every numbered
// call fails with ERROR_PROCESS_ABORTED, EIO in the C runtime, changes nothing and is not kept, and
// what the program prints is lost; who waits in a call returns. So the threads of the program come
// to their ends, and the server stays as it was. Handles stay open to be looked at.
class OwnProcess {
 public:
  explicit OwnProcess(Server& server) : server_(server) {}

  // Runs the program's entry point on the calling thread until it returns or calls ExitProcess, and
  // ends the process: its threads have ended then, and its children, which Windows would leave
  // running, are terminated. Returns the exit code. A further run is that of a new process: no
  // handle open, no thread's language set, privileges as at first.
  int Run(const std::function<int()>& entry);

  // For ExitProcess, on the thread of the entry point only. Leaves by an exception of its own:
  // destructors run that Windows would leave out, and what they call fails.
  [[noreturn]] void Exit(UINT exit_code);

  // Ends the process where it stands, as somebody who kills it or a power cut would; any thread of
  // the program. Returns to it, and Run returns once all of them have come to their ends:
  // GetMessage on the thread of the entry point, where the program would ask for ever, is left for
  // it.
  void BreakOff();
  // Goes back to Run from the thread of the entry point when the process was broken off.
  void LeaveWhenBrokenOff();

  bool HasEnded() const { return end_.stop_requested(); }
  // Requested at the end: for calls that wait.
  std::stop_token Ending() const { return end_.get_token(); }

 private:
  void End();
  void Renew();

  Server& server_;
  std::stop_source end_;
  std::atomic<bool> broken_off_ = false;
  std::thread::id runner_;  // of the entry point while it runs
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_OWN_PROCESS_H_
