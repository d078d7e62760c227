// Critical sections, known by their addresses.
#ifndef SIMULATOR_MODEL_PROCESSES_CRITICAL_SECTIONS_H_
#define SIMULATOR_MODEL_PROCESSES_CRITICAL_SECTIONS_H_

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <shared_mutex>
#include <thread>
#include <utility>

namespace simulator {

// Windows leaves the wrong use of one undefined; here it aborts with the name of the call: entering
// one that is not initialised or already deleted, leaving one that the thread does not hold,
// deleting one that is held.
class CriticalSections {
 public:
  void Initialize(const void* address);
  void Enter(const void* address);  // again and again by the same thread
  bool TryEnter(const void* address);
  void Leave(const void* address);
  void Delete(const void* address);

  int Live() const;

  // Called on each thread that is about to enter one: it may hold the thread up. Set while no other
  // thread enters.
  void WatchEntering(std::function<void()> watcher) { watcher_ = std::move(watcher); }

 private:
  struct Section {
    std::recursive_mutex mutex;  // a lock that thread checkers see as one
    std::atomic<std::thread::id> owner;
    int depth = 0;
  };

  Section& Find(const void* address, const char* call);

  // Shared while looking up, so that entering different sections orders nothing between threads.
  mutable std::shared_mutex mutex_;
  std::map<const void*, Section> sections_;
  std::function<void()> watcher_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_CRITICAL_SECTIONS_H_
