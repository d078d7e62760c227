#include "simulator/model/processes/critical_sections.h"

#include <string>

#include "simulator/model/common/unsupported.h"

namespace simulator {

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
