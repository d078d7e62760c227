// The simulated user of a rehearsal.
#ifndef REHEARSAL_USER_H_
#define REHEARSAL_USER_H_

#include <optional>

#include "simulator/model/desktop/message_boxes.h"

namespace simulator {

struct ShownDialog;

enum class Wish { kRestart, kLater, kCancel };

struct Intention {
  Wish wish = Wish::kRestart;
  int percent = 0;  // the bar's percentage at which to cancel
};

// Used on the dialog's thread. Answer may be called on any thread for a message box that has only
// an OK button.
class User {
 public:
  explicit User(const Intention& intention) : intention_(intention) {}

  // Returns true if the user clicks Cancel now, which happens once at most and only during the run;
  // otherwise returns false.
  bool WantsToCancel(const ShownDialog& dialog);
  // Returns the user's answer to the message box. Boxes other than MB_OKCANCEL are answered with
  // IDOK.
  int Answer(const ShownMessageBox& box);

  // Returns the bar's percentage at which the user cancelled the run, or nothing if it was not
  // cancelled.
  std::optional<int> cancelled_at() const { return has_cancelled_ ? clicked_at_ : std::nullopt; }

 private:
  const Intention intention_;
  std::optional<int> clicked_at_;
  bool has_cancelled_ = false;
};

}  // namespace simulator

#endif  // REHEARSAL_USER_H_
