// A dialog in characters. Pure.
#ifndef REHEARSAL_SCREEN_PICTURE_H_
#define REHEARSAL_SCREEN_PICTURE_H_

#include <cstddef>
#include <string>
#include <vector>

namespace simulator {

struct ShownDialog;

// How far the dialog's first progress bar is filled, 0 without one.
int BarPercent(const ShownDialog& dialog);

// The columns that a text takes on a terminal: two for a wide character such as a Chinese one.
size_t Columns(const std::string& utf8);

// "TITLE  [=======             ] error": the caption, the bar, and its state unless that is the
// normal one.
std::string DialogLine(const ShownDialog& dialog);

// The dialog as a frame of that many columns, 40 at least: icon and title, the last lines of the
// edit control, the bar, then notes and buttons. As many lines for every state of a dialog. What is
// too long is cut.
std::vector<std::string> DialogPicture(const ShownDialog& dialog, size_t columns);

}  // namespace simulator

#endif  // REHEARSAL_SCREEN_PICTURE_H_
