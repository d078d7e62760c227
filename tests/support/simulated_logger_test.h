// The program's own logger on a bare simulated server.
#ifndef TESTS_SUPPORT_SIMULATED_LOGGER_TEST_H_
#define TESTS_SUPPORT_SIMULATED_LOGGER_TEST_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "logger/b_logger.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"
#include "support/log_operations.h"

namespace tests {

// The beginning of every line while the clock is not changed.
inline constexpr char kStamp[] = "[2024-03-05 08:07:06] ";
inline constexpr char kLogs[] = "C:\\vantoro_restore\\Logs";
inline constexpr char kLog[] = "C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log";
// A program folder with percent signs and Chinese characters.
inline constexpr char kOddFolder[] = "C:\\100%% %s%n%1$s \xE8\xBF\x81\xE7\xA7\xBB";

class SimulatedLoggerTest : public testing::Test {
 protected:
  SimulatedLoggerTest() : logger_(std::make_unique<logger::BLogger>("vantoro_restore", "")) {}

  static std::string Line(const std::string& rest) { return kStamp + rest + "\r\n"; }

  // Returns the contents of the file, or "?" if it does not exist.
  std::string Log(const std::string& path = kLog) {
    return server_.files().Read(path).value_or("?");
  }
  std::string Printed() { return server_.console().Text(); }
  size_t CountOf(const std::string& call) { return server_.calls().ArgumentsOf(call).size(); }

  simulator::Server server_;
  std::unique_ptr<logger::BLogger> logger_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_LOGGER_TEST_H_
