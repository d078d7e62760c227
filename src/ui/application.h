// The program from its start to its end.
#ifndef UI_APPLICATION_H_
#define UI_APPLICATION_H_

#include <windows.h>

namespace ui {

// Shows the progress dialog, which starts the restore run, and ends the process once the dialog has
// come to its end: with exit code 0 whatever became of the run, and wherever its thread is. Returns
// only, 1, when the machine's architecture cannot be told.
int RunApplication(HINSTANCE instance, int show_command);

}  // namespace ui

#endif  // UI_APPLICATION_H_
