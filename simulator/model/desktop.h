// Dialogs and bare windows with their messages, message boxes answered by rule, and resources.
#ifndef SIMULATOR_MODEL_DESKTOP_H_
#define SIMULATOR_MODEL_DESKTOP_H_

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "simulator/model/dialogs.h"
#include "simulator/model/resources.h"
#include "simulator/model/system.h"

namespace simulator {

struct PostedMessage {
  UINT message;
  WPARAM wparam;
  LPARAM lparam;
};

struct ShownMessageBox {
  HWND owner;
  std::string text;
  std::string caption;
  UINT type;
  int answer;
};

// Thread-safe.
class Desktop {
 public:
  Desktop(Clock& clock, const System& system);

  Dialogs& dialogs() { return dialogs_; }
  bool has_progress_states() const { return system_.major_version >= 6; }

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

  // The answer of every box from now on; IDOK without a rule. The rule runs on the thread that
  // shows the box. An answer that the box has no button for aborts.
  void AnswerBoxes(std::function<int(const ShownMessageBox&)> rule);
  int Show(ShownMessageBox box);
  std::vector<ShownMessageBox> Boxes() const;

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
  Dialogs dialogs_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::map<HWND, std::deque<PostedMessage>> windows_;
  std::function<int(const ShownMessageBox&)> rule_;
  std::vector<ShownMessageBox> boxes_;
  Resources resources_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_H_
