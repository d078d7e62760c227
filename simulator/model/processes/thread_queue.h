// The message queue of one thread.
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

// Returns the calling thread's number. Unlike a thread id, a number is never reused.
uint64_t ThisThread();

inline constexpr size_t kLongestQueue = 10'000;

// Times are those of the simulated clock, in milliseconds.
class ThreadQueue {
 public:
  // Returns false if kLongestQueue messages already wait; otherwise adds the message and returns
  // true.
  bool Post(const MSG& message);
  // Replaces an earlier WM_QUIT that has not been retrieved.
  void Quit(int exit_code) { quit_ = exit_code; }

  // Replaces the timer of that window and id, if there is one.
  void SetTimer(HWND window, UINT_PTR id, UINT milliseconds, int64_t now);
  bool KillTimer(HWND window, UINT_PTR id);

  // Removes the timers and messages of a window. Returns the messages.
  std::vector<MSG> Forget(HWND window);
  // Removes all timers and messages, including WM_QUIT. Returns the posted messages.
  std::vector<MSG> Clear();

  std::optional<MSG> TakePosted();
  std::optional<MSG> TakeQuit();
  // Returns the message of the timer that has been due for longest. Further periods of that timer
  // that have passed in the meantime are skipped.
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
