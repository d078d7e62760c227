// Log lines and platform calls in the one order in which they happened.
#ifndef TESTS_SUPPORT_SIMULATED_EVENTS_H_
#define TESTS_SUPPORT_SIMULATED_EVENTS_H_

#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/server.h"
#include "support/recording_logger.h"

namespace tests {

// Also records the number of calls before each line. Only one thread may log and make calls.
class EventLogger : public RecordingLogger {
 public:
  explicit EventLogger(simulator::Server& server) : server_(server) {}

  // Returns each log line as RecordingLogger does and each call by its name: "CloseHandle". Calls
  // that only obtain and release texts of errors are left out.
  std::vector<std::string> Events() const {
    std::vector<std::string> events;
    const std::vector<simulator::TracedCall> trace = server_.calls().Trace();
    const std::vector<std::string> lines = Lines();
    size_t call = 0;
    for (size_t line = 0; line <= lines.size(); ++line) {
      const size_t end = line < lines.size() ? calls_before_[line] : trace.size();
      for (; call < end; ++call) {
        if (trace[call].name != "FormatMessageA" && trace[call].name != "LocalFree") {
          events.push_back(trace[call].name);
        }
      }
      if (line < lines.size()) events.push_back(lines[line]);
    }
    return events;
  }

 private:
  void Keep(const std::string& line) override {
    calls_before_.push_back(static_cast<size_t>(server_.calls().Count()));
    RecordingLogger::Keep(line);
  }

  simulator::Server& server_;
  std::vector<size_t> calls_before_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_EVENTS_H_
