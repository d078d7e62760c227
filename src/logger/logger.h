// The one logger of the program, as every stage sees it.
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

// All operations may be called from any thread and never throw. Templates are printf's; a narrow
// one and its arguments are in the ANSI code page. Of a longer message the first 2,046 units are
// kept.
class Logger {
 public:
  Logger() = default;
  Logger(const Logger&) = delete;
  Logger& operator=(const Logger&) = delete;
  virtual ~Logger() = default;

  // To the file only.
  COMMON_PRINTF_FORMAT(2, 3) virtual void Debug(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Info(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Done(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Warn(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Error(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void Fatal(const char* format, ...) = 0;

  // Wide templates, to the file only. DoneW logs at Debug, as DebugW does: its lines carry
  // "[Debug]".
  virtual void DebugW(const wchar_t* format, ...) = 0;
  virtual void InfoW(const wchar_t* format, ...) = 0;
  virtual void DoneW(const wchar_t* format, ...) = 0;
  virtual void WarnW(const wchar_t* format, ...) = 0;
  virtual void ErrorW(const wchar_t* format, ...) = 0;
  virtual void FatalW(const wchar_t* format, ...) = 0;

  // To the file, the console and the debugger.
  COMMON_PRINTF_FORMAT(2, 3) virtual void DebugOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void InfoOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void DoneOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void WarnOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void ErrorOut(const char* format, ...) = 0;
  COMMON_PRINTF_FORMAT(2, 3) virtual void FatalOut(const char* format, ...) = 0;

  // Wide templates, to the file, the console and the debugger. DoneOutW logs at Debug too.
  virtual void DebugOutW(const wchar_t* format, ...) = 0;
  virtual void InfoOutW(const wchar_t* format, ...) = 0;
  virtual void DoneOutW(const wchar_t* format, ...) = 0;
  virtual void WarnOutW(const wchar_t* format, ...) = 0;
  virtual void ErrorOutW(const wchar_t* format, ...) = 0;
  virtual void FatalOutW(const wchar_t* format, ...) = 0;

  // The folder of the log file, with a final backslash; empty when the program's is not known.
  virtual std::string GetLogDir() const = 0;
  // The path that the log file of today has.
  virtual std::string GetLogFilePath() const = 0;

  // Whether the console and the debugger get their copies.
  virtual void SetOutputEnabled(bool enabled) = 0;
  virtual bool IsOutputEnabled() const = 0;

  // Whether anything is logged at all.
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool IsEnabled() const = 0;

  // The last line logged at Error, without its line end.
  virtual std::string GetLastErrorLine() const = 0;

  // A text that the logger keeps for its users.
  virtual std::string GetExtra() const = 0;
  virtual void SetExtra(const std::string& extra) = 0;
};

}  // namespace logger

#endif  // LOGGER_LOGGER_H_
