#include "rehearsal/user.h"

#include "rehearsal/screen_picture.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {

bool User::WantsToCancel(const ShownDialog& dialog) {
  if (intention_.wish != Wish::kCancel || clicked_at_) return false;
  // The dialog's timers run as long as the run does.
  if (!dialog.visible || dialog.timers.empty()) return false;
  const int percent = BarPercent(dialog);
  if (percent < intention_.percent) return false;
  clicked_at_ = percent;
  return true;
}

int User::Answer(const ShownMessageBox& box) {
  constexpr UINT kButtons = 0xF;
  constexpr UINT kIcon = 0xF0;
  if ((box.type & kButtons) != MB_OKCANCEL) return IDOK;
  // The question about the restart is the one that shows itself to be one.
  if ((box.type & kIcon) == MB_ICONQUESTION) {
    return intention_.wish == Wish::kRestart ? IDOK : IDCANCEL;
  }
  has_cancelled_ = intention_.wish == Wish::kCancel;
  return has_cancelled_ ? IDOK : IDCANCEL;
}

}  // namespace simulator
