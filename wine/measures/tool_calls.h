// The tools that a run starts, as recorded in a run on the simulated server of the same scenario.
#ifndef WINE_MEASURES_TOOL_CALLS_H_
#define WINE_MEASURES_TOOL_CALLS_H_

#include <string>
#include <vector>

#include "rehearsal/description/scenario.h"

namespace benchmarks {

struct ToolCall {
  std::string command_line;
  std::string script;  // the script for diskpart; empty for other tools
};

std::vector<ToolCall> ToolCallsOf(const simulator::Scenario& scenario);

}  // namespace benchmarks

#endif  // WINE_MEASURES_TOOL_CALLS_H_
