#include "simulator/model/processes/processes.h"

#include <condition_variable>
#include <utility>

#include "simulator/model/common/command_line.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/pipe.h"
#include "simulator/model/processes/thread_group.h"
#include "simulator/model/server.h"

namespace simulator {

ChildProcess::ChildProcess(ChildStart start, DWORD process_id)
    : command_line_(std::move(start.command_line)),
      start_flags_(start.flags),
      show_window_(start.show_window),
      process_id_(process_id),
      inherited_(std::move(start.inherited)),
      output_(std::move(start.output)),
      error_(std::move(start.error)) {}

std::vector<std::string> ChildProcess::Arguments() const { return SplitCommandLine(command_line_); }

void ChildProcess::WriteOutput(std::string_view bytes) { Write(output_, bytes); }

void ChildProcess::WriteError(std::string_view bytes) { Write(error_, bytes); }

void ChildProcess::Write(const std::shared_ptr<PipeWriteEnd>& standard, std::string_view bytes) {
  std::shared_ptr<PipeWriteEnd> end;
  {
    const std::lock_guard lock(mutex_);
    end = standard;
  }
  if (end) end->Write(bytes, stop_.get_token());
}

void ChildProcess::CloseHandles() {
  std::vector<std::shared_ptr<Object>> inherited;  // ends behind the lock
  std::shared_ptr<PipeWriteEnd> output;
  std::shared_ptr<PipeWriteEnd> error;
  const std::lock_guard lock(mutex_);
  inherited.swap(inherited_);
  output.swap(output_);
  error.swap(error_);
}

void ChildProcess::WaitUntilTerminated() {
  std::mutex mutex;
  std::condition_variable_any terminated;
  std::unique_lock lock(mutex);
  terminated.wait(lock, stop_.get_token(), [] { return false; });
}

DWORD ChildProcess::ExitCode() const {
  const std::lock_guard lock(mutex_);
  return exit_code_.value_or(STILL_ACTIVE);
}

DWORD ChildProcess::Terminate(DWORD exit_code) {
  if (!End(exit_code)) return ERROR_ACCESS_DENIED;
  stop_.request_stop();
  return ERROR_SUCCESS;
}

bool ChildProcess::End(DWORD exit_code) {
  {
    const std::lock_guard lock(mutex_);
    if (exit_code_) return false;
    exit_code_ = exit_code;
  }
  CloseHandles();
  return true;
}

Processes::Processes(Server& server) : server_(server), threads_(std::make_unique<ThreadGroup>()) {}

Processes::~Processes() { TerminateAll(); }

void Processes::Install(std::string_view name, Program program) {
  const std::lock_guard lock(mutex_);
  programs_[ProgramName(name)] = std::move(program);
}

void Processes::Uninstall(std::string_view name) {
  const std::lock_guard lock(mutex_);
  programs_.erase(ProgramName(name));
}

std::shared_ptr<ChildProcess> Processes::Start(ChildStart start) {
  std::shared_ptr<ChildProcess> child;
  const std::lock_guard lock(mutex_);
  const auto found = programs_.find(ProgramName(start.program));
  if (found == programs_.end()) return nullptr;
  started_.push_back(start.command_line);
  child.reset(new ChildProcess(std::move(start), next_id_));
  next_id_ += 8;  // a process and its thread
  std::erase_if(children_, [](const auto& other) { return other.expired(); });
  children_.push_back(child);
  if (closing_) child->Terminate(1);
  threads_->Start([this, child, program = found->second] { child->End(program(server_, *child)); });
  return child;
}

std::vector<std::string> Processes::Started() const {
  const std::lock_guard lock(mutex_);
  return started_;
}

void Processes::TerminateAll() {
  std::vector<std::weak_ptr<ChildProcess>> children;
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
    children = children_;
  }
  for (const std::weak_ptr<ChildProcess>& weak : children) {
    if (const std::shared_ptr<ChildProcess> child = weak.lock()) child->Terminate(1);
  }
}

void Processes::Reopen() {
  const std::lock_guard lock(mutex_);
  closing_ = false;
}

void Processes::WaitForAll() { threads_->WaitForAll(); }

}  // namespace simulator
