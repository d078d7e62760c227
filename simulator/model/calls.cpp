#include "simulator/model/calls.h"

#include <algorithm>
#include <utility>

namespace simulator {

std::optional<uint32_t> Calls::Enter(std::string_view name, std::string arguments) {
  const std::lock_guard lock(mutex_);
  const int number = ++count_;
  if (keeps_trace_) trace_.push_back({number, std::string(name), std::move(arguments)});

  // Every fault of that name counts the call; the one set first decides.
  std::optional<uint32_t> due;
  const auto is_used_up = [&](Fault& fault) {
    if (fault.number > 0 ? number < fault.number : fault.name != name) return false;
    if (fault.remaining > 1) {
      --fault.remaining;
      return false;
    }
    if (!due) due = fault.error;
    return fault.lasting == Lasting::kOnce;
  };
  std::vector<Fault> kept;
  for (Fault& fault : faults_) {
    if (!is_used_up(fault)) kept.push_back(std::move(fault));
  }
  faults_ = std::move(kept);
  return due;
}

void Calls::FailNumber(int number, uint32_t error, Lasting lasting) {
  const std::lock_guard lock(mutex_);
  const bool is_past = number <= count_;
  if (is_past && lasting == Lasting::kOnce) return;
  faults_.push_back({std::max(number, 1), {}, 1, error, lasting});
}

void Calls::FailNext(std::string_view name, uint32_t error, int occurrence, Lasting lasting) {
  const std::lock_guard lock(mutex_);
  faults_.push_back({0, std::string(name), occurrence, error, lasting});
}

void Calls::ClearFaults() {
  const std::lock_guard lock(mutex_);
  faults_.clear();
}

void Calls::Watch(Watcher watcher) { watcher_ = std::move(watcher); }

void Calls::TellWatcher(std::string_view name, const std::string& arguments) const {
  if (watcher_) watcher_(name, arguments);
}

void Calls::KeepTrace(bool keep) {
  const std::lock_guard lock(mutex_);
  keeps_trace_ = keep;
}

std::vector<TracedCall> Calls::Trace() const {
  const std::lock_guard lock(mutex_);
  return trace_;
}

std::vector<std::string> Calls::ArgumentsOf(std::string_view name) const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> arguments;
  for (const TracedCall& call : trace_) {
    if (call.name == name) arguments.push_back(call.arguments);
  }
  return arguments;
}

int Calls::Count() const {
  const std::lock_guard lock(mutex_);
  return count_;
}

}  // namespace simulator
