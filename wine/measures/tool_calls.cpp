#include "wine/measures/tool_calls.h"

#include <stdexcept>

#include "logger/b_logger.h"
#include "rehearsal/description/source_tree.h"
#include "restore/run.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"

namespace benchmarks {

std::vector<ToolCall> ToolCallsOf(const simulator::Scenario& scenario) {
  std::vector<ToolCall> calls;
  simulator::Server server;
  simulator::Build(scenario, server,
                   [&](const std::string& tool, const simulator::ChildProcess& child) {
                     ToolCall call{child.CommandLine(), ""};
                     if (tool == "diskpart") {
                       call.script = server.files().Read(child.Arguments().at(2)).value_or("");
                     }
                     calls.push_back(call);
                   });
  logger::BLogger logger("vantoro_restore", "");
  const HWND window = server.desktop().CreateWindow();
  if (restore::RestoreWorker(logger, window, "", "") != 0) {
    throw std::runtime_error("the simulated run has failed");
  }
  return calls;
}

}  // namespace benchmarks
