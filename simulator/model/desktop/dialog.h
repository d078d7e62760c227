// A dialog and its controls in memory.
#ifndef SIMULATOR_MODEL_DESKTOP_DIALOG_H_
#define SIMULATOR_MODEL_DESKTOP_DIALOG_H_

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {

enum class ControlClass { kButton, kEdit, kProgressBar, kStatic };

struct Control {
  ShownControl shown;  // except the text and the position on the screen
  ControlClass kind = ControlClass::kStatic;
  std::wstring text;
  bool needs_painting = false;
};

struct Dialog {
  ShownDialog shown;  // except the controls
  std::vector<Control> controls;
  DLGPROC procedure = nullptr;
  LONG_PTR user_data = 0;
  uint64_t thread = 0;
  bool dying = false;  // DestroyWindow is in progress
  bool has_controls = true;
  bool was_visited = false;  // since the last call of the watcher

  Control* Find(int id);  // null if there is no such control, or no longer
  ShownDialog Shown() const;
  // Marks every control that asks the dialog for its colours for repainting.
  void Invalidate();
};

// Returns a dialog without window handles, laid out at 96 dots per inch with the borders of Windows
// 10. Aborts if a style, class or font is not supported.
Dialog LayOut(const DialogTemplate& source);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOG_H_
