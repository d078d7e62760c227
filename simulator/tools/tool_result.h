// The result of a simulated tool.
#ifndef SIMULATOR_TOOLS_TOOL_RESULT_H_
#define SIMULATOR_TOOLS_TOOL_RESULT_H_

#include <windows.h>

#include <string>

namespace simulator {

struct ToolResult {
  std::string output;
  DWORD exit_code = 0;
  std::string error_output = {};
};

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_TOOL_RESULT_H_
