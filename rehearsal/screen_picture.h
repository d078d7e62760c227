// A dialog drawn in characters. Functions without side effects.
#ifndef REHEARSAL_SCREEN_PICTURE_H_
#define REHEARSAL_SCREEN_PICTURE_H_

#include <cstddef>
#include <string>
#include <vector>

namespace simulator {

struct ShownDialog;

// Returns the percentage to which the dialog's first progress bar is filled, or 0 if there is none.
int BarPercent(const ShownDialog& dialog);

// Returns the number of columns that a text takes on a terminal. A wide character, such as a
// Chinese one, takes two.
size_t Columns(const std::string& utf8);

// Returns "TITLE  [=======             ] error": the caption, the bar, and the bar's state unless
// it is the normal one.
std::string DialogLine(const ShownDialog& dialog);

// Returns the dialog as a frame of `columns` columns, at least 40: icon and title, the last lines
// of the edit control, the bar, then notes and buttons. The number of lines is the same for every
// state of a dialog. Text that is too long is truncated.
std::vector<std::string> DialogPicture(const ShownDialog& dialog, size_t columns);

}  // namespace simulator

#endif  // REHEARSAL_SCREEN_PICTURE_H_
