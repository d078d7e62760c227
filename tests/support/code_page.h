// Code pages in tests that run on both hosts.
#ifndef TESTS_SUPPORT_CODE_PAGE_H_
#define TESTS_SUPPORT_CODE_PAGE_H_

#include <windows.h>

namespace tests {

// Returns the value that names a code page to MultiByteToWideChar and WideCharToMultiByte. In
// native builds these convert the ANSI code page only: the existing server gets this one, and the
// value is CP_ACP.
UINT NamedCodePage(UINT code_page);

// Returns true if the A calls use the code page; otherwise returns false. In native builds, the
// existing server gets it. On Windows it depends on the system, and under Wine on the locale.
bool UseAnsiCodePage(UINT code_page);

}  // namespace tests

#endif  // TESTS_SUPPORT_CODE_PAGE_H_
