// The implementation of Thread with CreateThread.
#ifndef THREAD_B_THREAD_H_
#define THREAD_B_THREAD_H_

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <memory>

#include "thread/thread.h"

namespace thread {

// The destructor neither waits for the thread nor closes its handle. The flags and the exit code
// may be read by any thread while the new thread writes them; if IsFinished returns true, the exit
// code is valid. They exist until both the thread and the object have ended, so the object may be
// destroyed while the thread runs.
class BThread : public Thread {
 public:
  [[nodiscard]] bool Start(Function function, void* argument) override;
  bool IsStarted() const override;
  bool IsFinished(uint32_t* exit_code) const override;

 private:
  struct State {
    std::atomic<bool> started = false;
    std::atomic<bool> finished = false;
    // Oddity: code 0xFFFFFFFF, see docs/oddities.md.
    std::atomic<uint32_t> exit_code = 0xFFFFFFFF;
  };
  struct StartBlock;

  static DWORD WINAPI Run(LPVOID parameter);

  HANDLE handle_ = nullptr;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace thread

#endif  // THREAD_B_THREAD_H_
