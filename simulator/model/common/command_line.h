// Parsing of command lines as Windows does it.
#ifndef SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_
#define SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// Returns the program: the text between quotation marks at the start, or else the text before the
// first space or tab.
std::string_view ProgramOf(std::string_view command_line);

// Returns the name of a program without its folder and ".exe", in lower case.
std::string ProgramName(std::string_view path);

// Splits a command line as the C runtime does: at spaces and tabs outside quotation marks. Before a
// quotation mark, each pair of backslashes is one backslash, and a remaining backslash makes the
// quotation mark literal. Within quotation marks, "" is one literal quotation mark. These escapes
// do not apply to the program's name.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_
