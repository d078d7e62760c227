#include "fault_sweep/reference.h"

#include <string_view>

#include "fault_sweep/swept_server.h"
#include "simulator/model/server.h"

namespace fault_sweep {
namespace {

bool WritesLog(const simulator::TracedCall& call) {
  return call.name == "_write" && call.arguments.find(".log\", ") != std::string::npos;
}

size_t SizeWritten(const simulator::TracedCall& call) {
  return static_cast<size_t>(std::stoul(call.arguments.substr(call.arguments.rfind(' '))));
}

// "[2024-03-05 08:07:06] [Info]  text\n" is "text".
std::string TextOfLastLine(std::string_view log) {
  constexpr size_t kPrefix = 30;
  while (!log.empty() && log.back() == '\n') log.remove_suffix(1);
  const size_t begin = log.rfind('\n') + 1;  // 0 without one
  log.remove_prefix(begin);
  return std::string(log.size() > kPrefix ? log.substr(kPrefix) : log);
}

}  // namespace

std::string WithPlainLineEnds(const std::string& text) {
  std::string plain;
  for (const char c : text) {
    if (c != '\r') plain += c;
  }
  return plain;
}

Reference MakeReference(const std::string& scenario) {
  Reference reference;
  SweptServer swept(scenario);
  reference.scenario = scenario;
  reference.before = swept.State();
  swept.Run();
  reference.after = swept.State();
  reference.log = WithPlainLineEnds(swept.Log());
  size_t logged = 0;
  for (const simulator::TracedCall& call : swept.server().calls().Trace()) {
    reference.calls.push_back({call.name, call.arguments,
                               TextOfLastLine(std::string_view(reference.log).substr(0, logged)),
                               logged});
    if (WritesLog(call)) logged += SizeWritten(call);
  }
  swept.RepairTools();
  swept.Run();
  reference.again = swept.State();
  return reference;
}

}  // namespace fault_sweep
