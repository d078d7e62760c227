#include "logger/b_logger.h"

#include <windows.h>

#include <string_view>
#include <utility>

#include "common/code_page.h"
#include "common/console.h"
#include "common/files.h"
#include "common/locations.h"
#include "common/paths.h"
#include "common/times.h"
#include "locker/b_locker.h"

namespace logger {
namespace {

// Oddity: message length, see docs/oddities.md.
constexpr size_t kMaxMessage = 2046;

const char* LevelName(LogLevel level) {
  switch (level) {
    case LogLevel::kFatal:
      return "Fatal";
    case LogLevel::kError:
      return "Error";
    case LogLevel::kWarn:
      return "Warn";
    case LogLevel::kInfo:
      return "Info";
    case LogLevel::kDone:
      return "Done";
    case LogLevel::kDebug:
      return "Debug";
  }
  return "Unknown";
}

// "[2024-03-05 08:07:06] [Info]  ": messages of all levels start in the same column.
std::string Prefix(LogLevel level) {
  const std::string_view name = LevelName(level);
  std::string prefix = common::GetTimeStamp();
  prefix += " [";
  prefix += name;
  prefix += name.size() < 5 ? "]  " : "] ";
  return prefix;
}

void PrintOnConsole(LogLevel level, const std::string& text) {
  switch (level) {
    case LogLevel::kFatal:
    case LogLevel::kError:
      return common::ColorPrintTemplate(true, common::kRed, text);
    case LogLevel::kWarn:
      return common::ColorPrintTemplate(true, common::kYellow, text);
    case LogLevel::kDone:
      return common::ColorPrintTemplate(true, common::kGreen, text);
    case LogLevel::kInfo:
    case LogLevel::kDebug:
      break;
  }
  common::PrintTemplate(text);
}

}  // namespace

BLogger::BLogger(std::string name, std::string folder)
    : name_(std::move(name)),
      folder_(std::move(folder)),
      lock_(std::make_unique<locker::BLocker>()) {}

BLogger::~BLogger() {
  const locker::LockScope scope(*lock_);
  if (!IsFileOpen()) return;
  file_.clear();
  file_.close();
}

// The 24 logging operations: name, character type, level, copies.
#define LOGGER_OPERATION(name, Character, level, copy)   \
  void BLogger::name(const Character* format, ...) {     \
    va_list arguments;                                   \
    va_start(arguments, format);                         \
    Log(LogLevel::level, Copy::copy, format, arguments); \
    va_end(arguments);                                   \
  }

LOGGER_OPERATION(Debug, char, kDebug, kFileOnly)
LOGGER_OPERATION(Info, char, kInfo, kFileOnly)
LOGGER_OPERATION(Done, char, kDone, kFileOnly)
LOGGER_OPERATION(Warn, char, kWarn, kFileOnly)
LOGGER_OPERATION(Error, char, kError, kFileOnly)
LOGGER_OPERATION(Fatal, char, kFatal, kFileOnly)

LOGGER_OPERATION(DebugW, wchar_t, kDebug, kFileOnly)
LOGGER_OPERATION(InfoW, wchar_t, kInfo, kFileOnly)
// Oddity: wide Done operations, see docs/oddities.md.
LOGGER_OPERATION(DoneW, wchar_t, kDebug, kFileOnly)
LOGGER_OPERATION(WarnW, wchar_t, kWarn, kFileOnly)
LOGGER_OPERATION(ErrorW, wchar_t, kError, kFileOnly)
LOGGER_OPERATION(FatalW, wchar_t, kFatal, kFileOnly)

LOGGER_OPERATION(DebugOut, char, kDebug, kEverywhere)
LOGGER_OPERATION(InfoOut, char, kInfo, kEverywhere)
LOGGER_OPERATION(DoneOut, char, kDone, kEverywhere)
LOGGER_OPERATION(WarnOut, char, kWarn, kEverywhere)
LOGGER_OPERATION(ErrorOut, char, kError, kEverywhere)
LOGGER_OPERATION(FatalOut, char, kFatal, kEverywhere)

LOGGER_OPERATION(DebugOutW, wchar_t, kDebug, kEverywhere)
LOGGER_OPERATION(InfoOutW, wchar_t, kInfo, kEverywhere)
// Oddity: wide Done operations, see docs/oddities.md.
LOGGER_OPERATION(DoneOutW, wchar_t, kDebug, kEverywhere)
LOGGER_OPERATION(WarnOutW, wchar_t, kWarn, kEverywhere)
LOGGER_OPERATION(ErrorOutW, wchar_t, kError, kEverywhere)
LOGGER_OPERATION(FatalOutW, wchar_t, kFatal, kEverywhere)

#undef LOGGER_OPERATION

std::string BLogger::GetLogDir() const {
  return common::JoinDir(folder_.empty() ? common::GetCurrentDir() : folder_, "Logs");
}

std::string BLogger::GetLogFilePath() const {
  // Oddity: log path after midnight, see docs/oddities.md.
  return common::JoinPath(GetLogDir(), name_ + "_" + common::GetDateString() + ".log");
}

void BLogger::SetOutputEnabled(bool enabled) { output_enabled_ = enabled; }

bool BLogger::IsOutputEnabled() const { return output_enabled_; }

void BLogger::SetEnabled(bool enabled) { enabled_ = enabled; }

bool BLogger::IsEnabled() const { return enabled_; }

std::string BLogger::GetLastErrorLine() const {
  const locker::LockScope scope(*lock_);
  return last_error_line_;
}

std::string BLogger::GetExtra() const {
  const locker::LockScope scope(*lock_);
  return extra_;
}

void BLogger::SetExtra(const std::string& extra) {
  const locker::LockScope scope(*lock_);
  extra_ = extra;
}

void BLogger::SetObserver(Observer observer) { observer_ = observer; }

void BLogger::Log(LogLevel level, Copy copy, const char* format, va_list arguments) {
  if (!Handles(level)) return;
  std::string line = Prefix(level);
  const size_t message = line.size();
  line += common::FormatCut(kMaxMessage, format, arguments);
  LogLine(level, copy, line, message);
}

void BLogger::Log(LogLevel level, Copy copy, const wchar_t* format, va_list arguments) {
  if (!Handles(level)) return;
  std::string line = Prefix(level);
  const size_t message = line.size();
  line += common::WideToNarrow(common::FormatCut(kMaxMessage, format, arguments));
  LogLine(level, copy, line, message);
}

bool BLogger::Handles(LogLevel level) const { return level <= threshold_; }

void BLogger::LogLine(LogLevel level, Copy copy, const std::string& line, size_t message) {
  WriteLine(level, copy, line, message);
  if (level == LogLevel::kError && enabled_) {
    const locker::LockScope scope(*lock_);
    last_error_line_ = line;
  }
}

void BLogger::WriteLine(LogLevel level, Copy copy, const std::string& line, size_t message) {
  if (!enabled_) return;
  if (copy == Copy::kEverywhere && output_enabled_) {
    const std::string text = line + "\r\n";
    PrintOnConsole(level, text);
    ::OutputDebugStringA(text.c_str());
  }
  const locker::LockScope scope(*lock_);
  if (OpenLogFile()) file_ << line << '\n' << std::flush;
  if (copy == Copy::kEverywhere && observer_ != nullptr) {
    observer_(std::string_view(line).substr(message));
  }
}

bool BLogger::OpenLogFile() {
  // Oddity: log after a failed write, see docs/oddities.md.
  if (IsFileOpen()) return true;
  const std::string folder = GetLogDir();
  if (!common::Exists(folder) && !common::CreateDir(folder)) return false;
  file_.open(GetLogFilePath(), std::ios_base::out | std::ios_base::app);
  return IsFileOpen();
}

bool BLogger::IsFileOpen() const { return file_.is_open() && !file_.bad(); }

}  // namespace logger
