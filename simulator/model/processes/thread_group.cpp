#include "simulator/model/processes/thread_group.h"

#include <utility>

namespace simulator {

ThreadGroup::~ThreadGroup() {
  WaitForAll();
  for (Entry& entry : entries_) entry.thread.join();
}

void ThreadGroup::Start(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  // Threads that have ended keep their stacks until they are joined.
  entries_.remove_if([](Entry& entry) {
    if (entry.ended) entry.thread.join();
    return entry.ended;
  });
  Entry& entry = entries_.emplace_back();
  entry.thread = std::thread([this, &entry, work = std::move(work)]() mutable {
    work();
    work = nullptr;  // what it holds goes before the end is told
    const std::lock_guard ending(mutex_);
    entry.ended = true;
    if (--working_ == 0) all_ended_.notify_all();
  });
  ++working_;
}

void ThreadGroup::WaitForAll() {
  std::unique_lock lock(mutex_);
  all_ended_.wait(lock, [this] { return working_ == 0; });
}

}  // namespace simulator
