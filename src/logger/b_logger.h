// The implementation of Logger: dated lines in Logs\<name>_YYYYMMDD.log.
#ifndef LOGGER_B_LOGGER_H_
#define LOGGER_B_LOGGER_H_

#include <atomic>
#include <cstdarg>
#include <memory>
#include <string>
#include <string_view>

#include "common/file_stream.h"
#include "locker/locker.h"
#include "logger/logger.h"

namespace logger {

// The file is opened when the first line is logged and is not renamed at midnight. Each line is
// flushed, so lines already logged survive a crash. Lines of two threads never interleave in the
// file; on the console they can.
//
// If the folder cannot be created or the file cannot be opened, the line is not written to the
// file; the next line tries again. After a failed write, no further line is written to the file.
class BLogger : public Logger {
 public:
  // The log file is in the folder Logs in `folder`, or in the program's folder if `folder` is
  // empty. Only Logs itself is created, not its parent folders.
  BLogger(std::string name, std::string folder);
  ~BLogger() override;

  void Debug(const char* format, ...) override;
  void Info(const char* format, ...) override;
  void Done(const char* format, ...) override;
  void Warn(const char* format, ...) override;
  void Error(const char* format, ...) override;
  void Fatal(const char* format, ...) override;

  void DebugW(const wchar_t* format, ...) override;
  void InfoW(const wchar_t* format, ...) override;
  void DoneW(const wchar_t* format, ...) override;
  void WarnW(const wchar_t* format, ...) override;
  void ErrorW(const wchar_t* format, ...) override;
  void FatalW(const wchar_t* format, ...) override;

  void DebugOut(const char* format, ...) override;
  void InfoOut(const char* format, ...) override;
  void DoneOut(const char* format, ...) override;
  void WarnOut(const char* format, ...) override;
  void ErrorOut(const char* format, ...) override;
  void FatalOut(const char* format, ...) override;

  void DebugOutW(const wchar_t* format, ...) override;
  void InfoOutW(const wchar_t* format, ...) override;
  void DoneOutW(const wchar_t* format, ...) override;
  void WarnOutW(const wchar_t* format, ...) override;
  void ErrorOutW(const wchar_t* format, ...) override;
  void FatalOutW(const wchar_t* format, ...) override;

  std::string GetLogDir() const override;
  std::string GetLogFilePath() const override;
  void SetOutputEnabled(bool enabled) override;
  bool IsOutputEnabled() const override;
  void SetEnabled(bool enabled) override;
  bool IsEnabled() const override;
  std::string GetLastErrorLine() const override;
  std::string GetExtra() const override;
  void SetExtra(const std::string& extra) override;

  // Receives the message of each line that goes to the file, the console and the debugger: ANSI
  // text without time stamp, level and line end. It is called after the write to the file, on the
  // thread that logs, even if the write fails or the output is disabled; not if logging is
  // disabled. The logger's lock is held, so that the calls have the order of the lines; the
  // observer must not log.
  using Observer = void (*)(std::string_view message);
  // Set it before another thread logs. Null, as at first, for none.
  void SetObserver(Observer observer);

 private:
  enum class Copy { kFileOnly, kEverywhere };

  void Log(LogLevel level, Copy copy, const char* format, va_list arguments);
  void Log(LogLevel level, Copy copy, const wchar_t* format, va_list arguments);
  bool Handles(LogLevel level) const;
  // The message starts at that position of the line.
  void LogLine(LogLevel level, Copy copy, const std::string& line, size_t message);
  void WriteLine(LogLevel level, Copy copy, const std::string& line, size_t message);
  // The caller of these two holds the lock.
  bool OpenLogFile();
  bool IsFileOpen() const;

  const std::string name_;
  const std::string folder_;
  const LogLevel threshold_ = LogLevel::kDebug;
  common::FileStream file_;
  std::atomic<bool> output_enabled_ = true;
  std::atomic<bool> enabled_ = true;
  Observer observer_ = nullptr;
  // Protects the file and the two texts below. No thread locks it recursively.
  std::unique_ptr<locker::Locker> lock_;
  std::string last_error_line_;
  std::string extra_;
};

}  // namespace logger

#endif  // LOGGER_B_LOGGER_H_
