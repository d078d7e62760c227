// The visible state of a dialog and its controls.
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

// The colours with which a control was painted.
struct ShownColors {
  COLORREF text = 0;
  COLORREF background = 0;
  int mode = OPAQUE;
  std::optional<int> brush;  // GetStockObject's number; none if the dialog specified none
};

// Rectangles are in screen pixels. Texts are UTF-8; positions in a text are counted in characters.
struct ShownControl {
  HWND window = nullptr;
  WORD id = 0;
  std::string window_class;
  DWORD style = 0;
  RECT rectangle{};
  std::string text;
  std::optional<ShownColors> colors;  // none before the first painting, and for a progress bar

  // For an edit control.
  size_t selection_start = 0;
  size_t selection_end = 0;
  size_t limit = 30'000;
  std::optional<size_t> scrolled_to;  // the caret's position at the last scroll to it

  // For a progress bar.
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
  int big_icon = 0;  // the resource's number; 0 if there is none
  int small_icon = 0;
  bool visible = false;
  bool destroyed = false;           // by DestroyWindow; the rest is the last state
  std::map<UINT_PTR, UINT> timers;  // periods in milliseconds by timer id
  std::vector<ShownControl> controls;

  // Aborts if there is no such control.
  const ShownControl& Control(WORD control_id) const;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_SHOWN_DIALOG_H_
