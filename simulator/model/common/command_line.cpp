#include "simulator/model/common/command_line.h"

#include <algorithm>

#include "simulator/model/common/path_name.h"

namespace simulator {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

// Takes the program off the front of `rest`; quotation marks may stand anywhere in it.
std::string TakeProgram(std::string_view* rest) {
  std::string program;
  bool quoted = false;
  size_t i = 0;
  for (; i < rest->size() && (quoted || !IsBlank((*rest)[i])); ++i) {
    if ((*rest)[i] == '"') {
      quoted = !quoted;
    } else {
      program += (*rest)[i];
    }
  }
  rest->remove_prefix(i);
  return program;
}

// Takes one argument off the front of `rest`, which starts with no blank.
std::string TakeArgument(std::string_view* rest) {
  std::string argument;
  bool quoted = false;
  size_t i = 0;
  while (i < rest->size() && (quoted || !IsBlank((*rest)[i]))) {
    const size_t behind = std::min(rest->find_first_not_of('\\', i), rest->size());
    const size_t backslashes = behind - i;
    i = behind;
    if (i == rest->size() || (*rest)[i] != '"') {
      argument.append(backslashes, '\\');
      if (backslashes == 0) argument += (*rest)[i++];
      continue;
    }
    argument.append(backslashes / 2, '\\');
    ++i;
    if (backslashes % 2 == 1) {
      argument += '"';
    } else if (quoted && i < rest->size() && (*rest)[i] == '"') {
      argument += '"';
      ++i;
    } else {
      quoted = !quoted;
    }
  }
  rest->remove_prefix(i);
  return argument;
}

}  // namespace

std::string_view ProgramOf(std::string_view command_line) {
  if (command_line.starts_with('"')) {
    command_line.remove_prefix(1);
    return command_line.substr(0, command_line.find('"'));
  }
  return command_line.substr(0, command_line.find_first_of(kBlanks));
}

std::string ProgramName(std::string_view path) {
  const size_t separator = path.find_last_of("\\/");
  if (separator != std::string_view::npos) path.remove_prefix(separator + 1);
  std::string name = NameKey(path);
  if (name.ends_with(".exe")) name.resize(name.size() - 4);
  return name;
}

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> arguments = {TakeProgram(&command_line)};
  for (;;) {
    const size_t start = command_line.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return arguments;
    command_line.remove_prefix(start);
    arguments.push_back(TakeArgument(&command_line));
  }
}

}  // namespace simulator
