#include "simulator/model/desktop/controls.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {
namespace {

// Behind the end both ends stay at the end. A start of -1 leaves the caret where it is.
void Select(Control& control, WPARAM start, LPARAM end) {
  constexpr WPARAM kNothing = static_cast<DWORD>(-1);
  ShownControl& shown = control.shown;
  const WPARAM first = static_cast<DWORD>(start);
  const WPARAM last = static_cast<DWORD>(end);
  if (first == kNothing) {
    shown.selection_start = shown.selection_end;
    return;
  }
  const size_t length = control.text.size();
  const auto [low, high] = std::minmax({std::min(first, length), std::min(last, length)});
  shown.selection_start = low;
  shown.selection_end = high;
}

ControlAnswer Replace(Control& control, const wchar_t* text) {
  if (text == nullptr) Unsupported("EM_REPLACESEL without a text");
  ShownControl& shown = control.shown;
  const size_t selected = shown.selection_end - shown.selection_start;
  const size_t kept = control.text.size() - selected;
  const size_t room = shown.limit > kept ? shown.limit - kept : 0;
  std::wstring inserted = text;
  ControlAnswer answer;
  if (inserted.size() > room) {
    inserted.resize(room);
    answer.notifications.push_back(EN_MAXTEXT);
  }
  control.text.replace(shown.selection_start, selected, inserted);
  shown.selection_start += inserted.size();
  shown.selection_end = shown.selection_start;
  control.needs_painting = true;
  answer.notifications.insert(answer.notifications.end(), {EN_UPDATE, EN_CHANGE});
  return answer;
}

// Windows does not look at it, and reserves it.
void RefuseUnless0(int64_t parameter, const char* message) {
  if (parameter != 0) Unsupported(std::string(message) + " with a parameter that must be 0");
}

ControlAnswer SendToEdit(Control& control, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case EM_SETSEL:
      Select(control, wparam, lparam);
      return {};
    case EM_SCROLLCARET:
      RefuseUnless0(static_cast<int64_t>(wparam) | lparam, "EM_SCROLLCARET");
      control.shown.scrolled_to = control.shown.selection_end;
      return {};
    case EM_REPLACESEL:
      return Replace(control, reinterpret_cast<const wchar_t*>(lparam));
    default:
      Unsupported("message " + std::to_string(message) + " to an edit control");
  }
}

ControlAnswer SetRange(ShownControl& bar, LPARAM lparam) {
  const LONG before = MAKELONG(bar.minimum, bar.maximum);
  if (LOWORD(lparam) >= HIWORD(lparam)) Unsupported("PBM_SETRANGE of an empty range");
  bar.minimum = LOWORD(lparam);
  bar.maximum = HIWORD(lparam);
  bar.position = std::clamp(bar.position, bar.minimum, bar.maximum);
  return {before, {}};
}

ControlAnswer SetState(ShownControl& bar, WPARAM wparam, bool has_states) {
  if (!has_states) return {};
  const int state = static_cast<int>(wparam);
  if (state != PBST_NORMAL && state != PBST_ERROR && state != PBST_PAUSED) {
    Unsupported("PBM_SETSTATE of state " + std::to_string(state));
  }
  return {std::exchange(bar.state, state), {}};
}

ControlAnswer SendToProgressBar(ShownControl& bar, UINT message, WPARAM wparam, LPARAM lparam,
                                bool has_states) {
  switch (message) {
    case PBM_SETRANGE:
      RefuseUnless0(static_cast<int64_t>(wparam), "PBM_SETRANGE");
      return SetRange(bar, lparam);
    case PBM_SETPOS: {
      RefuseUnless0(lparam, "PBM_SETPOS");
      const int position = std::clamp(static_cast<int>(wparam), bar.minimum, bar.maximum);
      return {std::exchange(bar.position, position), {}};
    }
    case PBM_SETSTATE:
      RefuseUnless0(lparam, "PBM_SETSTATE");
      return SetState(bar, wparam, has_states);
    default:
      Unsupported("message " + std::to_string(message) + " to a progress bar");
  }
}

}  // namespace

ControlAnswer SendToControl(Control& control, UINT message, WPARAM wparam, LPARAM lparam,
                            bool has_progress_states) {
  switch (control.kind) {
    case ControlClass::kEdit:
      return SendToEdit(control, message, wparam, lparam);
    case ControlClass::kProgressBar:
      return SendToProgressBar(control.shown, message, wparam, lparam, has_progress_states);
    case ControlClass::kButton:
    case ControlClass::kStatic:
      break;
  }
  Unsupported("message " + std::to_string(message) + " to a " + control.shown.window_class);
}

}  // namespace simulator
