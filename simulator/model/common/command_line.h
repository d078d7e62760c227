// Command lines as Windows reads them.
#ifndef SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_
#define SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// The program: what stands between quotation marks at the start, else before the first blank.
std::string_view ProgramOf(std::string_view command_line);

// The name of a program without folder and ".exe", in lower case.
std::string ProgramName(std::string_view path);

// Split as the C runtime splits it: at blanks outside quotation marks. Backslashes before a
// quotation mark halve, an odd one keeps the mark; "" within quotation marks is one of them. The
// program has no such escapes.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_COMMAND_LINE_H_
