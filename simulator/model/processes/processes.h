// Child processes and the programs they run.
#ifndef SIMULATOR_MODEL_PROCESSES_PROCESSES_H_
#define SIMULATOR_MODEL_PROCESSES_PROCESSES_H_

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class ChildProcess;
class Object;
class PipeWriteEnd;
class Server;
class ThreadGroup;

// A program: runs on a thread of its own, writes through the child process it is given and returns
// the exit code. It ends soon after `child.Terminated()` has become true.
using Program = std::function<DWORD(Server& server, ChildProcess& child)>;

// What a child gets from who starts it.
struct ChildStart {
  std::string program;  // its path or name
  std::string command_line;
  std::vector<std::shared_ptr<Object>> inherited;  // all inheritable handles
  // The standard handles; null when there is none that can be written to.
  std::shared_ptr<PipeWriteEnd> output;
  std::shared_ptr<PipeWriteEnd> error;
  // STARTUPINFO's, as the child's GetStartupInfo gives them back.
  DWORD flags = 0;
  WORD show_window = 0;
};

// A running child. Thread-safe.
class ChildProcess {
 public:
  // The inside, as its program sees it.

  const std::string& CommandLine() const { return command_line_; }
  // Split at blanks as the C runtime splits it, quotation marks removed; [0] is the program.
  std::vector<std::string> Arguments() const;
  DWORD StartFlags() const { return start_flags_; }
  WORD ShowWindow() const { return show_window_; }

  // One write each; they block while the pipe is full. Without effect once the handle is closed,
  // its reader is gone, or the child is terminated.
  void WriteOutput(std::string_view bytes);
  void WriteError(std::string_view bytes);

  // Drops every inherited handle, as a program that closes them itself; the child runs on.
  void CloseHandles();

  // Returns when somebody has terminated the child.
  void WaitUntilTerminated();
  bool Terminated() const { return stop_.stop_requested(); }

  // The outside, as who holds its handle sees it.

  DWORD ProcessId() const { return process_id_; }
  DWORD ExitCode() const;  // STILL_ACTIVE while it runs
  // Its handles are dropped at once. ERROR_ACCESS_DENIED when it has ended already.
  DWORD Terminate(DWORD exit_code);

 private:
  friend class Processes;

  ChildProcess(ChildStart start, DWORD process_id);
  void Write(const std::shared_ptr<PipeWriteEnd>& standard, std::string_view bytes);
  // The exit code is there before the handles go: who saw the end of the output finds it. False
  // when the child has one already.
  bool End(DWORD exit_code);

  const std::string command_line_;
  const DWORD start_flags_;
  const WORD show_window_;
  const DWORD process_id_;
  std::stop_source stop_;  // requested when terminated
  mutable std::mutex mutex_;
  std::vector<std::shared_ptr<Object>> inherited_;
  std::shared_ptr<PipeWriteEnd> output_;
  std::shared_ptr<PipeWriteEnd> error_;
  std::optional<DWORD> exit_code_;
};

// Thread-safe.
class Processes {
 public:
  explicit Processes(Server& server);
  ~Processes();  // terminates what still runs and waits for it

  // Makes `name` (no folder, no ".exe"; case does not matter) known in the search path. Replaces
  // what had that name.
  void Install(std::string_view name, Program program);
  void Uninstall(std::string_view name);

  // Null when no such program is installed; folder, ".exe" and case do not matter.
  std::shared_ptr<ChildProcess> Start(ChildStart start);

  // Command lines of all children started, in order.
  std::vector<std::string> Started() const;

  // Terminates what runs and, as soon as it starts, what starts from now on.
  void TerminateAll();
  // Lets children start again as ever.
  void Reopen();

  // Waits until every child has ended.
  void WaitForAll();

 private:
  Server& server_;
  mutable std::mutex mutex_;
  std::map<std::string, Program> programs_;  // by ProgramName
  std::vector<std::string> started_;
  std::vector<std::weak_ptr<ChildProcess>> children_;
  DWORD next_id_ = 4;
  bool closing_ = false;
  const std::unique_ptr<ThreadGroup> threads_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_PROCESSES_H_
