#include "simulator/model/processes/console.h"

namespace simulator {

void Console::Print(std::string_view text) {
  if (text.empty()) return;
  const std::lock_guard lock(mutex_);
  if (spans_.empty() || spans_.back().attributes != attributes_) {
    spans_.push_back({attributes_, {}});
  }
  spans_.back().text += text;
}

void Console::SetAttributes(WORD attributes) {
  const std::lock_guard lock(mutex_);
  attributes_ = attributes;
}

WORD Console::Attributes() const {
  const std::lock_guard lock(mutex_);
  return attributes_;
}

std::vector<ConsoleSpan> Console::Spans() const {
  const std::lock_guard lock(mutex_);
  return spans_;
}

std::string Console::Text() const {
  const std::lock_guard lock(mutex_);
  std::string text;
  for (const ConsoleSpan& span : spans_) text += span.text;
  return text;
}

void Console::DebuggerPrint(std::string_view text) {
  const std::lock_guard lock(mutex_);
  debugger_.emplace_back(text);
}

std::vector<std::string> Console::DebuggerTexts() const {
  const std::lock_guard lock(mutex_);
  return debugger_;
}

}  // namespace simulator
