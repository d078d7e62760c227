// The message boxes that the simulated process shows. Nobody sits before them: a rule answers.
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
  // Tells the watcher of `dialogs` before a box is shown.
  explicit MessageBoxes(Dialogs& dialogs) : dialogs_(dialogs) {}

  // The answer of every box from now on; IDOK without a rule. The rule runs on the thread that
  // shows the box. An answer that the box has no button for aborts.
  void Answer(std::function<int(const ShownMessageBox&)> rule);
  // Those answered so far, in order.
  std::vector<ShownMessageBox> Shown() const;

  // For the call: shows a box and returns its answer.
  int Show(ShownMessageBox box);

 private:
  Dialogs& dialogs_;
  mutable std::mutex mutex_;
  std::function<int(const ShownMessageBox&)> rule_;
  std::vector<ShownMessageBox> boxes_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_MESSAGE_BOXES_H_
