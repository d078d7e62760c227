// The 24 logging operations, and the lines that they write.
#ifndef TESTS_SUPPORT_LOG_OPERATIONS_H_
#define TESTS_SUPPORT_LOG_OPERATIONS_H_

#include <string>
#include <vector>

#include "logger/logger.h"

namespace tests {

// One of the two is null.
using NarrowOperation = void (logger::Logger::*)(const char* format, ...);
using WideOperation = void (logger::Logger::*)(const wchar_t* format, ...);

struct Operation {
  std::string name;
  NarrowOperation narrow;
  WideOperation wide;
  std::string tag;  // with the blanks behind it
  bool is_out;      // copies to the console and the debugger
  int attributes;   // of the console copy; 7 for plain text
};

const std::vector<Operation>& Operations();

// Logs `text` by the operation; ASCII for a wide one.
void LogBy(const Operation& operation, logger::Logger& logger, const std::string& text);

// The lines of a log file without their time stamps: "[Info]  text". A line that does not begin
// with a time stamp, or a last one without CR LF, comes out with "?" before it.
std::vector<std::string> LinesWithoutStamp(const std::string& bytes);

// Whether the text begins with "[2024-03-05 08:07:06] " or its like.
bool BeginsWithStamp(const std::string& text);

inline constexpr size_t kStampSize = 22;  // with the blank

}  // namespace tests

#endif  // TESTS_SUPPORT_LOG_OPERATIONS_H_
