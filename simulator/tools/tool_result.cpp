#include "simulator/tools/tool_result.h"

#include "simulator/model/processes.h"

namespace simulator {

DWORD Finish(const ToolResult& result, ChildProcess& child) {
  // An empty write would be read as one.
  if (!result.output.empty()) child.WriteOutput(result.output);
  if (!result.error_output.empty()) child.WriteError(result.error_output);
  return result.exit_code;
}

}  // namespace simulator
