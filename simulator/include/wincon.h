// Console text attributes.
#ifndef SIMULATOR_INCLUDE_WINCON_H_
#define SIMULATOR_INCLUDE_WINCON_H_

#include <winbase.h>

#define FOREGROUND_RED 0x0004
#define FOREGROUND_INTENSITY 0x0008

struct COORD {
  SHORT X;
  SHORT Y;
};

struct SMALL_RECT {
  SHORT Left;
  SHORT Top;
  SHORT Right;
  SHORT Bottom;
};

struct CONSOLE_SCREEN_BUFFER_INFO {
  COORD dwSize;
  COORD dwCursorPosition;
  WORD wAttributes;
  SMALL_RECT srWindow;
  COORD dwMaximumWindowSize;
};

HANDLE WINAPI GetStdHandle(DWORD std_handle);
BOOL WINAPI GetConsoleScreenBufferInfo(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info);
BOOL WINAPI SetConsoleTextAttribute(HANDLE console, WORD attributes);

#endif  // SIMULATOR_INCLUDE_WINCON_H_
