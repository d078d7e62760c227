#include <algorithm>
#include <mutex>
#include <utility>

#include "simulator/model/server.h"

namespace simulator {
namespace {

struct Fault {
  int number;        // of the run, or 0
  std::string name;  // or empty
  int remaining;     // calls of that name until the fault is due
  uint32_t error;
  Lasting lasting;
};

}  // namespace

struct Calls::Record {
  std::mutex mutex;
  int count = 0;
  bool keeps_trace = true;
  std::vector<TracedCall> trace;
  std::vector<Fault> faults;
  Watcher watcher;
};

Calls::Calls() : record_(std::make_unique<Record>()) {}

Calls::~Calls() = default;

std::optional<uint32_t> Calls::Enter(std::string_view name, std::string arguments) {
  const std::lock_guard lock(record_->mutex);
  const int number = ++record_->count;
  if (record_->keeps_trace) {
    record_->trace.push_back({number, std::string(name), std::move(arguments)});
  }

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
  for (Fault& fault : record_->faults) {
    if (!is_used_up(fault)) kept.push_back(std::move(fault));
  }
  record_->faults = std::move(kept);
  return due;
}

void Calls::FailNumber(int number, uint32_t error, Lasting lasting) {
  const std::lock_guard lock(record_->mutex);
  const bool is_past = number <= record_->count;
  if (is_past && lasting == Lasting::kOnce) return;
  record_->faults.push_back({std::max(number, 1), {}, 1, error, lasting});
}

void Calls::FailNext(std::string_view name, uint32_t error, int occurrence, Lasting lasting) {
  const std::lock_guard lock(record_->mutex);
  record_->faults.push_back({0, std::string(name), occurrence, error, lasting});
}

void Calls::ClearFaults() {
  const std::lock_guard lock(record_->mutex);
  record_->faults.clear();
}

void Calls::Watch(Watcher watcher) { record_->watcher = std::move(watcher); }

void Calls::TellWatcher(std::string_view name, const std::string& arguments) const {
  if (record_->watcher) record_->watcher(name, arguments);
}

void Calls::KeepTrace(bool keep) {
  const std::lock_guard lock(record_->mutex);
  record_->keeps_trace = keep;
}

std::vector<TracedCall> Calls::Trace() const {
  const std::lock_guard lock(record_->mutex);
  return record_->trace;
}

std::vector<std::string> Calls::ArgumentsOf(std::string_view name) const {
  const std::lock_guard lock(record_->mutex);
  std::vector<std::string> arguments;
  for (const TracedCall& call : record_->trace) {
    if (call.name == name) arguments.push_back(call.arguments);
  }
  return arguments;
}

int Calls::Count() const {
  const std::lock_guard lock(record_->mutex);
  return record_->count;
}

}  // namespace simulator
