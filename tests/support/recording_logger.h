// A logger that records its messages, so that tests can compare all of them.
#ifndef TESTS_SUPPORT_RECORDING_LOGGER_H_
#define TESTS_SUPPORT_RECORDING_LOGGER_H_

#include <mutex>
#include <string>
#include <vector>

#include "logger/logger.h"

namespace tests {

// Each entry is the operation's name, a colon, a space and the message: "WarnOut: no disk".
class RecordingLogger : public logger::Logger {
 public:
  std::vector<std::string> Lines() const;
  // Returns the lines without those of Debug, which are logged for every command.
  std::vector<std::string> LinesAboveDebug() const;

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

  std::string GetLogDir() const override { return "C:\\log\\"; }
  std::string GetLogFilePath() const override { return "C:\\log\\file.log"; }
  void SetOutputEnabled(bool) override {}
  bool IsOutputEnabled() const override { return true; }
  void SetEnabled(bool) override {}
  bool IsEnabled() const override { return true; }
  std::string GetLastErrorLine() const override { return {}; }
  std::string GetExtra() const override { return {}; }
  void SetExtra(const std::string&) override {}

 protected:
  virtual void Keep(const std::string& line);

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_RECORDING_LOGGER_H_
