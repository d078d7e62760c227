#include "simulator/model/processes/threads.h"

#include <string>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/process_objects.h"

namespace simulator {

std::shared_ptr<Object> Threads::Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter) {
  // Whoever polls for what the thread does first moves the steered clock with every Sleep: by next
  // to nothing, however long the machine takes until the thread runs.
  const auto runs = std::make_shared<std::atomic<bool>>(false);
  threads_.Start([routine, parameter, runs] {
    *runs = true;
    runs->notify_one();
    routine(parameter);
  });
  runs->wait(false);
  return std::make_shared<ThreadObject>();
}

ThreadState& Threads::State() const {
  struct Kept {
    uint64_t of = 0;
    ThreadState state;
  };
  static thread_local Kept kept;
  const uint64_t states = states_;
  if (kept.of != states) kept = {states, {}};
  return kept.state;
}

void Threads::ForgetStates() {
  static std::atomic<uint64_t> last = 0;
  states_ = ++last;
}

void CriticalSections::Initialize(const void* address) {
  const std::lock_guard lock(mutex_);
  if (!sections_.try_emplace(address).second) {
    Unsupported("InitializeCriticalSection of one that is initialised");
  }
}

void CriticalSections::Enter(const void* address) {
  if (watcher_) watcher_();
  Section& section = Find(address, "EnterCriticalSection");
  section.mutex.lock();
  ++section.depth;
  section.owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
}

bool CriticalSections::TryEnter(const void* address) {
  Section& section = Find(address, "TryEnterCriticalSection");
  if (!section.mutex.try_lock()) return false;
  ++section.depth;
  section.owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
  return true;
}

void CriticalSections::Leave(const void* address) {
  Section& section = Find(address, "LeaveCriticalSection");
  if (section.owner.load(std::memory_order_relaxed) != std::this_thread::get_id()) {
    Unsupported("LeaveCriticalSection of one that the thread does not hold");
  }
  if (--section.depth == 0) section.owner.store({}, std::memory_order_relaxed);
  section.mutex.unlock();
}

void CriticalSections::Delete(const void* address) {
  const Section& section = Find(address, "DeleteCriticalSection");
  if (section.owner.load(std::memory_order_relaxed) != std::thread::id()) {
    Unsupported("DeleteCriticalSection of one that is held");
  }
  const std::lock_guard lock(mutex_);
  sections_.erase(address);
}

int CriticalSections::Live() const {
  const std::shared_lock lock(mutex_);
  return static_cast<int>(sections_.size());
}

CriticalSections::Section& CriticalSections::Find(const void* address, const char* call) {
  const std::shared_lock lock(mutex_);
  const auto found = sections_.find(address);
  if (found == sections_.end()) Unsupported(std::string(call) + " of one that is not initialised");
  return found->second;
}

}  // namespace simulator
