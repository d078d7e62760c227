// The program's entry: start-up, message loop, shutdown.
#ifndef UI_APPLICATION_H_
#define UI_APPLICATION_H_

#include <windows.h>

namespace ui {

// Shows the progress dialog, which starts the restore run. When the message loop has ended, ends
// the process with exit code 0, whatever the result of the run and even if its thread is still
// running. Returns only if the processor architecture cannot be determined; the return value is
// then 1.
int RunApplication(HINSTANCE instance, int show_command);

}  // namespace ui

#endif  // UI_APPLICATION_H_
