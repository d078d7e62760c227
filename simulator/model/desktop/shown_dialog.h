// What there is to see of a dialog and its controls.
#ifndef SIMULATOR_MODEL_DESKTOP_SHOWN_DIALOG_H_
#define SIMULATOR_MODEL_DESKTOP_SHOWN_DIALOG_H_

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

// How a control painted itself.
struct ShownColors {
  COLORREF text = 0;
  COLORREF background = 0;
  int mode = OPAQUE;
  std::optional<int> brush;  // GetStockObject's number; none when the dialog left it to the control
};

// Rectangles are in pixels of the screen, texts UTF-8, positions in text count characters.
struct ShownControl {
  HWND window = nullptr;
  WORD id = 0;
  std::string window_class;
  DWORD style = 0;
  RECT rectangle{};
  std::string text;
  std::optional<ShownColors> colors;  // none before the first painting and of a progress bar

  // Of an edit control.
  size_t selection_start = 0;
  size_t selection_end = 0;
  size_t limit = 30'000;
  std::optional<size_t> scrolled_to;  // the caret when it was last asked into view

  // Of a progress bar.
  int minimum = 0;
  int maximum = 100;
  int position = 0;
  int state = PBST_NORMAL;
};

struct ShownDialog {
  HWND window = nullptr;
  WORD id = 0;  // of the template
  DWORD style = 0;
  DWORD extended_style = 0;
  RECT rectangle{};
  std::string caption;
  int big_icon = 0;  // the resource's number; 0 without one
  int small_icon = 0;
  bool visible = false;
  bool destroyed = false;           // by DestroyWindow; the rest is how it looked last
  std::map<UINT_PTR, UINT> timers;  // milliseconds by id
  std::vector<ShownControl> controls;

  // Aborts when there is no such control.
  const ShownControl& Control(WORD control_id) const;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_SHOWN_DIALOG_H_
