// Command lines of a child program that both hosts have: the command interpreter of Windows, or a
// small stand-in for it on the simulated server.
#ifndef TESTS_SUPPORT_CHILD_COMMANDS_H_
#define TESTS_SUPPORT_CHILD_COMMANDS_H_

#include <string>

namespace tests {

// Makes the program known on a simulated server, as "cmd" in the search path.
void InstallChildCommands();

inline std::string ExitWith(int code) { return "cmd /c exit " + std::to_string(code); }
// Prints the text and a line end.
inline std::string Echo(const std::string& text) { return "cmd /c echo " + text; }
// Ends when it is terminated.
inline std::string RunForGood() { return "cmd /c for /L %i in (0,0,1) do @rem"; }

}  // namespace tests

#endif  // TESTS_SUPPORT_CHILD_COMMANDS_H_
