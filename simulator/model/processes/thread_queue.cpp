#include "simulator/model/processes/thread_queue.h"

#include <algorithm>
#include <atomic>

namespace simulator {

uint64_t ThisThread() {
  static std::atomic<uint64_t> next = 1;
  thread_local const uint64_t number = next++;
  return number;
}

bool ThreadQueue::Post(const MSG& message) {
  if (posted_.size() >= kLongestQueue) return false;
  posted_.push_back(message);
  return true;
}

void ThreadQueue::SetTimer(HWND window, UINT_PTR id, UINT milliseconds, int64_t now) {
  constexpr UINT kShortest = 10;
  constexpr UINT kLongest = 0x7FFFFFFF;
  const int64_t period = std::clamp(milliseconds, kShortest, kLongest);
  timers_[{window, id}] = {period, now + period};
}

bool ThreadQueue::KillTimer(HWND window, UINT_PTR id) { return timers_.erase({window, id}) > 0; }

std::vector<MSG> ThreadQueue::Forget(HWND window) {
  const auto others =
      std::stable_partition(posted_.begin(), posted_.end(),
                            [window](const MSG& message) { return message.hwnd == window; });
  std::vector<MSG> lost(posted_.begin(), others);
  posted_.erase(posted_.begin(), others);
  std::erase_if(timers_, [window](const auto& timer) { return timer.first.first == window; });
  return lost;
}

std::vector<MSG> ThreadQueue::Clear() {
  std::vector<MSG> lost(posted_.begin(), posted_.end());
  *this = {};
  return lost;
}

std::optional<MSG> ThreadQueue::TakePosted() {
  if (posted_.empty()) return std::nullopt;
  const MSG message = posted_.front();
  posted_.pop_front();
  return message;
}

std::optional<MSG> ThreadQueue::TakeQuit() {
  if (!quit_) return std::nullopt;
  MSG message{};
  message.message = WM_QUIT;
  message.wParam = static_cast<WPARAM>(*quit_);
  quit_.reset();
  return message;
}

std::optional<MSG> ThreadQueue::TakeTimer(int64_t now) {
  const auto first =
      std::min_element(timers_.begin(), timers_.end(),
                       [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
  if (first == timers_.end() || first->second.due > now) return std::nullopt;
  Timer& timer = first->second;
  timer.due += ((now - timer.due) / timer.period + 1) * timer.period;
  MSG message{};
  message.hwnd = first->first.first;
  message.message = WM_TIMER;
  message.wParam = first->first.second;
  return message;
}

bool ThreadQueue::HasTimerDue(int64_t now) const {
  return std::any_of(timers_.begin(), timers_.end(),
                     [now](const auto& timer) { return timer.second.due <= now; });
}

}  // namespace simulator
