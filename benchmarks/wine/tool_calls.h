// The tools that a run starts, as the run on the simulated server of the same scenario starts them.
#ifndef BENCHMARKS_WINE_TOOL_CALLS_H_
#define BENCHMARKS_WINE_TOOL_CALLS_H_

#include <string>
#include <vector>

#include "simulator/scenario.h"

namespace benchmarks {

struct ToolCall {
  std::string command_line;
  std::string script;  // what diskpart reads; empty for other tools
};

std::vector<ToolCall> ToolCallsOf(const simulator::Scenario& scenario);

}  // namespace benchmarks

#endif  // BENCHMARKS_WINE_TOOL_CALLS_H_
