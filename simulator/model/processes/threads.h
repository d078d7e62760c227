// Threads and critical sections of the simulated process.
#ifndef SIMULATOR_MODEL_PROCESSES_THREADS_H_
#define SIMULATOR_MODEL_PROCESSES_THREADS_H_

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <thread>
#include <utility>

#include "simulator/model/processes/thread_group.h"

namespace simulator {

class Object;

// The state that the system keeps for each thread of the simulated process.
struct ThreadState {
  std::optional<LANGID> ui_language;
  std::optional<LANGID> locale;
  int com_uses = 0;  // CoInitialize calls minus CoUninitialize calls
};

// Critical sections, identified by their addresses. On Windows, incorrect use of a critical section
// is undefined. Here it aborts with the name of the call: entering a critical section that is not
// initialized or already deleted, leaving one that the thread does not own, or deleting one that is
// owned.
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

// Thread-safe. The destructor waits for every thread started.
class Threads {
 public:
  Threads() { ForgetStates(); }

  // Starts a thread and returns its object, for a handle.
  std::shared_ptr<Object> Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter);
  void WaitForAll() { threads_.WaitForAll(); }

  // Returns the state of the calling thread, whether or not the program created it.
  ThreadState& State() const;
  void ForgetStates();  // resets the state of every thread

  CriticalSections& critical_sections() { return critical_sections_; }
  // Returns the number of critical sections initialized and not yet deleted.
  int LiveCriticalSections() const { return critical_sections_.Live(); }

 private:
  std::atomic<uint64_t> states_;  // identifies the current states; unique over all servers
  CriticalSections critical_sections_;
  ThreadGroup threads_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_THREADS_H_
