#include "support/recording_logger.h"

#include <cstdarg>

#include "common/code_page.h"
#include "common/format.h"

namespace tests {
namespace {

std::string Format(const char* format, va_list arguments) {
  return common::FormatCut(2046, format, arguments);
}

std::string Format(const wchar_t* format, va_list arguments) {
  return common::WideToNarrow(common::FormatCut(2046, format, arguments));
}

}  // namespace

#define RECORD(name, Character)                              \
  void RecordingLogger::name(const Character* format, ...) { \
    va_list arguments;                                       \
    va_start(arguments, format);                             \
    Keep(#name ": " + Format(format, arguments));            \
    va_end(arguments);                                       \
  }

RECORD(Debug, char)
RECORD(Info, char)
RECORD(Done, char)
RECORD(Warn, char)
RECORD(Error, char)
RECORD(Fatal, char)
RECORD(DebugW, wchar_t)
RECORD(InfoW, wchar_t)
RECORD(DoneW, wchar_t)
RECORD(WarnW, wchar_t)
RECORD(ErrorW, wchar_t)
RECORD(FatalW, wchar_t)
RECORD(DebugOut, char)
RECORD(InfoOut, char)
RECORD(DoneOut, char)
RECORD(WarnOut, char)
RECORD(ErrorOut, char)
RECORD(FatalOut, char)
RECORD(DebugOutW, wchar_t)
RECORD(InfoOutW, wchar_t)
RECORD(DoneOutW, wchar_t)
RECORD(WarnOutW, wchar_t)
RECORD(ErrorOutW, wchar_t)
RECORD(FatalOutW, wchar_t)

#undef RECORD

std::vector<std::string> RecordingLogger::Lines() const {
  const std::lock_guard lock(mutex_);
  return lines_;
}

std::vector<std::string> RecordingLogger::LinesAboveDebug() const {
  std::vector<std::string> lines = Lines();
  std::erase_if(lines, [](const std::string& line) { return line.starts_with("Debug: "); });
  return lines;
}

void RecordingLogger::Keep(const std::string& line) {
  const std::lock_guard lock(mutex_);
  lines_.push_back(line);
}

}  // namespace tests
