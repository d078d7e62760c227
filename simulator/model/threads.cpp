#include "simulator/model/threads.h"

namespace simulator {

std::shared_ptr<Object> Threads::Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter) {
  threads_.Start([routine, parameter] { routine(parameter); });
  return std::make_shared<Thread>();
}

}  // namespace simulator
