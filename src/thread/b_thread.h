// The thread over CreateThread.
#ifndef THREAD_B_THREAD_H_
#define THREAD_B_THREAD_H_

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <memory>

#include "thread/thread.h"

namespace thread {

// Neither waits for its thread nor closes its handle when it goes: the program holds one such
// object for its whole life. The flags and the exit code are read by any thread while the new one
// writes them; whoever sees it finished sees its exit code. They live as long as the thread or the
// object needs them, so an object that goes too early does no harm.
class BThread : public Thread {
 public:
  [[nodiscard]] bool Start(Function function, void* argument) override;
  bool IsStarted() const override;
  bool IsFinished(uint32_t* exit_code) const override;

 private:
  struct State {
    std::atomic<bool> started = false;
    std::atomic<bool> finished = false;
    std::atomic<uint32_t> exit_code = 0xFFFFFFFF;
  };
  struct StartBlock;

  static DWORD WINAPI Run(LPVOID parameter);

  HANDLE handle_ = nullptr;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace thread

#endif  // THREAD_B_THREAD_H_
