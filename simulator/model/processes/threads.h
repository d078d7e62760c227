// Threads and critical sections of the simulated process.
#ifndef SIMULATOR_MODEL_PROCESSES_THREADS_H_
#define SIMULATOR_MODEL_PROCESSES_THREADS_H_

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "simulator/model/processes/critical_sections.h"
#include "simulator/model/processes/thread_group.h"
#include "simulator/model/processes/thread_state.h"

namespace simulator {

class Object;

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
