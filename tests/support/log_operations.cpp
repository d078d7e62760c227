#include "support/log_operations.h"

#include <cctype>

namespace tests {

using logger::Logger;

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"Debug", &Logger::Debug, nullptr, "[Debug] ", false, 7},
      {"Info", &Logger::Info, nullptr, "[Info]  ", false, 7},
      {"Done", &Logger::Done, nullptr, "[Done]  ", false, 7},
      {"Warn", &Logger::Warn, nullptr, "[Warn]  ", false, 7},
      {"Error", &Logger::Error, nullptr, "[Error] ", false, 7},
      {"Fatal", &Logger::Fatal, nullptr, "[Fatal] ", false, 7},
      {"DebugW", nullptr, &Logger::DebugW, "[Debug] ", false, 7},
      {"InfoW", nullptr, &Logger::InfoW, "[Info]  ", false, 7},
      {"DoneW", nullptr, &Logger::DoneW, "[Debug] ", false, 7},
      {"WarnW", nullptr, &Logger::WarnW, "[Warn]  ", false, 7},
      {"ErrorW", nullptr, &Logger::ErrorW, "[Error] ", false, 7},
      {"FatalW", nullptr, &Logger::FatalW, "[Fatal] ", false, 7},
      {"DebugOut", &Logger::DebugOut, nullptr, "[Debug] ", true, 7},
      {"InfoOut", &Logger::InfoOut, nullptr, "[Info]  ", true, 7},
      {"DoneOut", &Logger::DoneOut, nullptr, "[Done]  ", true, 0x0A},
      {"WarnOut", &Logger::WarnOut, nullptr, "[Warn]  ", true, 0x0E},
      {"ErrorOut", &Logger::ErrorOut, nullptr, "[Error] ", true, 0x0C},
      {"FatalOut", &Logger::FatalOut, nullptr, "[Fatal] ", true, 0x0C},
      {"DebugOutW", nullptr, &Logger::DebugOutW, "[Debug] ", true, 7},
      {"InfoOutW", nullptr, &Logger::InfoOutW, "[Info]  ", true, 7},
      {"DoneOutW", nullptr, &Logger::DoneOutW, "[Debug] ", true, 7},
      {"WarnOutW", nullptr, &Logger::WarnOutW, "[Warn]  ", true, 0x0E},
      {"ErrorOutW", nullptr, &Logger::ErrorOutW, "[Error] ", true, 0x0C},
      {"FatalOutW", nullptr, &Logger::FatalOutW, "[Fatal] ", true, 0x0C},
  };
  return operations;
}

void LogBy(const Operation& operation, Logger& logger, const std::string& text) {
  if (operation.narrow != nullptr) {
    (logger.*operation.narrow)("%s", text.c_str());
  } else {
    (logger.*operation.wide)(L"%s", std::wstring(text.begin(), text.end()).c_str());
  }
}

bool BeginsWithStamp(const std::string& text) {
  const std::string shape = "[0000-00-00 00:00:00] ";
  for (size_t i = 0; i < shape.size(); ++i) {
    if (i >= text.size()) return false;
    const bool is_digit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (shape[i] == '0' ? !is_digit : text[i] != shape[i]) return false;
  }
  return true;
}

std::vector<std::string> LinesWithoutStamp(const std::string& bytes) {
  std::vector<std::string> lines;
  for (size_t begin = 0; begin < bytes.size();) {
    const size_t end = bytes.find("\r\n", begin);
    const std::string line = bytes.substr(begin, end == std::string::npos ? end : end - begin);
    const bool is_line = end != std::string::npos && BeginsWithStamp(line);
    lines.push_back(is_line ? line.substr(kStampSize) : "?" + line);
    begin = end == std::string::npos ? end : end + 2;
  }
  return lines;
}

}  // namespace tests
