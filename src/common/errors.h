// Texts for the errors of the system and of the C runtime, and the one line in which the functions
// of this folder report their own failures.
#ifndef COMMON_ERRORS_H_
#define COMMON_ERRORS_H_

#include <windows.h>

#include <string>

namespace common {

// The system's message for `error` in the user's default language, as the system returns it: with
// its line end. Empty when the system has none.
std::string GetSystemMessage(DWORD error);

// "Last Error: [%d] %s" with the code and the system's message, at most 1,023 characters. Without
// an argument, for the thread's last error.
std::string GetLastErrorText(DWORD error);
std::string GetLastErrorText();

// The C runtime's message for `errno`.
std::string GetErrnoText();

// One line on standard output: "common::" `function` [`argument`] and what failed. The first is for
// system calls, the second for the C runtime, whose error is `errno`.
void ReportLastError(const char* function, const std::string& argument, DWORD error);
void ReportErrno(const char* function, const std::string& argument);

}  // namespace common

#endif  // COMMON_ERRORS_H_
