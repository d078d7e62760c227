// The console and the debugger of the simulated process.
#ifndef SIMULATOR_MODEL_PROCESSES_CONSOLE_H_
#define SIMULATOR_MODEL_PROCESSES_CONSOLE_H_

#include <windows.h>

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// Text printed with one set of attributes; 7 is grey on black.
struct ConsoleSpan {
  WORD attributes;
  std::string text;
};

// Thread-safe.
class Console {
 public:
  void Print(std::string_view text);
  void SetAttributes(WORD attributes);
  WORD Attributes() const;

  // Adjacent spans have different attributes. The text is as the program printed it, without the
  // runtime's translation of line ends.
  std::vector<ConsoleSpan> Spans() const;
  std::string Text() const;

  void DebuggerPrint(std::string_view text);
  std::vector<std::string> DebuggerTexts() const;

 private:
  mutable std::mutex mutex_;
  WORD attributes_ = 7;
  std::vector<ConsoleSpan> spans_;
  std::vector<std::string> debugger_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_CONSOLE_H_
