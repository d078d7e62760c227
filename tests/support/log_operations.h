// The 24 logging operations, and the lines that they write to the log.
#ifndef TESTS_SUPPORT_LOG_OPERATIONS_H_
#define TESTS_SUPPORT_LOG_OPERATIONS_H_

#include <string>
#include <vector>

#include "logger/logger.h"

namespace tests {

// In each Operation, one of the two is null.
using NarrowOperation = void (logger::Logger::*)(const char* format, ...);
using WideOperation = void (logger::Logger::*)(const wchar_t* format, ...);

struct Operation {
  std::string name;
  NarrowOperation narrow;
  WideOperation wide;
  std::string tag;  // with the spaces after it
  bool is_out;      // copies to the console and the debugger
  int attributes;   // of the console copy; 7 for plain text
};

const std::vector<Operation>& Operations();

// Logs `text` with the operation. For a wide operation, `text` must be ASCII.
void LogBy(const Operation& operation, logger::Logger& logger, const std::string& text);

// Returns the lines of a log file without their time stamps: "[Info]  text". A line that does not
// begin with a time stamp, and a last line without CR LF, is prefixed with "?".
std::vector<std::string> LinesWithoutStamp(const std::string& bytes);

// Returns true if the text begins with a time stamp such as "[2024-03-05 08:07:06] "; otherwise
// returns false.
bool BeginsWithStamp(const std::string& text);

inline constexpr size_t kStampSize = 22;  // with the space

}  // namespace tests

#endif  // TESTS_SUPPORT_LOG_OPERATIONS_H_
