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
  // Oddity: handles left open, see docs/oddities.md.
  handle_ = ::CreateThread(nullptr, 0, &BThread::Run, block.release(), 0, nullptr);
  if (handle_ == nullptr) return false;

  while (!state_->started) ::Sleep(1);
  return true;
}

bool BThread::IsStarted() const { return state_->started; }

bool BThread::IsFinished(uint32_t* exit_code) const {
  // Read before the exit code: if the thread ends between the two reads, it must not be reported as
  // finished without its exit code.
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
