// The windows of the simulated process with their messages, and its resources.
#ifndef SIMULATOR_MODEL_DESKTOP_DESKTOP_H_
#define SIMULATOR_MODEL_DESKTOP_DESKTOP_H_

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace simulator {

struct PostedMessage {
  UINT message;
  WPARAM wparam;
  LPARAM lparam;
};

class Clock;
class Dialogs;
struct DialogTemplate;
struct Resources;
struct System;
struct ThreadState;

// Thread-safe.
class Desktop {
 public:
  Desktop(Clock& clock, const System& system);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  Dialogs& dialogs() { return *dialogs_; }
  bool has_progress_states() const;

  // Creates a bare window, which has no window procedure and belongs to no thread. Any thread can
  // take its messages.
  HWND CreateWindow();
  // Destroys a bare window. Its posted messages are discarded, as on Windows.
  void DestroyWindow(HWND window);
  // Returns true if the handle is that of a bare window, a dialog or a control; otherwise returns
  // false.
  bool HasWindow(HWND window) const;

  // Returns ERROR_INVALID_WINDOW_HANDLE if there is no such window, or ERROR_NOT_ENOUGH_QUOTA if
  // 10,000 messages already wait for it.
  DWORD Post(HWND window, const PostedMessage& message);
  // Return the next message of a bare window. Abort if the window is not a bare one.
  std::optional<PostedMessage> Take(HWND window);
  PostedMessage WaitAndTake(HWND window);

  // At first the resources are those of the program's own .rc file. A resource is looked up in the
  // requested language, then in English. Icons have no language.
  void SetString(LANGID language, UINT id, std::string utf8);
  void SetDialog(LANGID language, UINT id, DialogTemplate dialog);
  void SetIcon(UINT id);
  // Returns the language in which resources are looked up for a thread.
  LANGID ResourceLanguage(const ThreadState& thread) const;
  std::optional<std::string> String(LANGID language, UINT id) const;
  // Return ERROR_RESOURCE_TYPE_NOT_FOUND if the program has no resource of that type, or
  // ERROR_RESOURCE_NAME_NOT_FOUND if it has other resources of that type.
  DWORD FindDialog(LANGID language, UINT id, DialogTemplate* dialog) const;
  DWORD FindIcon(UINT id) const;

 private:
  // Called with the lock held.
  std::deque<PostedMessage>& QueueOf(HWND window);

  const System& system_;
  const std::unique_ptr<Dialogs> dialogs_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::map<HWND, std::deque<PostedMessage>> windows_;
  const std::unique_ptr<Resources> resources_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DESKTOP_H_
