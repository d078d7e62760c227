// Texts for errors of the system and of the C runtime, and the line that reports a failure of a
// function in this folder.
#ifndef COMMON_ERRORS_H_
#define COMMON_ERRORS_H_

#include <windows.h>

#include <string>

namespace common {

// Returns the system's message for `error` in the user's default language, including its line end.
// Empty if the system has no message.
std::string GetSystemMessage(DWORD error);

// Returns "Last Error: [%d] %s" with the code and the system's message, at most 1,023 characters.
// Without an argument, uses the thread's last error.
std::string GetLastErrorText(DWORD error);
std::string GetLastErrorText();

// Returns the C runtime's message for `errno`.
std::string GetErrnoText();

// Prints one line on standard output: "common::" `function` [`argument`] and the error.
// ReportLastError is for system calls, ReportErrno for the C runtime, whose error is `errno`.
void ReportLastError(const char* function, const std::string& argument, DWORD error);
void ReportErrno(const char* function, const std::string& argument);

}  // namespace common

#endif  // COMMON_ERRORS_H_
