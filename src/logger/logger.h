// The interface of the program's logger.
#ifndef LOGGER_LOGGER_H_
#define LOGGER_LOGGER_H_

#include <cstdint>
#include <string>

#include "common/format.h"

namespace logger {

// Single bits; a smaller value is more severe.
enum class LogLevel : int32_t {
  kFatal = 1,
  kError = 2,
  kWarn = 4,
  kInfo = 8,
  kDone = 16,
  kDebug = 32,
};

// All operations may be called from any thread and never throw. Formats are printf format strings;
// narrow ones and their arguments are ANSI text. A message is truncated after 2,046 units.
class Logger {
 public:
  Logger() = default;
  Logger(const Logger&) = delete;
  Logger& operator=(const Logger&) = delete;
  virtual ~Logger() = default;

  // Narrow format strings, to the file only.
  COMMON_PRINTF_FORMAT(2, 3) virtual void Debug(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Info(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Done(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Warn(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Error(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Fatal(const char* format, ...) = 0;

  // Wide format strings, to the file only. DoneW logs at Debug, with the tag "[Debug]".
  virtual void DebugW(const wchar_t* format, ...) = 0;
  virtual void InfoW(const wchar_t* format, ...) = 0;
  virtual void DoneW(const wchar_t* format, ...) = 0;
  virtual void WarnW(const wchar_t* format, ...) = 0;
  virtual void ErrorW(const wchar_t* format, ...) = 0;
  virtual void FatalW(const wchar_t* format, ...) = 0;

  // Narrow format strings, to the file, the console and the debugger.
  COMMON_PRINTF_FORMAT(2, 3) virtual void DebugOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void InfoOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void DoneOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void WarnOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void ErrorOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void FatalOut(const char* format, ...) = 0;

  // Wide format strings, to the file, the console and the debugger. DoneOutW logs at Debug.
  virtual void DebugOutW(const wchar_t* format, ...) = 0;
  virtual void InfoOutW(const wchar_t* format, ...) = 0;
  virtual void DoneOutW(const wchar_t* format, ...) = 0;
  virtual void WarnOutW(const wchar_t* format, ...) = 0;
  virtual void ErrorOutW(const wchar_t* format, ...) = 0;
  virtual void FatalOutW(const wchar_t* format, ...) = 0;

  // The folder of the log file, with a final backslash; empty if the program's folder is unknown.
  virtual std::string GetLogDir() const = 0;
  // The path of a log file opened today.
  virtual std::string GetLogFilePath() const = 0;

  // Enables or disables the copies to the console and the debugger.
  virtual void SetOutputEnabled(bool enabled) = 0;
  virtual bool IsOutputEnabled() const = 0;

  // Enables or disables logging.
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool IsEnabled() const = 0;

  // The last line logged at Error, without its line end; empty if there is none.
  virtual std::string GetLastErrorLine() const = 0;

  // A text that callers can store in the logger. The logger does not use it.
  virtual std::string GetExtra() const = 0;
  virtual void SetExtra(const std::string& extra) = 0;
};

}  // namespace logger

#endif  // LOGGER_LOGGER_H_
