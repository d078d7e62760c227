#include <windows.h>

#include "ui/application.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR /*command_line*/,
                    int show_command) {
  return ui::RunApplication(instance, show_command);
}
