// A dialog and its controls as they stand in memory.
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
  ShownControl shown;  // but for the text and the place on the screen
  ControlClass kind = ControlClass::kStatic;
  std::wstring text;
  bool needs_painting = false;
};

struct Dialog {
  ShownDialog shown;  // but for the controls
  std::vector<Control> controls;
  DLGPROC procedure = nullptr;
  LONG_PTR user_data = 0;
  uint64_t thread = 0;
  bool dying = false;  // DestroyWindow is under way
  bool has_controls = true;
  bool was_visited = false;  // since the watcher was told

  Control* Find(int id);  // null when there is none any more
  ShownDialog Shown() const;
  // Everything that asks the dialog for its colours paints itself anew.
  void Invalidate();
};

// A dialog without window handles, laid out at 96 dots per inch with the borders of Windows 10.
// Aborts for a style, class or font that is not honoured.
Dialog LayOut(const DialogTemplate& source);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOG_H_
