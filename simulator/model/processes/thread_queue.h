// The messages that wait for one thread.
#ifndef SIMULATOR_MODEL_PROCESSES_THREAD_QUEUE_H_
#define SIMULATOR_MODEL_PROCESSES_THREAD_QUEUE_H_

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace simulator {

// The calling thread's number. Unlike a thread's id none is used twice.
uint64_t ThisThread();

inline constexpr size_t kLongestQueue = 10'000;

// Times are the clock's, in milliseconds.
class ThreadQueue {
 public:
  // False once kLongestQueue messages wait.
  bool Post(const MSG& message);
  // In the place of an earlier one that has not been taken.
  void Quit(int exit_code) { quit_ = exit_code; }

  // In the place of the timer of that window and id.
  void SetTimer(HWND window, UINT_PTR id, UINT milliseconds, int64_t now);
  bool KillTimer(HWND window, UINT_PTR id);

  // The window's timers and messages go. Returns the messages.
  std::vector<MSG> Forget(HWND window);
  // All timers and messages go, WM_QUIT as well. Returns those that were posted.
  std::vector<MSG> Clear();

  std::optional<MSG> TakePosted();
  std::optional<MSG> TakeQuit();
  // Of the timers that are due the one that has been for longest. What it missed meanwhile is lost.
  std::optional<MSG> TakeTimer(int64_t now);

  bool HasPosted() const { return !posted_.empty(); }
  bool HasQuit() const { return quit_.has_value(); }
  bool HasTimerDue(int64_t now) const;

 private:
  struct Timer {
    int64_t period;
    int64_t due;
  };

  std::deque<MSG> posted_;
  std::optional<int> quit_;
  std::map<std::pair<HWND, UINT_PTR>, Timer> timers_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_THREAD_QUEUE_H_
