#include <windows.h>

#include "ui/application.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR /*command_line*/,
                    int show_command) {
  // An empty card reader or DVD drive must not hold the run with a message box of the system.
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  return ui::RunApplication(instance, show_command);
}
