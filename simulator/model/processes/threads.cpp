#include "simulator/model/processes/threads.h"

#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/process_objects.h"

namespace simulator {

std::shared_ptr<Object> Threads::Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter) {
  // Whoever polls for what the thread does first moves the steered clock with every Sleep: by next
  // to nothing, however long the machine takes until the thread runs.
  const auto runs = std::make_shared<std::atomic<bool>>(false);
  threads_.Start([routine, parameter, runs] {
    *runs = true;
    runs->notify_one();
    routine(parameter);
  });
  runs->wait(false);
  return std::make_shared<ThreadObject>();
}

ThreadState& Threads::State() const {
  struct Kept {
    uint64_t of = 0;
    ThreadState state;
  };
  static thread_local Kept kept;
  const uint64_t states = states_;
  if (kept.of != states) kept = {states, {}};
  return kept.state;
}

void Threads::ForgetStates() {
  static std::atomic<uint64_t> last = 0;
  states_ = ++last;
}

}  // namespace simulator
