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

// Thread-safe.
class Desktop {
 public:
  Desktop(Clock& clock, const System& system);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  Dialogs& dialogs() { return *dialogs_; }
  bool has_progress_states() const;

  // A bare window, without a procedure and of no thread: whoever takes them gets its messages.
  HWND CreateWindow();
  // What is still posted to it is lost, as on Windows.
  void DestroyWindow(HWND window);
  // A bare one, a dialog or a control.
  bool HasWindow(HWND window) const;

  // ERROR_INVALID_WINDOW_HANDLE for a window that is not there, ERROR_NOT_ENOUGH_QUOTA once
  // 10,000 messages wait in it.
  DWORD Post(HWND window, const PostedMessage& message);
  // Taking from anything but a bare window aborts.
  std::optional<PostedMessage> Take(HWND window);
  PostedMessage WaitAndTake(HWND window);

  // Resources are those of the program's own .rc at first. One is found in the language asked for,
  // else in English; icons have no language.
  void SetString(LANGID language, UINT id, std::string utf8);
  void SetDialog(LANGID language, UINT id, DialogTemplate dialog);
  void SetIcon(UINT id);
  std::optional<std::string> String(LANGID language, UINT id) const;
  // ERROR_RESOURCE_TYPE_NOT_FOUND when the program has no resource of that kind,
  // ERROR_RESOURCE_NAME_NOT_FOUND when it has others.
  DWORD FindDialog(LANGID language, UINT id, DialogTemplate* dialog) const;
  DWORD FindIcon(UINT id) const;

 private:
  // With the lock held.
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
