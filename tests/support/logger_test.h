// A logger in the test's own folder, on both hosts.
#ifndef TESTS_SUPPORT_LOGGER_TEST_H_
#define TESTS_SUPPORT_LOGGER_TEST_H_

#include <memory>
#include <string>
#include <vector>

#include "logger/b_logger.h"
#include "support/host.h"
#include "support/log_operations.h"

namespace tests {

class LoggerTest : public HostTest {
 protected:
  static std::string BytesOf(const logger::Logger& logger) {
    return ReadBytes(logger.GetLogFilePath());
  }
  static std::vector<std::string> LinesOf(const logger::Logger& logger) {
    return LinesWithoutStamp(BytesOf(logger));
  }

  std::unique_ptr<logger::BLogger> MakeLogger() const {
    return std::make_unique<logger::BLogger>("test", Folder());
  }
};

}  // namespace tests

#endif  // TESTS_SUPPORT_LOGGER_TEST_H_
