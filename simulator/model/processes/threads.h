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

// Thread-safe. The end waits for every thread started.
class Threads {
 public:
  Threads() { ForgetStates(); }

  // The object of the new thread, for a handle.
  std::shared_ptr<Object> Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter);
  void WaitForAll() { threads_.WaitForAll(); }

  // That of the calling thread, the program's own or another.
  ThreadState& State() const;
  void ForgetStates();  // those of all threads

  CriticalSections& critical_sections() { return critical_sections_; }
  // Critical sections initialised and not yet deleted.
  int LiveCriticalSections() const { return critical_sections_.Live(); }

 private:
  std::atomic<uint64_t> states_;  // of which the states are; no two of all servers are the same
  CriticalSections critical_sections_;
  ThreadGroup threads_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_THREADS_H_
