// What edit controls and progress bars make of the messages that they are sent.
#ifndef SIMULATOR_MODEL_DESKTOP_CONTROLS_H_
#define SIMULATOR_MODEL_DESKTOP_CONTROLS_H_

#include <windows.h>

#include <vector>

#include "simulator/model/desktop/dialog.h"

namespace simulator {

struct ControlAnswer {
  LRESULT result = 0;
  std::vector<WORD> notifications;  // the codes that the dialog is told, in this order
};

// Aborts for a message that the control does not honour. Progress bars have states since Windows
// Vista; before, the message is one that they do not know.
ControlAnswer SendToControl(Control& control, UINT message, WPARAM wparam, LPARAM lparam,
                            bool has_progress_states);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_CONTROLS_H_
