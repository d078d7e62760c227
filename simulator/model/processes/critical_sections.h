// Critical sections, identified by their addresses.
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

// On Windows, incorrect use of a critical section is undefined. Here it aborts with the name of the
// call: entering a critical section that is not initialized or already deleted, leaving one that
// the thread does not own, or deleting one that is owned.
class CriticalSections {
 public:
  void Initialize(const void* address);
  void Enter(const void* address);  // recursively by the same thread
  bool TryEnter(const void* address);
  void Leave(const void* address);
  void Delete(const void* address);

  int Live() const;

  // Sets a function that is called on each thread that is about to enter a critical section. The
  // function may delay the thread. Set it while no other thread enters.
  void WatchEntering(std::function<void()> watcher) { watcher_ = std::move(watcher); }

 private:
  struct Section {
    std::recursive_mutex mutex;  // a lock that ThreadSanitizer recognizes
    std::atomic<std::thread::id> owner;
    int depth = 0;
  };

  Section& Find(const void* address, const char* call);

  // Locked shared for look-ups, so that entering different sections does not order threads.
  mutable std::shared_mutex mutex_;
  std::map<const void*, Section> sections_;
  std::function<void()> watcher_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_CRITICAL_SECTIONS_H_
