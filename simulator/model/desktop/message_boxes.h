// The message boxes that the simulated process shows. A rule answers them in place of a user.
#ifndef SIMULATOR_MODEL_DESKTOP_MESSAGE_BOXES_H_
#define SIMULATOR_MODEL_DESKTOP_MESSAGE_BOXES_H_

#include <windows.h>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace simulator {

class Dialogs;

struct ShownMessageBox {
  HWND owner;
  std::string text;
  std::string caption;
  UINT type;
  int answer;
};

// Thread-safe.
class MessageBoxes {
 public:
  // The watcher of `dialogs` is called before a box is shown.
  explicit MessageBoxes(Dialogs& dialogs) : dialogs_(dialogs) {}

  // Sets the rule that answers every box from now on. Without a rule the answer is IDOK. The rule
  // runs on the thread that shows the box. Aborts if the box has no button for the answer. A
  // critical-error box, MB_CANCELTRYCONTINUE, has no OK button: without a rule it aborts.
  void Answer(std::function<int(const ShownMessageBox&)> rule);
  // Returns the boxes answered so far, in order.
  std::vector<ShownMessageBox> Shown() const;

  // For MessageBoxA and critical errors. Shows a box and returns its answer.
  int Show(ShownMessageBox box);

 private:
  Dialogs& dialogs_;
  mutable std::mutex mutex_;
  std::function<int(const ShownMessageBox&)> rule_;
  std::vector<ShownMessageBox> boxes_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_MESSAGE_BOXES_H_
