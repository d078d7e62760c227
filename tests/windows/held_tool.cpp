// Stands in for a tool of the system that takes long: ends when it is terminated, or by itself
// after two minutes, should nobody be there any more to do it. Graphical, since the console of one
// that is ended while it starts would keep its output open.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  ::Sleep(120 * 1000);
  return 2;
}
