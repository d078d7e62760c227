#include <string>

#include "rehearsal/description/scenario.h"
#include "simulator/model/common/command_line.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

void Expect(int call, const std::string& name, int calls, const std::string& place) {
  if (call <= calls) return;
  throw ScenarioError(place + ": expected a call that the run makes; it made " +
                      std::to_string(calls) + " of " + name);
}

}  // namespace

void ExpectReached(const Scenario& scenario, const std::map<std::string, int>& tool_calls) {
  for (const ScenarioTool& tool : scenario.tools) {
    const auto calls = tool_calls.find(tool.name);
    Expect(tool.call, tool.name, calls == tool_calls.end() ? 0 : calls->second, tool.place);
  }
}

void ExpectReached(const Scenario& scenario, Server& server) {
  std::map<std::string, int> tool_calls;
  for (const std::string& command_line : server.processes().Started()) {
    ++tool_calls[ProgramName(ProgramOf(command_line))];
  }
  ExpectReached(scenario, tool_calls);
  for (const ScenarioFault& fault : scenario.faults) {
    const auto calls = static_cast<int>(server.calls().ArgumentsOf(fault.name).size());
    Expect(fault.occurrence, fault.name, calls, fault.place);
  }
}

}  // namespace simulator
