// Message boxes with formatted text.
#ifndef COMMON_MESSAGE_BOX_H_
#define COMMON_MESSAGE_BOX_H_

#include <windows.h>

#include <string>

#include "common/format.h"

namespace common {

// Shows a message box with at most 2,046 characters of formatted text; `owner` may be null. Returns
// the result of MessageBoxA.
COMMON_PRINTF_FORMAT(4, 5)
int MessageBoxFormat(HWND owner, const std::string& caption, UINT type, const char* format, ...);

}  // namespace common

#endif  // COMMON_MESSAGE_BOX_H_
