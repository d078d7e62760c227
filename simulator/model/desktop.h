// Windows with their posted messages, message boxes answered by rule, and string resources.
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
#include <utility>
#include <vector>

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
  Desktop();

  HWND CreateWindow();
  // What is still posted to it is lost, as on Windows.
  void DestroyWindow(HWND window);
  bool HasWindow(HWND window) const;

  // ERROR_INVALID_WINDOW_HANDLE for a window that is not there, ERROR_NOT_ENOUGH_QUOTA once
  // 10,000 messages wait in it.
  DWORD Post(HWND window, const PostedMessage& message);
  // Taking from a window that is not there aborts.
  std::optional<PostedMessage> Take(HWND window);
  PostedMessage WaitAndTake(HWND window);

  // The answer of every box from now on; IDOK without a rule. The rule runs on the thread that
  // shows the box. An answer that the box has no button for aborts.
  void AnswerBoxes(std::function<int(const ShownMessageBox&)> rule);
  int Show(ShownMessageBox box);
  std::vector<ShownMessageBox> Boxes() const;

  // At first the string tables of the program's own .rc.
  void SetString(LANGID language, UINT id, std::string utf8);
  // The text in that language, else in English; nothing when neither has it.
  std::optional<std::string> String(LANGID language, UINT id) const;

 private:
  // With the lock held.
  std::deque<PostedMessage>& QueueOf(HWND window);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::map<HWND, std::deque<PostedMessage>> windows_;
  UINT_PTR next_window_ = 0x10010;
  std::function<int(const ShownMessageBox&)> rule_;
  std::vector<ShownMessageBox> boxes_;
  std::map<std::pair<LANGID, UINT>, std::string> strings_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_H_
