// One function on a thread of its own.
#ifndef THREAD_THREAD_H_
#define THREAD_THREAD_H_

#include <cstdint>

namespace thread {

class Thread {
 public:
  // Takes one pointer-sized argument; its result is the exit code.
  using Function = uint32_t (*)(void* argument);

  Thread() = default;
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;
  virtual ~Thread() = default;

  // Returns once the new thread has begun; false when it cannot be made. May be called again once
  // IsFinished is true.
  [[nodiscard]] virtual bool Start(Function function, void* argument) = 0;
  virtual bool IsStarted() const = 0;
  // Stores the function's result in `exit_code`, which may be null; 0xFFFFFFFF until it is there.
  virtual bool IsFinished(uint32_t* exit_code) const = 0;
};

}  // namespace thread

#endif  // THREAD_THREAD_H_
