// The manually controlled clock of a simulated server. The time does not change until it is set or
// advanced.
#ifndef SIMULATOR_MODEL_COMMON_CLOCK_H_
#define SIMULATOR_MODEL_COMMON_CLOCK_H_

#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

namespace simulator {

class Clock {
 public:
  // Returns the milliseconds since the Unix epoch. The server's time zone is UTC, so that this is
  // also its local time.
  int64_t Milliseconds() const { return milliseconds_.load(); }
  void Set(int64_t milliseconds) {
    milliseconds_.store(milliseconds);
    Tell();
  }
  void Advance(int64_t milliseconds) {
    milliseconds_.fetch_add(milliseconds);
    Tell();
  }

  // Returns the value for GetTickCount, then advances the clock by the tick step, which is 0 at
  // first.
  int64_t ReadTicks() {
    const int64_t step = step_.load();
    const int64_t ticks = milliseconds_.fetch_add(step);
    if (step != 0) Tell();
    return ticks;
  }
  void SetTickStep(int64_t milliseconds) { step_.store(milliseconds); }

  // Sets a function that is called on each thread that changes the time. Call this before another
  // thread uses the clock.
  void OnMove(std::function<void()> listener) { listener_ = std::move(listener); }

 private:
  void Tell() const {
    if (listener_) listener_();
  }

  // 2024-03-05 08:07:06.
  std::atomic<int64_t> milliseconds_{1709626026000};
  std::atomic<int64_t> step_{0};
  std::function<void()> listener_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_CLOCK_H_
