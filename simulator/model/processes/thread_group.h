// A group of threads that can be waited for together.
#ifndef SIMULATOR_MODEL_PROCESSES_THREAD_GROUP_H_
#define SIMULATOR_MODEL_PROCESSES_THREAD_GROUP_H_

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace simulator {

// Thread-safe.
class ThreadGroup {
 public:
  ~ThreadGroup();  // joins every thread

  void Start(std::function<void()> work);

  // Waits until all threads have finished their work. Must not be called on one of these threads.
  void WaitForAll();

 private:
  struct Entry {
    std::thread thread;
    bool ended = false;
  };

  std::mutex mutex_;
  std::condition_variable all_ended_;
  std::list<Entry> entries_;
  int working_ = 0;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_THREAD_GROUP_H_
