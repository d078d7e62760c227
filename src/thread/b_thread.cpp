#include "thread/b_thread.h"

#include <memory>

namespace thread {

// Owned by the new thread.
struct BThread::StartBlock {
  Function function;
  void* argument;
  std::atomic<bool>* started;
  std::atomic<bool>* finished;
  std::atomic<uint32_t>* exit_code;
};

bool BThread::Start(Function function, void* argument) {
  exit_code_ = 0xFFFFFFFF;
  handle_ = nullptr;
  started_ = false;
  finished_ = false;

  auto block = std::make_unique<StartBlock>(
      StartBlock{function, argument, &started_, &finished_, &exit_code_});
  // The block is the new thread's; it stays allocated when there is none.
  handle_ = ::CreateThread(nullptr, 0, &BThread::Run, block.release(), 0, nullptr);
  if (handle_ == nullptr) return false;

  while (!started_) ::Sleep(1);
  return started_;
}

bool BThread::IsStarted() const { return started_; }

bool BThread::IsFinished(uint32_t* exit_code) const {
  // The flag first: a thread that ends in between must not show as finished with no exit code.
  const bool finished = finished_;
  if (exit_code != nullptr) *exit_code = exit_code_;
  return finished;
}

DWORD WINAPI BThread::Run(LPVOID parameter) {
  const std::unique_ptr<StartBlock> block(static_cast<StartBlock*>(parameter));
  *block->started = true;
  *block->exit_code = block->function(block->argument);
  // From here on the owner may destroy the object that the block points to.
  *block->finished = true;
  return 0;
}

}  // namespace thread
