// Command lines of a child program that exists on both hosts: the command interpreter of Windows,
// or a small replacement on the simulated server.
#ifndef TESTS_SUPPORT_CHILD_COMMANDS_H_
#define TESTS_SUPPORT_CHILD_COMMANDS_H_

#include <string>

namespace tests {

// Installs the program on a simulated server, as "cmd" in the search path.
void InstallChildCommands();

inline std::string ExitWith(int code) { return "cmd /c exit " + std::to_string(code); }
// Prints the text and a line end.
inline std::string Echo(const std::string& text) { return "cmd /c echo " + text; }
// Runs until it is terminated.
inline std::string RunForGood() { return "cmd /c for /L %i in (0,0,1) do @rem"; }

}  // namespace tests

#endif  // TESTS_SUPPORT_CHILD_COMMANDS_H_
