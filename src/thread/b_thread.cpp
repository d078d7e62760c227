#include "thread/b_thread.h"

namespace thread {

// Owned by the new thread.
struct BThread::StartBlock {
  Function function;
  void* argument;
  std::shared_ptr<State> state;
};

bool BThread::Start(Function function, void* argument) {
  state_ = std::make_shared<State>();
  handle_ = nullptr;

  auto block = std::make_unique<StartBlock>(StartBlock{function, argument, state_});
  // The block is the new thread's; it stays allocated when there is none.
  handle_ = ::CreateThread(nullptr, 0, &BThread::Run, block.release(), 0, nullptr);
  if (handle_ == nullptr) return false;

  while (!state_->started) ::Sleep(1);
  return true;
}

bool BThread::IsStarted() const { return state_->started; }

bool BThread::IsFinished(uint32_t* exit_code) const {
  // The flag first: a thread that ends in between must not show as finished with no exit code.
  const bool finished = state_->finished;
  if (exit_code != nullptr) *exit_code = state_->exit_code;
  return finished;
}

DWORD WINAPI BThread::Run(LPVOID parameter) {
  const std::unique_ptr<StartBlock> block(static_cast<StartBlock*>(parameter));
  block->state->started = true;
  block->state->exit_code = block->function(block->argument);
  block->state->finished = true;
  return 0;
}

}  // namespace thread
