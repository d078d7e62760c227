// How edit controls and progress bars handle messages.
#ifndef SIMULATOR_MODEL_DESKTOP_CONTROLS_H_
#define SIMULATOR_MODEL_DESKTOP_CONTROLS_H_

#include <windows.h>

#include <vector>

#include "simulator/model/desktop/dialog.h"

namespace simulator {

struct ControlAnswer {
  LRESULT result = 0;
  std::vector<WORD> notifications;  // notification codes for the dialog, in order
};

// Handles a message to a control. Aborts if the control does not support the message. Progress bars
// have states since Windows Vista; earlier versions ignore the message that sets them.
ControlAnswer SendToControl(Control& control, UINT message, WPARAM wparam, LPARAM lparam,
                            bool has_progress_states);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_CONTROLS_H_
