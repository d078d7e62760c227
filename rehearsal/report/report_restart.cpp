#include "rehearsal/report/report_restart.h"

namespace simulator {

std::string RestartReport(const std::optional<ShutdownRequest>& request) {
  if (!request) return "restart: not asked for\n";
  const std::string what = request->reboot ? "restart" : "shutdown";
  const std::string force = request->force_apps_closed ? ", closing every program" : "";
  return what + ": asked for in " + std::to_string(request->seconds) + " seconds, \"" +
         request->message + "\"" + force + "\n";
}

}  // namespace simulator
