// A dialog in its visible state.
#ifndef TESTS_SUPPORT_SIMULATED_SHOWN_DIALOG_H_
#define TESTS_SUPPORT_SIMULATED_SHOWN_DIALOG_H_

#include <string>

#include "simulator/model/desktop/shown_dialog.h"

namespace tests {

// Returns a visible dialog with a control of each kind. Its bar ranges from 0 to 100 and is at 0.
inline simulator::ShownDialog VisibleDialog(const std::string& caption) {
  simulator::ShownDialog dialog;
  dialog.caption = caption;
  dialog.small_icon = 105;
  dialog.visible = true;
  dialog.controls.resize(4);
  dialog.controls[0].window_class = "EDIT";
  dialog.controls[1].window_class = "msctls_progress32";
  dialog.controls[2].window_class = "STATIC";
  dialog.controls[2].text = "A note.";
  dialog.controls[3].window_class = "BUTTON";
  dialog.controls[3].text = "Cancel";
  return dialog;
}

inline simulator::ShownControl& Log(simulator::ShownDialog& dialog) { return dialog.controls[0]; }
inline simulator::ShownControl& Bar(simulator::ShownDialog& dialog) { return dialog.controls[1]; }
inline simulator::ShownControl& Note(simulator::ShownDialog& dialog) { return dialog.controls[2]; }

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_SHOWN_DIALOG_H_
