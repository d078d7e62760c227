// The steered clock of a simulated server: it stands still until somebody moves it.
#ifndef SIMULATOR_MODEL_COMMON_CLOCK_H_
#define SIMULATOR_MODEL_COMMON_CLOCK_H_

#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

namespace simulator {

class Clock {
 public:
  // Milliseconds since the Unix epoch, read as the server's local time: the server's time zone is
  // UTC.
  int64_t Milliseconds() const { return milliseconds_.load(); }
  void Set(int64_t milliseconds) {
    milliseconds_.store(milliseconds);
    Tell();
  }
  void Advance(int64_t milliseconds) {
    milliseconds_.fetch_add(milliseconds);
    Tell();
  }

  // What GetTickCount reads. Every reading moves the clock on by the step, 0 at first.
  int64_t ReadTicks() {
    const int64_t step = step_.load();
    const int64_t ticks = milliseconds_.fetch_add(step);
    if (step != 0) Tell();
    return ticks;
  }
  void SetTickStep(int64_t milliseconds) { step_.store(milliseconds); }

  // Called on the thread that has moved the clock. Set before another thread uses it.
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
