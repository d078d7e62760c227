// Runs one function on a new thread.
#ifndef THREAD_THREAD_H_
#define THREAD_THREAD_H_

#include <cstdint>

namespace thread {

class Thread {
 public:
  // Takes one pointer-sized argument and returns the exit code.
  using Function = uint32_t (*)(void* argument);

  Thread() = default;
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;
  virtual ~Thread() = default;

  // Returns true when the new thread has started, false if it cannot be created. May be called
  // again after IsFinished has returned true.
  [[nodiscard]] virtual bool Start(Function function, void* argument) = 0;
  virtual bool IsStarted() const = 0;
  // Returns true if the function has returned. Stores its result in `exit_code`, which may be null,
  // or 0xFFFFFFFF while the function runs.
  virtual bool IsFinished(uint32_t* exit_code) const = 0;
};

}  // namespace thread

#endif  // THREAD_THREAD_H_
