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

// A program. It runs on a thread of its own, writes through the child process that it receives, and
// returns the exit code. It has to end soon after `child.Terminated()` returns true.
using Program = std::function<DWORD(Server& server, ChildProcess& child)>;

// The parameters of a child process.
struct ChildStart {
  std::string program;  // its path or name; as the command line, UTF-8
  std::string command_line;
  std::vector<std::shared_ptr<Object>> inherited;  // all inheritable handles
  // The standard handles; null if there is none that can be written to.
  std::shared_ptr<PipeWriteEnd> output;
  std::shared_ptr<PipeWriteEnd> error;
  // Members of STARTUPINFO, as the child's GetStartupInfo returns them.
  DWORD flags = 0;
  WORD show_window = 0;
};

// A running child. Thread-safe.
class ChildProcess {
 public:
  // Functions for the child's own program.

  const std::string& CommandLine() const { return command_line_; }
  // Returns the command line split as the C runtime does it, without quotation marks; [0] is the
  // program.
  std::vector<std::string> Arguments() const;
  DWORD StartFlags() const { return start_flags_; }
  WORD ShowWindow() const { return show_window_; }

  // Each call is one write, which waits while the pipe is full. Has no effect if the handle is
  // closed, its reader is closed, or the child is terminated.
  void WriteOutput(std::string_view bytes);
  void WriteError(std::string_view bytes);

  // Closes every inherited handle, as a program may do itself. The child continues to run.
  void CloseHandles();

  // Waits until the child has been terminated.
  void WaitUntilTerminated();
  bool Terminated() const { return stop_.stop_requested(); }

  // Functions for the owner of the child's handle.

  DWORD ProcessId() const { return process_id_; }
  DWORD ExitCode() const;  // STILL_ACTIVE while it runs
  // Terminates the child and closes its handles at once. Returns ERROR_ACCESS_DENIED if the child
  // has already ended.
  DWORD Terminate(DWORD exit_code);

 private:
  friend class Processes;

  ChildProcess(ChildStart start, DWORD process_id);
  void Write(const std::shared_ptr<PipeWriteEnd>& standard, std::string_view bytes);
  // Sets the exit code before it closes the handles, so that a reader that has seen the end of the
  // output can read the exit code. Returns false if the child already has an exit code; otherwise
  // returns true.
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
  ~Processes();  // terminates the children that still run and waits for them

  // Adds `name` (without folder and ".exe", in any case) to the search path. Replaces an existing
  // program of that name.
  void Install(std::string_view name, Program program);
  void Uninstall(std::string_view name);

  // Starts a program, whose folder, ".exe" and case are ignored. Returns null if it is not
  // installed.
  std::shared_ptr<ChildProcess> Start(ChildStart start);

  // Returns the command lines of all children started, in order.
  std::vector<std::string> Started() const;

  // Terminates all running children, and from now on every new child as soon as it starts.
  void TerminateAll();
  // From now on, new children are no longer terminated.
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
