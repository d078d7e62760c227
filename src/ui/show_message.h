// Message boxes under the tool's title, and the string table they and the dialog take texts from.
#ifndef UI_SHOW_MESSAGE_H_
#define UI_SHOW_MESSAGE_H_

#include <windows.h>

#include <string>

#include "common/format.h"

namespace ui {

// The module whose resources the texts come from; until it is set, the program's own file.
void SetResourceModule(HINSTANCE module);

// A string table entry in the calling thread's language, at most 511 bytes; empty when it cannot be
// loaded.
std::string LoadResString(UINT id);

// The notice of the restart, entry 116, at most 511 characters: the wide form knows no other entry.
std::wstring LoadResStringW();

// Shows at most 2,047 characters of formatted text; `owner` may be null. MessageBoxA's result.
COMMON_PRINTF_FORMAT(3, 4)
int ShowMessage(HWND owner, UINT style, const char* format, ...);

}  // namespace ui

#endif  // UI_SHOW_MESSAGE_H_
