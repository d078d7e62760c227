// Who sits before the screen of a rehearsal.
#ifndef REHEARSAL_USER_H_
#define REHEARSAL_USER_H_

#include <optional>

#include "simulator/model/desktop/message_boxes.h"

namespace simulator {

struct ShownDialog;

enum class Wish { kRestart, kLater, kCancel };

struct Intention {
  Wish wish = Wish::kRestart;
  int percent = 0;  // of the bar at which to cancel
};

// The dialog's thread, but for boxes that can only be acknowledged: any thread.
class User {
 public:
  explicit User(const Intention& intention) : intention_(intention) {}

  // Whether the user clicks Cancel now: once, while the run lasts.
  bool WantsToCancel(const ShownDialog& dialog);
  // IDOK for what can only be acknowledged.
  int Answer(const ShownMessageBox& box);

  // Where the bar stood when the user cancelled the run; nothing when it was not cancelled.
  std::optional<int> cancelled_at() const { return has_cancelled_ ? clicked_at_ : std::nullopt; }

 private:
  const Intention intention_;
  std::optional<int> clicked_at_;
  bool has_cancelled_ = false;
};

}  // namespace simulator

#endif  // REHEARSAL_USER_H_
