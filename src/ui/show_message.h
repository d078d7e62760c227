// Message boxes with the tool's title as caption, and access to the string table.
#ifndef UI_SHOW_MESSAGE_H_
#define UI_SHOW_MESSAGE_H_

#include <windows.h>

#include <string>

#include "common/format.h"

namespace ui {

// Sets the module that texts are loaded from. Until then they are loaded from the program's file.
void SetResourceModule(HINSTANCE module);

// Returns a string table entry in the calling thread's language, at most 511 bytes; empty if it
// cannot be loaded.
std::string LoadResString(UINT id);

// Returns string table entry 116, the restart notice, at most 511 characters; empty if it cannot be
// loaded. The wide form loads no other entry.
std::wstring LoadResStringW();

// Shows at most 2,047 characters of formatted text; `owner` may be null. Returns the result of
// MessageBoxA.
COMMON_PRINTF_FORMAT(3, 4)
int ShowMessage(HWND owner, UINT style, const char* format, ...);

}  // namespace ui

#endif  // UI_SHOW_MESSAGE_H_
